#include "soak/desk_worker.h"

#include "cards/sheet_identifier.h"
#include "editing/attendance_model.h"
#include "editing/search_row.h"
#include "shell/frmLogin.h"
#include "shifts/roster_model.h"
#include "timecard/clock_recording.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The entries of the desk's menu, counted from its top.
constexpr int OfficeEntry = 3;
constexpr int CloseSheetEntry = 4;
constexpr int ReopenSheetEntry = 5;

/// In milliseconds: how long a window may stay in front before it counts as stuck.
constexpr int Patience = 20'000;
/// In KiB: what the memory of a desk may still grow by after the first quarter of the work, beside a share
/// of it: caches fill.
constexpr long FreeGrowth = 12L * 1024;
constexpr long GrowthShare = 10;

int Below(int bound) {
    return static_cast<int>(QRandomGenerator::global()->bounded(bound));
}

/// In KiB; 0 where the system does not tell.
long ResidentMemory() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').front().toLong();
    }
    return 0;
}

/// Messages that desks get which share employees and sheets; every other one is a problem.
bool IsExpected(const QString& text) {
    static const QRegularExpression otherDesk(u"sudah (diubah dari|diganti) komputer lain"_s);
    constexpr Refusal refusals[] = {Refusal::AlreadyClockedIn, Refusal::NotClockedIn, Refusal::SheetClosed};
    const auto says = [&text](Refusal refusal) { return text == RefusalText(refusal).simplified(); };
    return std::ranges::any_of(refusals, says) || otherDesk.match(text).hasMatch();
}

QTableView& GridOf(QWidget& window) {
    return *window.findChild<QTableView*>(u"MSHFlexGrid1"_s);
}

QString TextAt(const QTableView& grid, int row, int column) {
    return grid.model()->index(row, column).data().toString();
}

void Walk(Qt::Key key, int steps) {
    for (int i = 0; i < steps; ++i)
        KeyboardUser::Press(key);
}

void ChooseFromMenu(int entry) {
    Keys(u"⑩");
    Walk(Qt::Key_Down, entry);
    Keys(u"⏎");
}

void GoTo(QTableView& grid, int row, int column) {
    grid.setFocus();
    Keys(u"⎈⇱⇱");
    Walk(Qt::Key_Right, column);
    Walk(Qt::Key_Down, row);
}

} // namespace

DeskWorker::DeskWorker(const QString& folder, int number, int employees, const QString& fault)
    : employees_(employees), fault_(fault), log_(folder + u"/log%1.txt"_s.arg(number)),
      program_{ProgramFolder(folder),
               clock_,
               dialogs_,
               log_,
               database_,
               [this](LoginHandOver& channel) {
                   frmLogin(clock_, channel, skin_, QApplication::activeWindow()).exec();
               },
               [this](const QString&) { ++reportsShown_; }},
      windows_(program_, skin_, [] { return u"United States"_s; }) {}

bool DeskWorker::Start() {
    QObject::connect(&watchdog_, &QTimer::timeout, &watchdog_, [this] { LeaveStuckWindow(); });
    watchdog_.start(std::chrono::seconds{5});
    if (!windows_.Desk().Form_Load())
        return false;
    windows_.Desk().show();
    return true;
}

void DeskWorker::Work(QDeadlineTimer until) {
    const QDeadlineTimer settled(until.remainingTime() / 4);
    long before = 0;
    while (!until.hasExpired()) {
        user_.emplace();
        began_.start();
        const int shown = dialogs_.count;
        DoSomething(Below(20));
        const bool sheetClosed = windows_.Desk().findChild<QWidget*>(u"picCloseTcid"_s)->isVisible();
        // On a closed sheet nobody punches; a message tells of what else the other desk was quicker in.
        if (!user_->IsDone() && dialogs_.count == shown && !sheetClosed)
            TellProblem(u"a window did not open"_s);
        if (before == 0 && settled.hasExpired())
            before = ResidentMemory();
    }
    const long growth = ResidentMemory() - before;
    Say(u"memory: %1 KiB, grown by %2 KiB"_s.arg(before).arg(growth));
    if (growth > FreeGrowth + before / GrowthShare)
        TellProblem(u"the memory grew from %1 by %2 KiB"_s.arg(before).arg(growth));
    TellWhatWasShown();
}

