// Two desks, worked at by keystrokes, and a script share one database for some minutes: they record, edit,
// close, compute and report. What they were told was recorded must then stand in the database, the data must
// fit together, and no desk may have grown.
//
//     soak MINUTES [FOLDER]

#include "app/desk_windows.h"
#include "compute/time_card_computation.h"
#include "database/database_file.h"
#include "shell/frmLogin.h"
#include "timecard/clock_recording.h"
#include "timecard/sheet_identifier.h"
#include "timecard/sheet_lifecycle.h"
#include "tools/data_check.h"
#include "tools/demo_company.h"
#include "tour/keyboard_user.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRandomGenerator>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <array>
#include <map>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int Employees = 300;
/// Each worker punches employees of its own, so that it knows what to expect.
constexpr int EmployeesPerWorker = 90;

void Say(const QString& line) {
    QTextStream(stdout) << line << Qt::endl;
}

int Below(int bound) {
    return static_cast<int>(QRandomGenerator::global()->bounded(bound));
}

QString NipOf(int number) {
    return QString::number(number).rightJustified(4, u'0');
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

/// What a worker was shown, counted by text.
class CountingDialogs : public Dialogs {
public:
    void Show(Icon, const QString& text) override { ++shown[text.simplified()]; }
    Answer Ask(const QString& question, Answer) override {
        ++shown[question.simplified()];
        return Answer::Yes;
    }
    std::map<QString, int> shown;
};

/// Somebody at a desk, who does one thing after the other.
class DeskWorker {
public:
    DeskWorker(const QString& folder, int number)
        : firstEmployee_(1 + number * EmployeesPerWorker), log_(folder + u"/log%1.txt"_s.arg(number)),
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

    bool Start() {
        QObject::connect(&watchdog_, &QTimer::timeout, &watchdog_, [this] { LeaveStuckWindow(); });
        watchdog_.start(std::chrono::seconds{5});
        if (!windows_.Desk().Form_Load())
            return false;
        windows_.Desk().show();
        return true;
    }

    void Work(QDeadlineTimer until) {
        const QDeadlineTimer settled(until.remainingTime() / 4);
        long before = 0;
        while (!until.hasExpired()) {
            user_.emplace();
            began_.start();
            DoSomething(Below(20));
            if (!user_->IsDone())
                ++done_[u"windows that did not open"_s];
            if (before == 0 && settled.hasExpired())
                before = ResidentMemory();
        }
        done_[u"reports shown"_s] = reportsShown_;
        Say(u"memory %1 %2"_s.arg(before).arg(ResidentMemory()));
        for (const auto& counts : {done_, dialogs_.shown}) {
            for (const auto& [what, count] : counts)
                Say(u"count %1 %2"_s.arg(count).arg(what));
        }
    }

private:
    /// A key that came before its window was ready leaves the worker waiting in the wrong one.
    void LeaveStuckWindow() {
        constexpr int patience = 30000;
        const QWidget* front = KeyboardUser::InFront();
        if (!front || began_.elapsed() < patience)
            return;
        ++done_[u"stuck in "_s + front->objectName()];
        began_.start();
        user_->Forget();
        KeyboardUser::Press(Qt::Key_Escape);
    }

    void DoSomething(int what) {
        switch (what) {
        case 0:
            return EditInBrowser();
        case 1:
            return EditInSearch();
        case 2:
            return FillRoster();
        case 3:
            return PrintReport();
        case 4:
            return CloseAndReopen();
        default:
            return Punch(what % 3 == 0 ? Qt::Key_F8 : Qt::Key_F2);
        }
    }

    void Punch(Qt::Key key) {
        const QString nip = NipOf(firstEmployee_ + Below(EmployeesPerWorker));
        user_->WhenIn(u"frmAED_Absen"_s, [this, nip, key](QWidget& entry) {
            KeyboardUser::Type(nip);
            KeyboardUser::Press(Qt::Key_Return);
            KeyboardUser::Type(nip);
            KeyboardUser::Press(Qt::Key_Return);
            if (entry.findChild<QWidget*>(u"picDetail"_s)->isVisible()) {
                Say(u"%1 %2"_s.arg(key == Qt::Key_F2 ? u"in"_s : u"out"_s, nip));
                ++done_[u"punches recorded"_s];
            }
            KeyboardUser::Press(Qt::Key_Escape);
        });
        KeyboardUser::Press(key);
    }

    void LogIn() {
        user_->WhenIn(u"frmLogin"_s, [](QWidget&) {
            KeyboardUser::Type(u"pelon"_s);
            KeyboardUser::Press(Qt::Key_Return);
            KeyboardUser::Type(u"pelon"_s);
            KeyboardUser::Press(Qt::Key_Return);
        });
    }

    static void ChooseFromMenu(int entry) {
        KeyboardUser::Press(Qt::Key_F10);
        Walk(Qt::Key_Down, entry);
        KeyboardUser::Press(Qt::Key_Return);
    }

    static void Walk(Qt::Key key, int steps) {
        for (int i = 0; i < steps; ++i)
            KeyboardUser::Press(key);
    }

    /// Opens one of the supervisor's windows and leaves all of them when the action is done.
    void InOffice(Qt::Key mnemonic, const QString& window, const KeyboardUser::Action& action) {
        LogIn();
        user_->WhenIn(u"frmSetting"_s,
                      [mnemonic](QWidget&) { KeyboardUser::Press(mnemonic, Qt::AltModifier); });
        user_->WhenIn(window, [action](QWidget& opened) {
            action(opened);
            KeyboardUser::Press(Qt::Key_Escape);
        });
        user_->WhenIn(u"frmSetting"_s, [](QWidget&) { KeyboardUser::Press(Qt::Key_Escape); });
        constexpr int office = 3;
        ChooseFromMenu(office);
    }

    static void GoTo(QWidget& window, int row, int column) {
        window.findChild<QTableView*>(u"MSHFlexGrid1"_s)->setFocus();
        KeyboardUser::Press(Qt::Key_Home, Qt::ControlModifier);
        KeyboardUser::Press(Qt::Key_Home);
        Walk(Qt::Key_Right, column);
        Walk(Qt::Key_Down, row);
    }

    void TypeIntoCell(const QString& text, const QString& counted) {
        KeyboardUser::Type(text);
        KeyboardUser::Press(Qt::Key_Return);
        KeyboardUser::Press(Qt::Key_Down);
        ++done_[counted];
    }

    void EditInBrowser() {
        InOffice(Qt::Key_E, u"frmAbsensi"_s, [this](QWidget& browser) {
            constexpr int status = 8;
            GoTo(browser, Below(40), status);
            TypeIntoCell(Below(2) ? u"TL"_s : u"PC"_s, u"statuses typed"_s);
        });
    }

    void EditInSearch() {
        InOffice(Qt::Key_D, u"frmEditAbsensi"_s, [this](QWidget& search) {
            search.findChild<QWidget*>(u"txtTCID"_s)->setFocus();
            KeyboardUser::Press(Qt::Key_A, Qt::ControlModifier);
            KeyboardUser::Type(SheetIdentifierOf(clock_.Today()));
            KeyboardUser::Press(Qt::Key_Return);
            constexpr int keterangan = 4;
            GoTo(search, Below(10), keterangan);
            TypeIntoCell(u"catatan%1"_s.arg(Below(1000)), u"remarks typed"_s);
            const auto* done = search.findChild<QLabel*>(u"lblDone"_s);
            KeyboardUser::Press(Qt::Key_H, Qt::AltModifier);
            if (KeyboardUser::WaitUntil([done] { return done->text().contains(u"dihitung"_s); }))
                ++done_[u"sheets computed"_s];
        });
    }

    void FillRoster() {
        InOffice(Qt::Key_S, u"frmShiftEmployee"_s, [this](QWidget&) {
            Walk(Qt::Key_Down, Below(20));
            TypeIntoCell(Below(2) ? u"PAGI"_s : u"SIANG"_s, u"roster cells typed"_s);
        });
    }

    void PrintReport() {
        LogIn();
        user_->WhenIn(u"frmSetting"_s, [](QWidget&) { KeyboardUser::Press(Qt::Key_E, Qt::AltModifier); });
        user_->WhenIn(u"frmAbsensi"_s, [](QWidget&) {
            KeyboardUser::Press(Qt::Key_L, Qt::AltModifier);
            KeyboardUser::Press(Qt::Key_Return);
        });
        user_->WhenIn(u"frmRptCriteria"_s, [this](QWidget&) {
            const int before = reportsShown_;
            KeyboardUser::Press(Qt::Key_O, Qt::AltModifier);
            KeyboardUser::WaitUntil([this, before] { return reportsShown_ > before; });
            KeyboardUser::Press(Qt::Key_Escape);
        });
        for (const auto& window : {u"frmAbsensi"_s, u"frmSetting"_s})
            user_->WhenIn(window, [](QWidget&) { KeyboardUser::Press(Qt::Key_Escape); });
        constexpr int office = 3;
        ChooseFromMenu(office);
    }

    void CloseAndReopen() {
        constexpr int closeSheet = 4;
        constexpr int reopenSheet = 5;
        LogIn();
        ChooseFromMenu(closeSheet);
        LogIn();
        ChooseFromMenu(reopenSheet);
        ++done_[u"sheets closed and reopened"_s];
    }

    int firstEmployee_;
    SystemClock clock_;
    CountingDialogs dialogs_;
    modGeneral::ErrorLog log_;
    b_global::SharedConnection database_;
    b_form_skin::Backgrounds skin_;
    Program program_;
    DeskWindows windows_;
    std::optional<KeyboardUser> user_;
    QTimer watchdog_;
    QElapsedTimer began_;
    std::map<QString, int> done_;
    int reportsShown_ = 0;
};

int WorkAsDesk(const QString& folder, int number, QDeadlineTimer until) {
    DeskWorker worker(folder, number);
    if (!worker.Start())
        return 1;
    worker.Work(until);
    return 0;
}

/// A program without windows that records and computes.
int WorkAsScript(const QString& folder, int number, QDeadlineTimer until) {
    const SystemClock clock;
    const auto connection = OpenDatabaseFile(folder + u"/DATA.mdb"_s);
    const Day today = clock.Today();
    const QString sheet = SheetIdentifierOf(today);
    int failures = 0;
    while (!until.hasExpired()) {
        const QString nip = NipOf(1 + number * EmployeesPerWorker + Below(EmployeesPerWorker));
        const bool in = Below(2) == 0;
        try {
            if (!IsSheetClosed(*connection, sheet)
                && !RecordClockEntry(*connection, {sheet, today, in ? u"IN"_s : u"OUT"_s, clock.Now()}, nip))
                Say(u"%1 %2"_s.arg(in ? u"in"_s : u"out"_s, nip));
            modAbsen::CalculateTimeCards(*connection, {CardIdentifier(sheet, nip)});
        } catch (const ProgramError& error) {
            ++failures;
            Say(u"count 1 script: %1"_s.arg(error.Description().simplified()));
        }
        QThread::msleep(100);
    }
    Say(u"count %1 failures of the script"_s.arg(failures));
    return 0;
}

/// What one worker said.
struct Account {
    std::map<QString, int> punches; ///< by direction and employee
    bool failed = false;
};

Account ReadAccount(QProcess& worker, const QString& name) {
    Account account;
    for (const QString& line : QString::fromUtf8(worker.readAllStandardOutput()).split(u'\n')) {
        if (line.startsWith(u"in "_s) || line.startsWith(u"out "_s))
            ++account.punches[line];
        else if (!line.isEmpty())
            Say(name + u": "_s + line);
    }
    account.failed = worker.exitStatus() != QProcess::NormalExit || worker.exitCode() != 0;
    return account;
}

/// How many punches that were told as recorded do not stand on a card.
int CountLost(Connection& connection, const Account& account, const QString& sheet) {
    std::map<QString, std::pair<bool, bool>> stored;
    Cursor rows =
        connection.Query(u"select TCID, TimeIN, TimeOUT from TimeCardDetail where Left(TCID,9)=?"_s, {sheet});
    while (rows.Next())
        stored[rows.Text(0)] = {rows.Time(1).has_value(), rows.Time(2).has_value()};
    int lost = 0;
    for (const auto& [punch, told] : account.punches) {
        const QStringList parts = punch.split(u' ');
        const auto [in, out] = stored[CardIdentifier(sheet, parts[1])];
        const bool twiceIn = parts[0] == u"in"_s && told > 1;
        if (!(parts[0] == u"in"_s ? in : out) || twiceIn)
            ++lost;
    }
    return lost;
}

int Supervise(double minutes, const QString& folder) {
    DemoOptions options;
    options.employees = Employees;
    const SystemClock clock;
    options.until = clock.Today() - std::chrono::days{1};
    MakeDemoCompany(folder + u"/DATA.mdb"_s, options);
    const QDir assets(QStringLiteral(ASSETS_FOLDER));
    QDir(folder).mkpath(u"images"_s);
    for (const QString& picture : assets.entryList({u"*.gif"_s, u"*.ini"_s}, QDir::Files))
        QFile::copy(assets.filePath(picture), folder + u'/' + picture);
    const QDir images(assets.filePath(u"images"_s));
    for (const QString& picture : images.entryList(QDir::Files))
        QFile::copy(images.filePath(picture), folder + u"/images/"_s + picture);

    const QString sheet = SheetIdentifierOf(clock.Today());
    std::array<QProcess, 3> workers;
    const QStringList roles{u"--desk"_s, u"--desk"_s, u"--script"_s};
    for (size_t i = 0; i < workers.size(); ++i) {
        workers[i].setProcessChannelMode(QProcess::ForwardedErrorChannel);
        workers[i].start(QCoreApplication::applicationFilePath(),
                         {roles[static_cast<int>(i)], QString::number(i), QString::number(minutes), folder});
    }
    int lost = 0;
    bool failed = false;
    const auto connection = OpenUnchanged(folder + u"/DATA.mdb"_s);
    for (size_t i = 0; i < workers.size(); ++i) {
        workers[i].waitForFinished(-1);
        const Account account =
            ReadAccount(workers[i], roles[static_cast<int>(i)].mid(2) + QString::number(i));
        lost += CountLost(*connection, account, sheet);
        failed = failed || account.failed;
    }
    int findings = 0;
    CheckData(*connection, [&findings](const Finding& finding) {
        ++findings;
        Say(finding.Line());
    });
    Say(u"punches lost: %1, findings: %2%3"_s.arg(lost).arg(findings).arg(failed ? u", a worker failed"_s
                                                                                 : u""_s));
    return lost == 0 && findings == 0 && !failed ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    try {
        QStringList words;
        for (int i = 0; i < argc; ++i)
            words << QString::fromLocal8Bit(argv[i]);
        if (words.value(1) == u"--desk"_s || words.value(1) == u"--script"_s) {
            QApplication application(argc, argv);
            Theme::Apply(application);
            const QDeadlineTimer until(static_cast<qint64>(words.value(3).toDouble() * 60'000));
            const auto work = words.value(1) == u"--desk"_s ? WorkAsDesk : WorkAsScript;
            return work(words.value(4), words.value(2).toInt(), until);
        }
        QCoreApplication application(argc, argv);
        const QTemporaryDir own;
        const QString folder = words.value(2, own.path());
        return Supervise(qMax(0.1, words.value(1).toDouble()), folder);
    } catch (const std::exception& error) {
        Say(QString::fromUtf8(error.what()));
        return 2;
    }
}
