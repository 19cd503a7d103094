#include "timecard/frmMain.h"

#include "support/window_company.h"
#include "timecard/sheet_lifecycle.h"
#include "ui/guarded_application.h"
#include "ui/message_dialogs.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select TCID from TimeCardHeader"_s;
const QString Sheets = u"select TCID, Status from timecardmaster order by TCID"_s;

} // namespace

TEST(frmMain, ASupervisorClosesAndReopensTheSheet) {
    WindowCompany desk;
    desk.ChooseAsSupervisor(u"Tutup Lembar ini"_s);
    EXPECT_EQ(desk.RowsOf(Sheets), QStringList{u"T20261122|1"_s});
    EXPECT_TRUE(desk.Part<QWidget>("picCloseTcid").isVisible());
    EXPECT_EQ(desk.Part<QStatusBar>("statusbar").currentMessage(), u"Lembar T20261122 ditutup."_s);

    Keys(u"②⑧");
    EXPECT_EQ(KeyboardUser::InFront(), desk.window.get());

    desk.ChooseAsSupervisor(u"Buka lagi lembar ini"_s);
    EXPECT_EQ(desk.RowsOf(Sheets), QStringList{u"T20261122|0"_s});
    EXPECT_FALSE(desk.Part<QWidget>("picCloseTcid").isVisible());
    desk.Record(Qt::Key_F2, u"0013"_s, u"kunci1"_s);
    EXPECT_EQ(desk.RowsOf(Cards).size(), 1);
    CloseSheet(*desk.OtherDesk(), u"T20261122"_s);
    Keys(u"⑧");
    EXPECT_EQ(KeyboardUser::InFront(), desk.window.get());
    EXPECT_TRUE(desk.Part<QWidget>("picCloseTcid").isVisible());
}

TEST(frmMain, SupervisorFunctionsDoNothingForOthers) {
    int opened = 0;
    WindowCompany desk({.openSettings = [&] { ++opened; }});
    for (const QString& entry : {u"Tutup Lembar ini"_s, u"Buka lagi lembar ini"_s, u"Admin Mode"_s,
                                 u"Edit data master dan laporan"_s}) {
        desk.WillLogIn(u"budi"_s, u"budi"_s);
        desk.ChooseFromMenu(entry);
        EXPECT_EQ(desk.dialogs.Last(), u"Hanya level supervisor / SPV.\nLihat [User Job]..."_s);
        desk.dialogs.texts.clear();
    }
    desk.WillLogIn(u"pelon"_s, u"PELON"_s);
    desk.Part<QPushButton>("cmdTCID").click();
    EXPECT_EQ(desk.dialogs.Last(), u"Password/Username salah."_s);
    EXPECT_FALSE(desk.Part<QLineEdit>("txtTCID").isEnabled());
    EXPECT_FALSE(desk.window->AdminMode());
    EXPECT_TRUE(desk.RowsOf(Sheets).isEmpty());
    Keys(u"③"); // for admin mode only
    EXPECT_EQ(opened, 0);
    desk.WillLogIn(u"pelon"_s, u"pelon"_s);
    desk.RecordElsewhere(u"T202611220013"_s, u"2026-11-22"_s);
    desk.Part<QPushButton>("cmdButtons_2").click();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(desk.Cell(1, SheetModel::Status), u"IN"_s) << "what was done there is shown at once";
}

TEST(frmMain, AdminModeIsTurnedOnWithACheckAndOffWithoutAndOpensEditorAndAdministration) {
    QStringList opened;
    WindowCompany desk({.editCard = [&](const QString& tcid, const QString& nip) { opened << tcid << nip; },
                        .openSettings = [&] { opened << u"settings"_s; }});
    auto& grid = desk.Grid();
    grid.setFocus();
    grid.selectRow(1);
    Keys(u"⏎");
    EXPECT_TRUE(opened.isEmpty());
    desk.ChooseAsSupervisor(u"Admin Mode"_s);
    EXPECT_TRUE(desk.Part<QAction>("mnAdminMode").isChecked());
    EXPECT_TRUE(desk.Part<QLabel>("lblAdminMode").isVisible());
    Keys(u"⏎");
    Q_EMIT grid.doubleClicked(grid.model()->index(2, 3));
    desk.ChooseFromMenu(u"Edit data master dan laporan"_s);
    EXPECT_EQ(opened,
              (QStringList{u"T202611220013"_s, u"0013"_s, u"T202611220012"_s, u"0012"_s, u"settings"_s}));
    desk.ChooseFromMenu(u"Admin Mode"_s);
    EXPECT_FALSE(desk.window->AdminMode());
    EXPECT_FALSE(desk.Part<QAction>("mnAdminMode").isChecked());
}