void DeskWorker::TellWhatWasShown() {
    done_[u"reports shown"_s] = reportsShown_;
    for (const auto& counts : {done_, dialogs_.asked}) {
        for (const auto& [what, count] : counts)
            Say(u"%1 %2"_s.arg(count).arg(what));
    }
    for (const auto& [text, count] : dialogs_.shown) {
        if (IsExpected(text))
            Say(u"%1 times: %2"_s.arg(count).arg(text));
        else
            TellProblem(u"shown %1 times: %2"_s.arg(count).arg(text));
    }
}

/// A window that nobody answers: the work would wait in it for ever.
void DeskWorker::LeaveStuckWindow() {
    const QWidget* front = KeyboardUser::InFront();
    if (!front || began_.elapsed() < Patience)
        return;
    TellProblem(u"stuck in "_s + front->objectName());
    began_.start();
    user_->Forget();
    Keys(u"⎋");
}

void DeskWorker::DoSomething(int what) {
    if (fault_ == u"memory"_s)
        leaked_ << QByteArray(4 << 20, 'x');
    if (fault_ == u"window"_s && done_[u"punches"_s] == 3) {
        ++done_[u"punches"_s];
        QDialog unforeseen;
        unforeseen.setObjectName(u"Unforeseen"_s);
        unforeseen.exec();
    }
    switch (what) {
    case 0:
    case 1:
        return EditInBrowser();
    case 2:
    case 3:
        return EditInSearch();
    case 4:
    case 5:
        return FillRoster();
    case 6:
        return PrintReport();
    case 7:
        return CloseAndReopen();
    default:
        return Punch(what % 3 == 0 ? Qt::Key_F8 : Qt::Key_F2);
    }
}

void DeskWorker::Punch(Qt::Key key) {
    const QString nip = QString::number(1 + Below(employees_)).rightJustified(4, u'0');
    user_->WhenIn(u"frmAED_Absen"_s, [this, nip, key](QWidget& entry) {
        const qint64 began = SharedMoment();
        Keys(nip);
        Keys(u"⏎");
        Keys(nip);
        Keys(u"⏎");
        if (entry.findChild<QWidget*>(u"picDetail"_s)->isVisible()) {
            static const QRegularExpression time(u"\\d\\d:\\d\\d:\\d\\d"_s);
            const QString told = time.match(entry.findChild<QLabel*>(u"lblDone"_s)->text()).captured();
            const Day today = clock_.Today();
            const bool in = key == Qt::Key_F2;
            const qint64 ended = SharedMoment();
            Tell({in ? Writing::Arrival : Writing::Departure, nip,
                  CardIdentifier(SheetIdentifierOf(today), nip), told, began, ended});
            Tell({Writing::Status, nip, StoredDay(today), in ? u"IN"_s : u"OUT"_s, began, ended});
            ++done_[u"punches"_s];
        }
        Keys(u"⎋");
    });
    KeyboardUser::Press(key);
}

void DeskWorker::LogIn() {
    user_->WhenIn(u"frmLogin"_s, [](QWidget&) { Keys(u"pelon⏎pelon⏎"); });
}

void DeskWorker::InOffice(Qt::Key mnemonic, const QString& window, const KeyboardUser::Action& action) {
    LogIn();
    user_->WhenIn(u"frmSetting"_s, [mnemonic](QWidget&) { KeyboardUser::Press(mnemonic, Qt::AltModifier); });
    user_->WhenIn(window, [action](QWidget& opened) {
        action(opened);
        Keys(u"⎋");
    });
    user_->WhenIn(u"frmSetting"_s, [](QWidget&) { Keys(u"⎋"); });
    ChooseFromMenu(OfficeEntry);
}

void DeskWorker::TypeIntoCell(QTableView& grid, const QString& text, Writing writing) {
    const int row = grid.currentIndex().row();
    const int shown = dialogs_.count;
    writing.value = text;
    writing.began = SharedMoment();
    Keys(text);
    Keys(u"⏎");
    if (grid.currentIndex().row() == row) // where Enter has not left it already
        KeyboardUser::Press(row == 0 ? Qt::Key_Down : Qt::Key_Up);
    writing.ended = SharedMoment();
    writing.certain = dialogs_.count == shown && grid.currentIndex().row() != row;
    Tell(writing);
    ++done_[writing.certain ? u"cells typed"_s : u"cells typed that may not be saved"_s];
}

