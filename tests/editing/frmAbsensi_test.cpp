#include "editing/frmAbsensi.h"

#include "support/window_company.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select h.TCID, h.NIP, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT from TimeCardHeader h "
                      "left join TimeCardDetail d on h.TCID=d.TCID order by h.TCID"_s;
const QString Supervisor = u"pelon~pelon~d"_s;

/// The browser of a company of three, on the 3rd of a month; Agus (0014) comes first, Siti (0012) last.
class Browser : public WindowFixture {
public:
    Browser() {
        clock.now = Moment(u"2026-11-03 08:00:00");
        AddEmployee(u"0012"_s, u"Siti"_s, u"x"_s, u"P"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Budi"_s, u"x"_s, u"P"_s, u"B"_s);
        AddEmployee(u"0014"_s, u"Agus"_s, u"x"_s, u"K"_s, u"A"_s);
        AddUser(u"pelon"_s, u"pelon"_s, u"SPV"_s);
        Run(u"INSERT INTO Departments (DeptCode,DeptName) VALUES ('P','Produksi'),('K','Kantor')"_s);
        Run(u"INSERT INTO Division VALUES ('A','Satu'),('B','Dua')"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'S','Sakit'),(2,'CT','Cuti')"_s);
        AddCard(u"T202611010013"_s, u"0013"_s, u"IN"_s, u"2026-11-01"_s, u"2026-11-01 07:45:12"_s);
    }

    void Open() {
        window = std::make_unique<frmAbsensi>(
            program,
            AttendanceBrowserNeeds{[this](const QString& report) { opened << report; },
                                   [this](const QString& tcid, const QString& nip) {
                                       opened << tcid + u' ' + nip;
                                       Run(u"UPDATE TimeCardHeader SET Keterangan='dibetulkan'"_s);
                                       return true;
                                   }},
            skin, nullptr);
        Show(*window);
    }
    void Go(int row, int column = AttendanceModel::Status) { WindowFixture::Go(row, column); }
    QString Row(int row) {
        QStringList cells;
        for (const int column : {AttendanceModel::Nip, AttendanceModel::Tanggal, AttendanceModel::TimeIn,
                                 AttendanceModel::TimeOut, AttendanceModel::Status, AttendanceModel::Tcid})
            cells << Cell(row, column);
        return cells.join(u'|');
    }
    QString Status() { return Said("lblStatus"); }
    /// Status, number and day of each card that has one.
    QStringList Statuses() {
        return RowsOf(
            u"select h.Status||' '||h.NIP||' '||substr(d.Tanggal,9) from TimeCardHeader h inner join "
            "TimeCardDetail d on h.TCID=d.TCID order by d.Tanggal, h.NIP desc"_s);
    }
    bool Editing() { return Part<QLineEdit>("Text1").isVisible(); }

    QStringList opened;
    std::unique_ptr<frmAbsensi> window;
};

} // namespace