TEST(frmMain, AfterMidnightAnArrivalIsAskedForItsDayUnlessTheSheetWasChosen) {
    const QString arrivals = u"select TCID, TimeIN from TimeCardDetail where TimeOUT is null"_s;
    using Answer = Dialogs::Answer;
    for (const auto& [answer, cards] :
         {std::pair{Answer::Yes, QStringList{u"T202612010012|2026-12-01 00:00:07"_s}},
          {Answer::No, QStringList{u"T202611300012|2026-11-30 00:00:07"_s}},
          {Answer::Cancel, QStringList{}}}) {
        WindowCompany desk;
        desk.clock.now = Moment(u"2026-11-30 23:00:00");
        desk.dialogs.answers = {Answer::Yes};
        desk.Record(Qt::Key_F2, u"0013"_s, u"kunci1"_s);
        desk.dialogs.questions.clear();
        desk.clock.now = Moment(u"2026-12-01 00:00:07");
        desk.Tick();
        desk.Record(Qt::Key_F8, u"0013"_s, u"kunci1"_s);
        EXPECT_TRUE(desk.dialogs.questions.isEmpty()) << "a night worker goes home";
        desk.dialogs.answers = {answer};
        if (answer == Answer::Cancel)
            Keys(u"②");
        else
            desk.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
        EXPECT_EQ(desk.dialogs.questions,
                  QStringList{u"Lembar ini tanggal 30-Nov-2026. Pindah ke lembar hari ini?"_s});
        EXPECT_EQ(desk.RowsOf(arrivals), cards);
    }
    WindowCompany desk;
    desk.WillLogIn(u"pelon"_s, u"pelon"_s);
    desk.Part<QTabBar>("tabTgl").setCurrentIndex(20);
    desk.clock.now += std::chrono::hours{24};
    desk.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
    EXPECT_TRUE(desk.dialogs.questions.isEmpty());
    EXPECT_EQ(desk.RowsOf(u"select TCID from TimeCardDetail"_s), QStringList{u"T202611210012"_s});
}

TEST(frmMain, TheClockShowsTheCountToTheNextRefreshAndRefreshesOthersEntries) {
    WindowCompany desk;
    desk.RecordElsewhere(u"T202611220013"_s, u"2026-11-22"_s);
    desk.TickAfter(Seconds{1});
    EXPECT_EQ(desk.Said("lblTimer"), u"07:58:13-3"_s);
    EXPECT_EQ(desk.Cell(1, SheetModel::Status), u"A"_s);
    desk.TickAfter(Seconds{2});
    EXPECT_EQ(desk.Said("lblTimer"), u"07:58:15-0"_s);
    EXPECT_EQ(desk.Said("lblDay"), u"Minggu, 22 November 2026"_s);
    EXPECT_EQ(desk.Cell(1, SheetModel::Status), u"IN"_s);
    EXPECT_EQ(desk.Cell(1, SheetModel::Hours), u"00:28:15"_s);
    desk.TickAfter(Seconds{2});
    EXPECT_EQ(desk.Cell(1, SheetModel::Hours), u"00:28:15"_s) << "not at every tick";
    // The tick of 20 seconds fell out: the next one makes up for it, and the running hours move.
    desk.TickAfter(Seconds{4});
    EXPECT_EQ(desk.Cell(1, SheetModel::Hours), u"00:28:21"_s);
    const auto counts = [&desk] {
        return TextOf(*desk.window, {"lblIn", "lblOut", "lblOthers", "lblAbsent", "lblCounts"});
    };
    EXPECT_EQ(counts(), u"1|0|0|2|3 karyawan"_s);
    desk.Grid().selectRow(2);
    EXPECT_EQ(desk.Said("lblRoster"), u"Siti Aminah: tidak ada di jadwal shift 22-Nov-2026"_s);
    desk.Run(u"UPDATE TimeCardHeader SET Status='TL'"_s);
    desk.TickAfter(Seconds{5});
    EXPECT_EQ(counts(), u"0|0|1|2|3 karyawan"_s);
    CloseSheet(desk.Db(), u"T20261122"_s);
    desk.TickAfter(Seconds{5});
    EXPECT_EQ(counts(), u"–|–|–|–|3 karyawan · lembar ditutup"_s);
}

