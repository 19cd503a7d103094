#include "company/frmSetup.h"

#include "core/supervisor_check.h"
#include "database/database_file.h"

#include "support/window_company.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// The window over a folder without a database, or with one without a supervisor.
class SetupAtHand : public WindowFixture {
public:
    explicit SetupAtHand(bool exists = false)
        : file(exists ? DatabaseFile() : folder.filePath(u"New.mdb"_s)) {}

    bool Type(const QString& keys) {
        SetupNeeds needs;
        needs.makeDemo = [this](const QString& path, const Progress&) { demo = path; };
        frmSetup window(program, file, std::move(needs), nullptr);
        const int result = Open(
            window, [&](QWidget&) { TypeWithButtons(keys); },
            [](QWidget& left) {
                for (int times = 0; times < 5 && left.isVisible(); ++times)
                    Keys(u"⎋");
            });
        EXPECT_EQ(window.HasFounded(), result == QDialog::Accepted && demo.isEmpty());
        return result == QDialog::Accepted;
    }
    QStringList Stored(const QString& query) { return ::RowsOf(*OpenDatabaseFile(file), query); }

    const QString file;
    QString demo;
};

const QString Company = u"⏎PT Maju⏎bos⏎Kunci⏎Kunci⑥"_s;

} // namespace

TEST(frmSetup, ACompanyIsFoundedByKeyboardAlone) {
    for (const bool exists : {false, true}) {
        SetupAtHand setup(exists);
        // Without SIANG, with a longer P.
        ASSERT_TRUE(setup.Type(Company + u"⏎⏎19:30⏎⏎⏎⏎ ⑥PROD Produksi⏎ADM Kantor↹A⑥"_s))
            << setup.dialogs.texts.join(u'\n').toStdString();
        EXPECT_EQ(setup.Stored(u"select Code, TimeOut from Shift order by Code"_s),
                  (QStringList{u"MALAM|1899-12-31 07:00:00"_s, u"O|1899-12-30 00:00:00"_s,
                               u"P|1899-12-30 19:30:00"_s, u"PAGI|1899-12-30 15:00:00"_s}));
        EXPECT_EQ(setup.Stored(u"select DeptCode, DeptName from Departments order by DeptCode"_s),
                  (QStringList{u"ADM|Kantor"_s, u"PROD|Produksi"_s}));
        EXPECT_EQ(setup.Stored(u"select count(1) from [Employee Status]"_s), QStringList{u"10"_s});
        const auto db = OpenDatabaseFile(setup.file);
        EXPECT_EQ(ReadCompanySettings(*db), (CompanySettings{u"PT Maju"_s, false, false, 6}));
        EXPECT_TRUE(modGeneral::CheckUserPassword(*db, u"bos"_s, u"Kunci"_s));
        EXPECT_TRUE(modGeneral::AnySupervisor(*db));
    }
}

TEST(frmSetup, NothingIsWrittenBeforeTheLastStepOrWhereSomethingIsWrong) {
    const std::pair<QString, QString> cases[] = {
        {u"⎇k"_s, u""_s},
        {u"⏎⑥"_s, u"Nama perusahaan harus diisi."_s},
        {u"⏎PT⏎⏎⑥"_s, u"User ID harus diisi."_s},
        {u"⏎PT⏎bos⏎Kunci⏎kunci⑥"_s, u"Kedua password tidak sama."_s},
        {u"⏎PT⏎bos⏎abc⏎abc⑥"_s, u"Password terlalu pendek"_s},
        {Company + u"⏎25:00⑥"_s, u"\"25:00\" bukan jam."_s},
        {Company + u"⑥A⏎a⑥"_s, u"Baris 2: kode a sudah ada"_s},
        {Company + u"⑥"_s, u""_s},
    };
    for (const auto& [keys, told] : cases) {
        SetupAtHand setup;
        EXPECT_FALSE(setup.Type(keys)) << keys.toStdString();
        EXPECT_TRUE(setup.dialogs.Last().contains(told)) << setup.dialogs.Last().toStdString();
        EXPECT_EQ(setup.dialogs.texts.size(), told.isEmpty() ? 0 : 1);
        EXPECT_FALSE(QFile::exists(setup.file));
    }
}

TEST(frmSetup, OffersTheDemoOnlyWhereThereIsNoDatabase) {
    SetupAtHand without;
    EXPECT_TRUE(without.Type(u"⎇c"_s));
    EXPECT_EQ(without.demo, without.file);
    SetupAtHand with(true);
    EXPECT_FALSE(with.Type(u"⎇c"_s));
}