TEST(frmAbsensi, OpensOnThisMonthAndShowsWhatTheCriteriaAskFor) {
    Browser browser;
    browser.Open();
    EXPECT_EQ(browser.Status(), u"9 baris · Tanggal: 01-Nov-2026 s/d 03-Nov-2026"_s);
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45||IN|T202611010013"_s);
    EXPECT_TRUE(browser.Part<QLineEdit>("txtEmpl").hasFocus());
    Keys(u"0012⏎");
    EXPECT_EQ(browser.Status(), u"3 baris · Tanggal: 01-Nov-2026 s/d 03-Nov-2026 · NIP: 0012"_s);
    EXPECT_TRUE(browser.Grid().hasFocus());
    EXPECT_EQ(browser.Grid().currentIndex().row(), 0);

    browser.Part<QLineEdit>("txtEmpl").setFocus();
    Keys(u"⑨");
    ASSERT_TRUE(Browser::ListIsOpen());
    Keys(u"agus⏎");
    EXPECT_EQ(browser.Said("txtEmpl"), u"0014"_s);
    browser.Part<QLineEdit>("txtEmpl").clear();

    auto& dept = browser.Part<QComboBox>("txtDept");
    EXPECT_EQ(dept.itemText(0), u"<ALL>"_s);
    dept.setFocus();
    Keys(u"p"); // by its shown name
    browser.Part<QComboBox>("txtDivisi").setFocus();
    Keys(u"s↹ ");
    EXPECT_FALSE(browser.Part<QLineEdit>("txtDate1").isEnabled());
    Keys(u"⏎");
    EXPECT_EQ(browser.Status(), u"1 baris · Tanggal: 03-Nov-2026 · Dept: Produksi  Divisi: Satu"_s);
    EXPECT_EQ(browser.Row(0), u"0012|03-Nov-2026||||"_s);

    browser.Part<QLineEdit>("txtEmpl").setText(u"0'12"_s);
    browser.Part<QLineEdit>("txtEmpl").setFocus();
    Keys(u"⏎"); // refused: what was shown stays
    EXPECT_EQ(browser.dialogs.texts.size(), 1);
    EXPECT_EQ(browser.Row(0), u"0012|03-Nov-2026||||"_s);

    browser.Part<QLineEdit>("txtEmpl").clear();
    browser.Part<QCheckBox>("chkInterval").setChecked(true);
    Keys(u"⎇s31/2⏎"); // no such day: not with another one either
    EXPECT_TRUE(browser.dialogs.Last().startsWith(u"Sampai tanggal: \"31/2\""_s));
    EXPECT_EQ(browser.Row(0), u"0012|03-Nov-2026||||"_s);
    Keys(u"31/10⏎");
    EXPECT_EQ(browser.Said("lblDone"), u"Tanggal mulai sesudah tanggal sampai."_s);
    Keys(u"⎈a2/11⏎");
    EXPECT_EQ(browser.Said("lblDone"), QString());
    EXPECT_EQ(browser.Status(),
              u"2 baris · Tanggal: 01-Nov-2026 s/d 02-Nov-2026 · Dept: Produksi  Divisi: Satu"_s);

    // What another desk writes while it is closed.
    browser.window->close();
    browser.Run(u"UPDATE TimeCardHeader SET NIP='0012'"_s);
    browser.Run(u"INSERT INTO Departments (DeptCode,DeptName) VALUES ('B','Bengkel')"_s);
    browser.window->show();
    EXPECT_EQ(browser.Row(0), u"0012|01-Nov-2026|07:45||IN|T202611010013"_s);
    EXPECT_EQ(dept.currentText(), u"Produksi"_s);
    EXPECT_EQ(dept.itemText(1), u"Bengkel"_s);
    EXPECT_EQ(browser.Part<QLineEdit>("txtDate2").text(), u"02-Nov-2026"_s) << "the same day";
    browser.Part<QLineEdit>("txtEmpl").setText(u"0013"_s);
    browser.window->close();
    browser.clock.now = Moment(u"2026-12-02 08:00:00");
    browser.window->QWidget::setVisible(true); // a dialog without the focus selects the text by itself
    EXPECT_EQ(browser.Part<QLineEdit>("txtDate1").text(), u"01-Dec-2026"_s);
    EXPECT_EQ(browser.Part<QLineEdit>("txtDate2").text(), u"02-Dec-2026"_s);
    Keys(u"0012⏎");
    EXPECT_EQ(browser.Said("txtEmpl"), u"0012"_s) << "in place of the number before";
}