TEST(frmMain, ARefreshKeepsSelectionAndScrollPositionAndAHeaderSortsByWhatTheEmployeeListKnows) {
    WindowCompany desk;
    for (int i = 100; i < 200; ++i)
        desk.AddEmployee(QString::number(i), u"Karyawan %1"_s.arg(i), u"x"_s, u"PROD"_s);
    auto& grid = desk.Grid();
    Q_EMIT grid.horizontalHeader()->sectionPressed(SheetModel::Nip);
    grid.selectRow(60);
    grid.verticalScrollBar()->setValue(50);
    EXPECT_EQ(desk.Cell(0, SheetModel::Nip), u"0012"_s);
    const QString selected = desk.Cell(60, SheetModel::Nip);
    desk.RecordElsewhere(u"T202611220013"_s, u"2026-11-22"_s);
    desk.TickAfter(Seconds{10});
    EXPECT_EQ(grid.currentIndex().row(), 60);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 50);
    desk.AddEmployee(u"0011"_s, u"Karyawan baru"_s, u"x"_s, u"PROD"_s);
    desk.TickAfter(Seconds{5});
    EXPECT_EQ(desk.Cell(0, SheetModel::Nip), u"0011"_s);
    EXPECT_EQ(desk.Cell(grid.currentIndex().row(), SheetModel::Nip), selected);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 50);
    Keys(u"⎈2");
    EXPECT_EQ(grid.currentIndex().siblingAtColumn(SheetModel::Nip).data(), selected);
    EXPECT_EQ(desk.Cell(0, SheetModel::Dept), u"ADM/A"_s);
    EXPECT_EQ(desk.Said("lblIn"), u"1"_s) << "the rows are filled again";
    EXPECT_TRUE(desk.dialogs.texts.isEmpty());
    for (const int column :
         {SheetModel::Status, SheetModel::TimeIn, SheetModel::Hours, SheetModel::OvertimeHours})
        Q_EMIT grid.horizontalHeader()->sectionPressed(column);
    Keys(u"⎈1⎈0");
    EXPECT_TRUE(desk.dialogs.texts.isEmpty()) << desk.dialogs.Last().toStdString();
    EXPECT_EQ(desk.Cell(0, SheetModel::Dept), u"ADM/A"_s);
}

TEST(frmMain, FourteenEmployeesAreSeenInLargeTypeOnASmallScreenAndTheRoomIsTakenBackOnALargeOne) {
    WindowCompany desk;
    for (int i = 100; i < 140; ++i)
        desk.AddEmployee(QString::number(i), u"Karyawan %1"_s.arg(i), u"x"_s, u"PROD"_s);
    const auto rowsSeen = [&desk](QSize window) {
        desk.window->resize(window);
        QApplication::processEvents();
        const auto rows = [&desk] {
            return desk.Grid().viewport()->height() / desk.Grid().verticalHeader()->defaultSectionSize();
        };
        KeyboardUser::WaitUntil([&rows] { return rows() >= 14; }); // layouts settle one after the other
        return rows();
    };
    const auto& hint = desk.Part<QLabel>("lblTabs");
    EXPECT_GE(rowsSeen({1366, 740}), 14);
    const int usual = desk.Grid().verticalHeader()->defaultSectionSize();
    EXPECT_GE(rowsSeen({1366 * 2 / 3, 740 * 2 / 3}), 14);
    EXPECT_TRUE(hint.isVisible());
    EXPECT_GE(rowsSeen({1366, 740}), 14);
    EXPECT_EQ(desk.Grid().verticalHeader()->defaultSectionSize(), usual);
    EXPECT_TRUE(hint.isVisible());
}

TEST(frmMain, AFailingRefreshIsToldOnceAndTheGridKeepsWhatItShowed) {
    WindowCompany desk;
    desk.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
    const auto other = desk.OtherDesk();
    other->ExecuteNative(u"ALTER TABLE TimeCardDetail RENAME TO Gone"_s);
    const auto nextRefresh = [&] {
        desk.TickAfter(Seconds{5});
        QApplication::processEvents();
    };
    const auto refreshAfterRenaming = [&](const QString& table, const QString& to) {
        other->ExecuteNative(u"ALTER TABLE %1 RENAME TO %2"_s.arg(table, to));
        nextRefresh();
    };
    for (int i = 0; i < 3; ++i)
        nextRefresh();
    EXPECT_EQ(desk.dialogs.texts.size(), 1);
    // The user's own refresh is told, and opens no entry window with a date that could not be read.
    Keys(u"②");
    EXPECT_EQ(KeyboardUser::InFront(), desk.window.get());
    EXPECT_EQ(desk.dialogs.texts.size(), 2);
    EXPECT_EQ(desk.Cell(2, SheetModel::Status), u"IN"_s);
    EXPECT_TRUE(desk.Said("lblUpdated").startsWith(u"TIDAK dapat diperbarui sejak 07:58:12"_s));
    EXPECT_TRUE(desk.Part<QLabel>("lblNotRefreshed").isVisible());
    refreshAfterRenaming(u"Gone"_s, u"TimeCardDetail"_s);
    EXPECT_EQ(desk.Said("lblUpdated"), u"diperbarui 07:58:32 · DATA.mdb"_s);
    EXPECT_FALSE(desk.Part<QLabel>("lblNotRefreshed").isVisible());

    refreshAfterRenaming(u"TimeCardDetail"_s, u"Gone"_s);
    EXPECT_EQ(desk.dialogs.texts.size(), 3) << "the next outage is told again";

    // One outage is told once, whoever meets it first: the clock, a moment before the key, or a sheet to be
    // closed.
    refreshAfterRenaming(u"Gone"_s, u"TimeCardDetail"_s);
    other->ExecuteNative(u"ALTER TABLE TimeCardDetail RENAME TO Gone"_s);
    desk.TickAfter(Seconds{5});
    Keys(u"②");
    QApplication::processEvents();
    EXPECT_EQ(desk.dialogs.texts.size(), 4);
    refreshAfterRenaming(u"Gone"_s, u"TimeCardDetail"_s);
    other->ExecuteNative(u"ALTER TABLE timecardmaster RENAME TO Gone"_s);
    desk.ChooseAsSupervisor(u"Tutup Lembar ini"_s);
    nextRefresh();
    EXPECT_EQ(desk.dialogs.texts.size(), 5);
    refreshAfterRenaming(u"Gone"_s, u"timecardmaster"_s);
    ASSERT_TRUE(QFile::remove(desk.DatabaseFile()));
    nextRefresh();
    EXPECT_TRUE(desk.dialogs.Last().contains(u"File database tidak ditemukan lagi."_s));
    EXPECT_THROW(desk.Db().Execute(u"UPDATE Employee SET Nama='x'"_s), DatabaseError);
}

