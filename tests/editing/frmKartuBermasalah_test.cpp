#include "editing/frmKartuBermasalah.h"

#include "editing/frmImporAbsen.h"

#include "support/window_company.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class ProblemWindow : public WindowFixture {
public:
    ProblemWindow() {
        Run(u"INSERT INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 16:00:00')"_s);
        for (const auto& nip : {u"0012"_s, u"0013"_s, u"0014"_s}) {
            AddEmployee(nip, u"Karyawan "_s + nip, {}, u"PROD"_s);
            AddCard(u"T20261118"_s + nip, nip, u"IN"_s, u"2026-11-18"_s, u"2026-11-18 07:45:00"_s);
        }
        Run(u"UPDATE TimeCardDetail SET TimeIN=NULL, TimeOUT='2026-11-18 16:00:00' WHERE TCID='T202611180014'"_s);
        needs.editCard = [this](const QString& tcid, const QString&) {
            opened << tcid;
            return false;
        };
    }
    QString Lines() {
        QStringList lines;
        for (int row = 0; row < Grid().model()->rowCount(); ++row)
            lines << Cell(row, ProblemModel::Nip) + u' ' + Cell(row, ProblemModel::Masalah);
        return lines.join(u'\n');
    }

    ProblemWindowNeeds needs;
    QStringList opened;
};

} // namespace

TEST(frmKartuBermasalah, SeveralForgottenDeparturesAreCompletedAtOnceAfterAQuestion) {
    ProblemWindow company;
    frmKartuBermasalah window(company.program, company.needs, company.skin, nullptr);
    company.Open(window, [&](QWidget&) {
        EXPECT_EQ(company.Lines(),
                  u"0012 masuk tanpa keluar\n0013 masuk tanpa keluar\n0014 keluar tanpa masuk"_s);
        EXPECT_EQ(company.Said("lblRows"), u"3 kartu bermasalah · 01-Nov-2026 s/d 22-Nov-2026"_s);
        Keys(u"↓↓⏎");
        EXPECT_EQ(company.opened, QStringList{u"T202611180014"_s});
        Keys(u"④");
        EXPECT_TRUE(company.dialogs.Last().startsWith(u"Tidak ada usul"_s)) << "an arrival is not made up";

        company.dialogs.answers = {Dialogs::Answer::No, Dialogs::Answer::Yes};
        Keys(u"⎈a④");
        EXPECT_EQ(company.dialogs.questions.last(),
                  u"Lengkapi 2 kartu ini?\n\n"
                  "18-Nov-2026 0012 Karyawan 0012: keluar kosong → 16:00, status IN → OUT\n"
                  "18-Nov-2026 0013 Karyawan 0013: keluar kosong → 16:00, status IN → OUT"_s);
        EXPECT_EQ(company.RowsOf(u"select count(1) from TimeCardHeader where Status='OUT'"_s),
                  QStringList{u"0"_s});
        Keys(u"⎈a④");
        EXPECT_EQ(company.Lines(), u"0014 keluar tanpa masuk"_s);
        EXPECT_EQ(company.Said("lblDone"), u"2 kartu dilengkapi, 2 kartu dihitung."_s);
    });
    EXPECT_EQ(
        company.RowsOf(u"select h.NIP,h.Keterangan,h.NormalHours,d.TimeOUT from TimeCardHeader h inner join "
                       "TimeCardDetail d on d.TCID=h.TCID where h.Status='OUT' order by h.NIP"_s),
        (QStringList{u"0012|keluar dilengkapi|8.15|2026-11-18 16:00:00"_s,
                     u"0013|keluar dilengkapi|8.15|2026-11-18 16:00:00"_s}));
}

TEST(frmImporAbsen, AFileIsRecognisedShownAskedForAndItsClockKept) {
    ProblemWindow company;
    const QString path = company.folder.filePath(u"mesin.txt"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0012\t2026-11-19 07:50:00\n0012\t2026-11-19 16:05:00\n9999\t2026-11-19 07:51:00\n");
    file.close();
    company.dialogs.answers = {Dialogs::Answer::No, Dialogs::Answer::Yes};
    frmImporAbsen window(company.program, company.skin, nullptr);
    company.Open(window, [&](QWidget&) {
        Keys(path + u"⏎↹Gudang"_s);
        EXPECT_EQ(company.Said("txtForm"), u"nip tab moment"_s);
        EXPECT_TRUE(company.Said("lblForm").endsWith(u"→ nomor 0012, 19-Nov-2026 07:50:00, tanpa arah"_s));
        Part<QPushButton>(window, "cmdImpor").click();
        EXPECT_FALSE(window.HasWritten());
        EXPECT_EQ(company.RowsOf(u"select count(1) from DevicePunch"_s), QStringList{u"0"_s});
        Part<QPushButton>(window, "cmdImpor").click();
    });
    EXPECT_TRUE(window.HasWritten()) << company.dialogs.texts.join(u'\n').toStdString();
    ASSERT_FALSE(company.dialogs.questions.isEmpty());
    EXPECT_EQ(
        company.dialogs.questions.last(),
        u"Impor mesin.txt?\n\n1 kartu baru, 0 kartu dilengkapi; 1 masuk; 1 keluar; 1 nomor tidak dikenal"_s);
    EXPECT_EQ(company.RowsOf(u"select TimeIN,TimeOUT from TimeCardDetail where TCID='T202611190012'"_s),
              QStringList{u"2026-11-19 07:50:00|2026-11-19 16:05:00"_s});
    EXPECT_EQ(company.RowsOf(u"select Name,Value from Setting where Name like 'Mesin%'"_s),
              QStringList{u"Mesin:Gudang|nip tab moment"_s});
}