TEST(frmAbsensi, ATypedOrPickedStatusMakesTheCard) {
    Browser browser;
    browser.Open();
    browser.Go(0);
    Keys(u"s⏎");
    EXPECT_EQ(browser.Row(0), u"0014|01-Nov-2026|||S|T202611010014"_s);
    Keys(u"↓"); // Enter has gone down, too

    Keys(u"XX⏎"); // not listed: the list opens, and nothing is written
    ASSERT_TRUE(Browser::ListIsOpen());
    EXPECT_EQ(TextOf(*KeyboardUser::InFront(), "lblReason"), u"Kode XX tidak dikenal."_s);
    Keys(u"⏎"); // one too many
    EXPECT_EQ(browser.RowsOf(Cards).size(), 2);
    Keys(u"⎋");
    EXPECT_EQ(browser.Part<QLineEdit>("Text1").text(), u"XX"_s);
    Keys(u"⏎");
    ASSERT_TRUE(Browser::ListIsOpen());
    Keys(u"↓↓⏎");
    EXPECT_EQ(browser.Row(2), u"0012|01-Nov-2026|||CT|T202611010012"_s);

    browser.Go(3, AttendanceModel::Nip); // Enter leads to an empty status and to its list
    Keys(u"⏎");
    EXPECT_TRUE(browser.Part<QWidget>("cmdLov").isVisible());
    Keys(u"⏎");
    ASSERT_TRUE(Browser::ListIsOpen());
    Keys(u"⏎");
    EXPECT_EQ(browser.Row(3), u"0014|02-Nov-2026||||"_s);
    Keys(u"sakit⏎");
    EXPECT_EQ(browser.Row(3), u"0014|02-Nov-2026|||S|T202611020014"_s);

    browser.Go(1, AttendanceModel::Nip); // and to the editor where there is a status
    Keys(u"z⏎");
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45||IN|T202611010013"_s);
    EXPECT_TRUE(browser.Editing());
    Keys(u"⎋");
    EXPECT_TRUE(browser.window->isVisible());
    Keys(u"⎋");
    EXPECT_FALSE(browser.window->isVisible());
    EXPECT_EQ(browser.RowsOf(Cards), (QStringList{u"T202611010012|0012|CT|2026-11-01|-|-"_s,
                                                  u"T202611010013|0013|IN|2026-11-01|2026-11-01 07:45:12|-"_s,
                                                  u"T202611010014|0014|S|2026-11-01|-|-"_s,
                                                  u"T202611020014|0014|S|2026-11-02|-|-"_s}));
    EXPECT_EQ(browser.dialogs.texts + browser.dialogs.questions, QStringList());
}

TEST(frmAbsensi, TellsWhatAnotherDeskDidToTheRow) {
    Browser browser;
    browser.Open();
    const auto other = browser.OtherDesk();
    other->Execute(u"UPDATE TimeCardHeader SET Status='OUT'"_s);
    other->Execute(u"UPDATE TimeCardDetail SET TimeOUT='2026-11-01 17:00:00'"_s);
    const QString clockedOut = u"0013|01-Nov-2026|07:45|17:00|OUT|T202611010013"_s;
    browser.Go(1);
    Keys(u"S⏎");
    EXPECT_EQ(browser.dialogs.texts.size(), 1);
    EXPECT_EQ(browser.Row(1), clockedOut);
    EXPECT_FALSE(browser.Editing());
    Keys(u"⏎⏎⎋⎋"); // without a look at the message
    EXPECT_EQ(browser.RowsOf(Cards), QStringList{u"T202611010013|0013|OUT|2026-11-01|2026-11-01 07:45:12|"
                                                 "2026-11-01 17:00:00"_s});
    Keys(u"S⏎");
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45|17:00|S|T202611010013"_s);

    browser.Run(u"UPDATE TimeCardHeader SET Status='CT'"_s);
    browser.Go(1);
    Keys(u"⑤");
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45|17:00|CT|T202611010013"_s);
}

TEST(frmAbsensi, DeletesTheCardsDayForASupervisorOnly) {
    Browser browser;
    browser.Open();
    const QStringList before = browser.RowsOf(Cards);
    browser.Go(0);
    Keys(u"⌦"); // no card: nothing, not even a question
    browser.Go(1);
    Keys(u"⌦");
    EXPECT_EQ(browser.dialogs.texts.size(), 1); // not logged in
    browser.login = Supervisor;
    browser.Run(u"UPDATE TimeCardDetail SET TimeOUT='2026-11-01 17:00:00'"_s);
    Keys(u"⌦");
    EXPECT_EQ(browser.dialogs.texts.size(), 2); // not what was shown
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45|17:00|IN|T202611010013"_s);
    EXPECT_EQ(browser.RowsOf(Cards).size(), before.size());
    browser.Run(
        u"UPDATE TimeCardDetail SET TimeINOT='2026-11-01 17:00:00',TimeOutOT='2026-11-01 20:00:00'"_s);
    browser.dialogs.answers = {Dialogs::Answer::No, Dialogs::Answer::Yes};
    Keys(u"⌦"); // overtime, which the row does not show
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45|17:00|IN|T202611010013"_s);
    EXPECT_TRUE(browser.dialogs.questions.value(0).contains(u"01-Nov-2026 lembur 17:00-20:00"_s));
    Keys(u"⌦");
    EXPECT_EQ(browser.dialogs.texts.size(), 2);
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026||||"_s);
    EXPECT_EQ(browser.RowsOf(Cards), QStringList{u"T202611010013|0013|IN|-|-|-"_s});
}