TEST(frmMain, TheClockRunsOnWhileItsFailureIsShown) {
    WindowCompany desk;
    MessageDialogs boxes;
    Program program{desk.program.folder,   desk.clock, boxes, desk.log, desk.database,
                    desk.program.askLogin, {}};
    b_form_skin::Backgrounds skin;
    frmMain window(program, skin, {.userCountry = [] { return u"United States"_s; }});
    ASSERT_TRUE(window.Form_Load());
    window.show();
    const auto other = desk.OtherDesk();
    other->ExecuteNative(u"ALTER TABLE TimeCardDetail RENAME TO Gone"_s);
    const auto& clock = Part<QLabel>(window, "lblTimer");
    desk.user.WhenIn(u"MessageBox"_s, [&](QWidget& box) {
        desk.clock.now = Moment(u"2026-11-22 07:58:40");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return clock.text() == u"07:58:40-0"_s; }));
        EXPECT_EQ(KeyboardUser::InFront(), &box) << "the next failure is not told on top";
        Keys(u"⏎");
    });
    desk.clock.now = Moment(u"2026-11-22 07:58:30");
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return desk.user.IsDone(); }));
}

/// The toolkit, left in the midst of a key by an exception, keeps two small pieces of memory: they are not
/// ours.
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
using LeaksOfToolkit = __lsan::ScopedDisabler;
#else
struct LeaksOfToolkit {
    ~LeaksOfToolkit() {}
};
#endif

TEST(frmMain, WhatEscapesAHandlerIsLoggedAndToldAndTheWindowStays) {
    const LeaksOfToolkit allowed;
    WindowCompany desk({.openSettings = [] { throw std::runtime_error("escaped"); }});
    const auto guard = static_cast<GuardedApplication*>(qApp)->ReportTo(desk.program);
    desk.window->SetAdminMode(true);
    desk.Part<QPushButton>("cmdButtons_2").setFocus();
    Keys(u" ");
    EXPECT_TRUE(desk.dialogs.Last().contains(u"escaped"_s));
    EXPECT_TRUE(desk.IsLogged("Sub/Function: QPushButton.KeyRelease"));
    EXPECT_TRUE(desk.window->isVisible());
    desk.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
    EXPECT_EQ(desk.RowsOf(Cards).size(), 1);
}

TEST(frmMain, AClockInDoubtIsTakenNoteOfUntilASupervisorConfirmsIt) {
    WindowCompany desk;
    desk.AddCard(u"T202611220014"_s, u"0014"_s, u"IN"_s, u"2026-11-22"_s, u"2026-11-22 08:30:00"_s);
    desk.clock.now = Moment(u"2026-11-22 07:58:15");
    desk.Tick();
    auto& band = Part<QWidget>(*desk.window, "bandClock");
    EXPECT_TRUE(band.isVisible());
    desk.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
    desk.WillLogIn(u"pelon"_s, u"pelon"_s);
    Keys(u"⎇b");
    EXPECT_TRUE(KeyboardUser::WaitUntil([&band] { return !band.isVisible(); }));
    desk.Record(Qt::Key_F2, u"0013"_s, u"kunci1"_s);
    EXPECT_EQ(desk.RowsOf(u"select NIP, Keterangan from TimeCardHeader order by NIP"_s),
              (QStringList{u"0012|jam komputer berubah"_s, u"0013|-"_s, u"0014|-"_s}));
}
