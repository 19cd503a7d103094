#include "company/frmMaster.h"

#include "company/users.h"
#include "core/passwords.h"
#include "timecard/clock_recording.h"

#include "support/window_company.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>

using namespace Qt::StringLiterals;
using Answer = Dialogs::Answer;

namespace {

/// The window over two employees, of whom one has a card, worked at by keyboard while it is open.
class Master : public WindowFixture {
public:
    Master() {
        Run(u"INSERT INTO Departments (DeptCode, DeptName) VALUES ('ADM','Kantor'),('PROD','Produksi')"_s);
        Run(u"INSERT INTO Division VALUES ('A','Regu A')"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'IN','Masuk'),(2,'S','Sakit')"_s);
        AddEmployee(u"0012"_s, u"Siti"_s, u"siti"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Budi"_s, u"budi"_s, u"PROD"_s, u"A"_s);
        Run(u"UPDATE Employee SET EmpType='HRN', GP=100000"_s);
        AddUser(u"pelon"_s, u"pelon"_s, u"SPV"_s);
        AddCard(u"T202611200012"_s, u"0012"_s, u"S"_s, u"2026-11-20"_s);
    }

    /// Opens the window and types; what is left open is left without saving.
    void Type(const QString& keys, const Work& then = {}) {
        const auto chosen = [this](QWidget*) { return file; };
        frmMaster master(program, skin, nullptr, {[this](QWidget*) { return photo; }, chosen, chosen});
        Open(
            master,
            [&](QWidget& window) {
                for (const auto& [name, work] : std::exchange(later, {}))
                    user.WhenIn(name, work);
                TypeWithButtons(keys);
                if (then)
                    then(window);
            },
            [this](QWidget& window) {
                dialogs.answers << Answer::No << Answer::No;
                for (int times = 0; times < 4 && window.isVisible(); ++times)
                    Keys(u"⎋");
            });
    }
    QStringList Departments() {
        return RowsOf(u"select DeptCode, DeptName from Departments order by DeptCode"_s);
    }
    QString EmployeeRow(const QString& nip) {
        return RowsOf(u"select Nama, Dept, Divisi, EmpType, GP, RateOT, TMakan, IdMesin, Masuk, Keluar, "
                      u"PathImage from "
                      "Employee where NIP='%1'"_s.arg(nip))
            .join(u'/');
    }

    /// What to do in a window that opens from this one.
    void WhenIn(const QString& window, const Work& work) { later.emplace_back(window, work); }

    std::vector<std::pair<QString, Work>> later;
    QString photo;
    QString file; ///< that rows come from, or go to
};

} // namespace

TEST(frmMaster, HiresSomebodyWithPhotoAndPasswordWhoClocksIn) {
    Master master;
    master.photo = master.folder.filePath(u"camera.png"_s);
    QImage(1600, 1200, QImage::Format_RGB32).save(master.photo);
    master.WhenIn(u"frmPassword"_s, [](QWidget&) { Keys(u"Kunci⏎Kunc⏎Kunci9⏎Kunci9⏎"); });
    master.Type(u"⎇t0015⏎Tono⏎P⏎A⏎H⏎150.000⏎1,5⏎15000⏎⏎77⏎⏎⏎⎇f⑥⎇p"_s);
    EXPECT_EQ(master.EmployeeRow(u"0015"_s),
              u"Tono|PROD|A|HRN|150000|1.5|15000|77|2026-11-22|-|photos/0015.jpg"_s);
    EXPECT_EQ(master.dialogs.texts, QStringList{u"Kedua password tidak sama. Ketik lagi."_s});
    EXPECT_EQ(QImage(master.folder.filePath(u"photos/0015.jpg"_s)).size(), QSize(800, 600));
    const auto stored = LoadStoredPassword(*master.OtherDesk(), u"0015"_s);
    EXPECT_TRUE(Passwords::MatchesAnyCase(u"KUNCI9"_s, stored.value()));
}

TEST(frmMaster, SaysWhatIsWrongAndKeepsWhatWasTyped) {
    const struct {
        QString keys;
        QString told;
    } cases[] = {
        {u"⎇t⏎⏎⑥"_s, u"NIK harus diisi."_s},
        {u"⎇t0012⏎X⑥"_s, u"NIK 0012 sudah dipakai"_s},
        {u"⎇t0015⏎X⏎⏎⏎⏎12a⑥"_s, u"GP: \"12a\" bukan angka"_s},
        {u"⎇t0015⏎X⏎⏎⏎⏎⏎⏎⏎⏎⏎31/2/2026⑥"_s, u"Masuk: \"31/2/2026\" bukan tanggal"_s},
        {u"⏎↹⇤⇤⇱⇲⌫9⑥"_s, u"Karyawan 0012 sudah punya kartu absen"_s}, // its number
        {u"⎇6↓↓→→t⏎"_s, u"pelon adalah supervisor terakhir"_s},
        {u"⎇4→⇱x⏎"_s, u"Status IN dipakai oleh program sendiri"_s},
    };
    for (const auto& [keys, told] : cases) {
        Master master;
        const QStringList before = master.RowsOf(u"select * from Employee"_s);
        master.Type(keys);
        EXPECT_TRUE(master.dialogs.texts.join(u'\n').contains(told))
            << keys.toStdString() << ": " << master.dialogs.texts.join(u'\n').toStdString();
        EXPECT_EQ(master.RowsOf(u"select * from Employee"_s), before);
    }
}

TEST(frmMaster, ARaiseLeavesThePastAndALeaverHisCards) {
    Master master;
    const QString pay = u"⏎⏎⏎⏎⏎"_s; // from the name to the pay
    master.WhenIn(u"frmPayFrom"_s, [](QWidget& ask) {
        EXPECT_EQ(TextOf(ask, "txtFrom"), u"01-Nov-2026"_s);
        Keys(u"1/12/2026⏎");
    });
    master.Type(pay + u"125000⑥"_s, [](QWidget& window) {
        EXPECT_EQ(TextOf(window, {"txtGP", "lblState"}), u"100,000|Mulai 01-Dec-2026: GP 125,000"_s);
    });
    EXPECT_EQ(master.RowsOf(u"select * from EmployeePay"_s),
              QStringList{u"0012|2026-12-01|HRN|125000|-|-"_s});
    EXPECT_EQ(master.RowsOf(u"select GP from Employee"_s), (QStringList{u"100000"_s, u"100000"_s}));

    master.dialogs.answers = {Answer::Yes, Answer::Yes};
    master.Type(u"⌦⑥⎇1↓⌦"_s);
    EXPECT_EQ(master.RowsOf(u"select NIP, Keluar from Employee"_s), QStringList{u"0012|2026-11-22"_s})
        << "one has cards, the other has none";
    EXPECT_EQ(master.RowsOf(u"select UserID from [User]"_s), (QStringList{u"0012"_s, u"pelon"_s}));
}

TEST(frmMaster, CodesAreTypedInTheGridAndSavedAtOnce) {
    const struct {
        QString keys;
        QList<Answer> answers;
        QStringList rows;
        QString dept; ///< of the employees then
    } cases[] = {
        {u"⎇2⎇tQC⏎Mutu⏎"_s, {}, {u"ADM|Kantor"_s, u"PROD|Produksi"_s, u"QC|Mutu"_s}, u"PROD"_s},
        {u"⎇2⎇tQC⎋"_s, {}, {u"ADM|Kantor"_s, u"PROD|Produksi"_s}, u"PROD"_s},
        {u"⎇2↓PRD⏎"_s, {Answer::Yes}, {u"ADM|Kantor"_s, u"PRD|Produksi"_s}, u"PRD"_s},
        {u"⎇2↓PRD⏎"_s, {Answer::No}, {u"ADM|Kantor"_s, u"PRD|Produksi"_s}, u"PROD"_s},
        {u"⎇2↓PRD⏎⎋"_s, {Answer::Cancel}, {u"ADM|Kantor"_s, u"PROD|Produksi"_s}, u"PROD"_s},
        {u"⎇2→Umum⏎↓⌦"_s, {Answer::Yes}, {u"ADM|Umum"_s}, u"PROD"_s},
        {u"⎇2⌦"_s, {Answer::No}, {u"ADM|Kantor"_s, u"PROD|Produksi"_s}, u"PROD"_s},
    };
    for (const auto& [keys, answers, rows, dept] : cases) {
        SCOPED_TRACE(keys.toStdString());
        Master master;
        master.dialogs.answers = answers;
        master.Type(keys);
        EXPECT_EQ(master.Departments(), rows);
        EXPECT_EQ(master.RowsOf(u"select distinct Dept from Employee"_s), QStringList{dept});
        EXPECT_EQ(master.dialogs.questions.size(), answers.size());
    }
}

TEST(frmMaster, SeesOtherDesksAndOverwritesNothingOfTheirs) {
    Master master;
    master.Type(u""_s, [&](QWidget& window) {
        auto& form = dynamic_cast<frmMaster&>(window);
        const auto desk = master.OtherDesk();
        desk->Execute(u"update Employee set Nama='Siti Aminah' where NIP='0012'"_s);
        form.Timer1_Timer();
        QCoreApplication::processEvents();
        EXPECT_EQ(TextOf(window, "txtNama"), u"Siti Aminah"_s);
        Keys(u"⏎Siti A");
        desk->Execute(u"update Employee set Divisi=null where NIP='0012'"_s);
        form.Timer1_Timer();
        EXPECT_EQ(TextOf(window, "txtNama"), u"Siti A"_s) << "what is being typed stays";
        Keys(u"⑥");
        EXPECT_TRUE(master.dialogs.Last().contains(u"sudah diubah dari komputer lain"_s));
    });
    EXPECT_EQ(master.RowsOf(u"select Nama, Divisi from Employee where NIP='0012'"_s),
              QStringList{u"Siti Aminah|-"_s});
}

TEST(frmMaster, TakesEmployeesFromAFileOnceNothingIsWrongInIt) {
    Master master;
    master.file = master.folder.filePath(u"staff.csv"_s);
    const auto write = [&](const char* text) {
        QFile file(master.file);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    const QStringList before = master.RowsOf(u"select * from Employee"_s);
    write("NIK;Nama;Dept;GP\n0020;Rina;PROD;12a\n0021;Dewi;QC;100000\n");
    master.WhenIn(u"frmImpor"_s, [](QWidget& preview) {
        EXPECT_TRUE(TextOf(preview, "lblStatus").startsWith(u"2 hal harus dibetulkan dulu"_s))
            << TextOf(preview, "lblStatus").toStdString();
        Keys(u"⑥⎋");
    });
    master.Type(u"⎇i"_s);
    EXPECT_EQ(master.RowsOf(u"select * from Employee"_s), before);

    // A column whose heading says nothing is given its field; the department is made.
    write("NIK;X;Dept;GP\n0020;Rina;PROD;120000\n0012;Siti Aminah;QC;100000\n");
    master.WhenIn(u"frmImpor"_s, [](QWidget&) { Master::TypeWithButtons(u"⎇k↓↹↓↓⎇b⑥"_s); });
    master.Type(u"⎇i"_s);
    EXPECT_EQ(master.RowsOf(u"select NIP, Nama, Dept, GP from Employee order by NIP"_s),
              (QStringList{u"0012|Siti Aminah|QC|100000"_s, u"0013|Budi|PROD|100000"_s,
                           u"0020|Rina|PROD|120000"_s}));

    // What is written comes in again unchanged.
    const QStringList now = master.RowsOf(u"select * from Employee"_s);
    master.WhenIn(u"frmImpor"_s, [](QWidget& preview) {
        EXPECT_EQ(TextOf(preview, "lblStatus"), u"0 karyawan baru, 0 berubah, 3 tetap."_s);
        Keys(u"⑥");
    });
    master.Type(u"⎇e⎇i"_s);
    EXPECT_EQ(master.RowsOf(u"select * from Employee"_s), now);
}