TEST(frmAbsensi, PrintsTheRowsThatAreShown) {
    Browser browser;
    browser.Open();
    Keys(u"0013⏎");
    browser.Part<QLineEdit>("txtEmpl").setText(u"typed since"_s);
    Keys(u"⎇k");
    ASSERT_TRUE(KeyboardUser::WaitUntil([&] { return !browser.shownReports.isEmpty(); }));
    const QStringList lines = browser.ReportLines();
    EXPECT_EQ(lines.value(1), u"Tanggal: 01-Nov-2026 s/d 03-Nov-2026  NIP: 0013"_s);
    const QString person = u"|0013    |Budi                |P       |B       |"_s;
    EXPECT_EQ(lines.filter(u"|00"_s),
              (QStringList{person + u"07:45  |       |IN     |"_s + QString(30, u' '),
                           person + u"       |       |       |"_s + QString(30, u' '),
                           person + u"       |       |       |"_s + QString(30, u' ')}));
    EXPECT_EQ(browser.dialogs.texts, QStringList());
}

TEST(frmAbsensi, OpensReportsAndTheCardOfARow) {
    Browser browser;
    browser.Open();
    for (const char* entry : {"mnHarian", "mnDetail", "mnSumDept", "mnSumKary"})
        browser.Part<QWidget>("menubar").window()->findChild<QAction*>(QString::fromLatin1(entry))->trigger();
    for (const int row : {1, 8, 5}) {
        browser.Go(row);
        if (row == 5) { // another desk's, a moment ago, on an extended sheet
            browser.Run(u"INSERT INTO TimeCardHeader (TCID,NIP) VALUES ('T20261102-W0012','0012')"_s);
            browser.Run(
                u"INSERT INTO TimeCardDetail (TCID,Tanggal) VALUES ('T20261102-W0012','2026-11-02')"_s);
        }
        const qsizetype before = browser.opened.size();
        browser.Part<QWidget>("cmdOpenCard").setFocus();
        Keys(u"⎇b");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return browser.opened.size() > before; }));
        EXPECT_EQ(browser.Grid().currentIndex().row(), row);
        EXPECT_TRUE(browser.Grid().hasFocus());
    }
    EXPECT_EQ(browser.opened, (QStringList{u"AbsensiHarian"_s, u"AbsensiDetailKaryawan"_s, u"AbsensiDivisi"_s,
                                           u"AbsensiSumKary"_s, u"T202611010013 0013"_s,
                                           u"T202611030012 0012"_s, u"T20261102-W0012 0012"_s}));
    EXPECT_EQ(browser.Grid().model()->index(1, AttendanceModel::Keterangan).data(), u"dibetulkan"_s);
}