void DeskWorker::EditInBrowser() {
    InOffice(Qt::Key_E, u"frmAbsensi"_s, [this](QWidget& browser) {
        QTableView& grid = GridOf(browser);
        GoTo(grid, Below(40), AttendanceModel::Status);
        const int row = grid.currentIndex().row();
        const std::optional<Day> day = ReadDayCell(TextAt(grid, row, AttendanceModel::Tanggal));
        if (!day)
            return TellProblem(u"no day stands in the browser's row"_s);
        TypeIntoCell(grid, Below(2) ? u"TL"_s : u"PC"_s,
                     {Writing::Status, TextAt(grid, row, AttendanceModel::Nip), StoredDay(*day), {}});
    });
}

void DeskWorker::EditInSearch() {
    InOffice(Qt::Key_D, u"frmEditAbsensi"_s, [this](QWidget& search) {
        search.findChild<QWidget*>(u"txtTCID"_s)->setFocus();
        Keys(u"⎈a");
        Keys(SheetIdentifierOf(clock_.Today()));
        Keys(u"⏎");
        QTableView& grid = GridOf(search);
        if (grid.model()->rowCount() < 2)
            return;
        GoTo(grid, Below(10), SearchRow::Keterangan);
        const int row = grid.currentIndex().row();
        TypeIntoCell(
            grid, u"catatan%1"_s.arg(Below(100'000)),
            {Writing::Remark, TextAt(grid, row, SearchRow::Nip), TextAt(grid, row, SearchRow::Tcid), {}});
        ComputeSearched(search);
    });
}

void DeskWorker::ComputeSearched(QWidget& search) {
    const QTableView& grid = GridOf(search);
    const int shown = dialogs_.count;
    const qint64 began = SharedMoment();
    const auto* done = search.findChild<QLabel*>(u"lblDone"_s);
    Keys(u"⎇h");
    if (!KeyboardUser::WaitUntil([done] { return done->text().contains(u"dihitung"_s); })) {
        if (dialogs_.count == shown)
            TellProblem(u"no computation was told"_s);
        return;
    }
    for (int row = 0; row < grid.model()->rowCount(); ++row)
        Tell({Writing::Results,
              TextAt(grid, row, SearchRow::Nip),
              TextAt(grid, row, SearchRow::Tcid),
              {},
              began,
              SharedMoment()});
    ++done_[u"sheets computed"_s];
}

void DeskWorker::FillRoster() {
    InOffice(Qt::Key_S, u"frmShiftEmployee"_s, [this](QWidget& roster) {
        QTableView& grid = GridOf(roster);
        Walk(Qt::Key_Down, Below(20));
        const QModelIndex cell = grid.currentIndex();
        const QString period = roster.findChild<QLineEdit*>(u"txtPeriode"_s)->text();
        const auto day = MakeDay(period.first(4).toInt(), period.last(2).toInt(),
                                 cell.column() - RosterModel::FirstDay + 1);
        if (!day)
            return TellProblem(u"the roster's current cell is no day"_s);
        TypeIntoCell(grid, Below(2) ? u"PAGI"_s : u"SIANG"_s,
                     {Writing::Roster, TextAt(grid, cell.row(), RosterModel::Nip), StoredDay(*day), {}});
    });
}

void DeskWorker::PrintReport() {
    LogIn();
    user_->WhenIn(u"frmSetting"_s, [](QWidget&) { Keys(u"⎇e"); });
    user_->WhenIn(u"frmAbsensi"_s, [](QWidget&) { Keys(u"⎇l⏎"); });
    user_->WhenIn(u"frmRptCriteria"_s, [this](QWidget&) {
        const int before = reportsShown_;
        Keys(u"⎇o");
        if (!KeyboardUser::WaitUntil([this, before] { return reportsShown_ > before; }))
            TellProblem(u"no report was shown"_s);
        Keys(u"⎋");
    });
    for (const auto& window : {u"frmAbsensi"_s, u"frmSetting"_s})
        user_->WhenIn(window, [](QWidget&) { Keys(u"⎋"); });
    ChooseFromMenu(OfficeEntry);
}

void DeskWorker::CloseAndReopen() {
    LogIn();
    ChooseFromMenu(CloseSheetEntry);
    LogIn();
    ChooseFromMenu(ReopenSheetEntry);
    // The other desk may have been quicker with either: then nobody is asked for.
    user_->Forget();
    ++done_[u"sheets closed and reopened"_s];
}