TEST(frmAbsensi, ADoubleClickReadsTheRowOrOpensTheEditor) {
    Browser browser;
    browser.Open();
    browser.Run(u"UPDATE TimeCardHeader SET Status='CT'"_s);
    const auto doubleClick = [&](int column) {
        const QPoint place = browser.Grid().visualRect(browser.Grid().model()->index(1, column)).center();
        QTest::mouseClick(browser.Grid().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(browser.Grid().viewport(), Qt::LeftButton, {}, place);
    };
    doubleClick(AttendanceModel::Nama);
    EXPECT_FALSE(browser.Editing());
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45||IN|T202611010013"_s);
    doubleClick(AttendanceModel::SerialNumber);
    EXPECT_EQ(browser.Row(1), u"0013|01-Nov-2026|07:45||CT|T202611010013"_s);
    doubleClick(AttendanceModel::Status);
    EXPECT_EQ(browser.Said("Text1"), u"CT"_s);
}

TEST(frmAbsensi, ABlockOfStatusesIsPastedTakenBackAndMadeAgain) {
    Browser browser;
    browser.Open();
    const QStringList before = browser.Statuses();
    QGuiApplication::clipboard()->setText(u"s\r\nXX\r\nct\r\n"_s);
    browser.Go(0);
    Keys(u"⎈v");
    EXPECT_TRUE(browser.dialogs.Last().contains(u"0013 Budi Status: kode XX"_s))
        << "named, and nothing written";
    EXPECT_EQ(browser.Statuses(), before);
    QGuiApplication::clipboard()->setText(u"s\r\nct\r\ns\r\n"_s);
    Keys(u"⎈v");
    EXPECT_EQ(browser.Said("lblDone"), u"Tempel: 3 sel disimpan. Ctrl+Z membatalkan."_s);
    const QStringList pasted{u"S 0014 01"_s, u"CT 0013 01"_s, u"S 0012 01"_s};
    EXPECT_EQ(browser.Statuses(), pasted);
    EXPECT_TRUE(browser.RowsOf(Cards)[1].endsWith(u"|CT|2026-11-01|2026-11-01 07:45:12|-"_s)) << "times stay";
    Keys(u"⎈z");
    EXPECT_EQ(browser.Statuses(), before) << "the cards that were made are gone";
    Keys(u"⎈y⇧↓⇧↓⎈c"); // and back to the clipboard
    EXPECT_EQ(browser.Statuses(), pasted);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"S\nCT\nS\n"_s);
    Keys(u"⎈⇱");
    browser.Go(3);
    QGuiApplication::clipboard()->setText(u"CT"_s);
    Keys(u"⇧↓⇧↓⎈v"); // one value into a block
    browser.Go(2);
    Keys(u"⇧↓⇧↓⎈d"); // filled over it from its first row
    browser.OtherDesk()->Execute(u"UPDATE TimeCardHeader SET Status='IN' WHERE TCID='T202611020014'"_s);
    browser.dialogs.texts.clear();
    Keys(u"⎈z");
    EXPECT_TRUE(browser.dialogs.Last().contains(u"0014 Agus Status: di komputer lain sudah menjadi IN"_s));
    EXPECT_EQ(browser.Statuses().mid(3), (QStringList{u"IN 0014 02"_s, u"CT 0013 02"_s, u"CT 0012 02"_s}));
    browser.Go(8);
    QGuiApplication::clipboard()->setText(u"S\nS"_s);
    Keys(u"⎈v");
    EXPECT_TRUE(browser.dialogs.Last().contains(u"tidak muat"_s));
}

TEST(frmAbsensi, RowsAreSortedAndFoundAndWrittenToTheirOwnCards) {
    Browser browser;
    browser.Open();
    const auto click = [&](int column) {
        QHeaderView& header = *browser.Grid().horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + 10, header.height() / 2});
    };
    const auto names = [&] {
        return browser.Cell(0, AttendanceModel::Nama) + browser.Cell(8, AttendanceModel::Nama);
    };
    browser.Go(1);
    click(AttendanceModel::Nama);
    EXPECT_EQ(names(), u"AgusSiti"_s);
    EXPECT_EQ(browser.Grid().currentIndex().row(), 3) << "the cursor stays with its row";
    click(AttendanceModel::Nama);
    EXPECT_EQ(names(), u"SitiAgus"_s);
    browser.Go(1);
    Keys(u"s⏎");
    EXPECT_EQ(browser.Statuses(), (QStringList{u"IN 0013 01"_s, u"S 0012 02"_s}));
    browser.window->close();
    browser.window = nullptr;
    browser.Open(); // another day
    EXPECT_EQ(names(), u"SitiAgus"_s) << "remembered";
    browser.Go(0);
    Keys(u"⎈fagu");
    EXPECT_EQ(browser.Grid().currentIndex().row(), 6);
    Keys(u"⏎");
    EXPECT_EQ(browser.Grid().currentIndex().row(), 7);
    Keys(u"⎈a0013");
    EXPECT_EQ(browser.Grid().currentIndex().row(), 3);
    Keys(u"⎋");
    EXPECT_TRUE(browser.Grid().hasFocus());
    EXPECT_TRUE(browser.window->isVisible());
    click(AttendanceModel::Nama);
    EXPECT_EQ(names(), u"AgusSiti"_s) << "as it was read";
    EXPECT_EQ(browser.Cell(1, AttendanceModel::Nama), u"Budi"_s);
    browser.window->close();
}
