// Two desks, worked at by keystrokes, and a script share one database, its employees and sheets for some
// minutes: they record, edit, close, compute and report. What was recorded must then stand in the database,
// the results must be those of the rules, the data must fit together; no window may have been stuck, no error
// shown, no desk grown.
//
//     soak MINUTES [--fault NAME]
//
// A fault makes something go wrong on purpose: the soak must notice.

#include "cards/card_computation.h"
#include "cards/sheet_identifier.h"
#include "database/database_file.h"
#include "soak/desk_worker.h"
#include "soak/faults.h"
#include "timecard/clock_recording.h"
#include "timecard/sheet_lifecycle.h"
#include "tools/data_check.h"
#include "tools/demo_company.h"
#include "tour/quiet_platform.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

#include <array>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr int Employees = 200;
const QStringList Roles{u"desk"_s, u"desk"_s, u"script"_s};

int Below(qsizetype bound) {
    return static_cast<int>(QRandomGenerator::global()->bounded(bound));
}

int WorkAsDesk(const QString& folder, int number, QDeadlineTimer until, const QString& fault) {
    DeskWorker worker(folder, number, Employees, fault);
    if (!worker.Start())
        return 1;
    worker.Work(until);
    return 0;
}

/// A program without windows: it records, corrects departures of past days and computes.
class Script {
public:
    explicit Script(const QString& folder) : connection_(OpenDatabaseFile(folder + u"/DATA.mdb"_s)) {
        Cursor rows = connection_->Query(
            u"select NIP, TCID, Tanggal, TimeIN from qry_TimeCardAll where TimeOUT is not null order by Tanggal desc"_s);
        constexpr int most = 400;
        while (cards_.size() < most && rows.Next()) {
            if (const auto arrival = rows.Time(3))
                cards_.push_back({rows.Text(0), rows.Text(1), *arrival});
        }
    }

    void Work(QDeadlineTimer until) {
        while (!until.hasExpired()) {
            try {
                Below(2) == 0 ? Punch() : CorrectPastCard();
            } catch (const ProgramError& error) {
                TellProblem(u"script: "_s + error.Description().simplified());
            }
            QThread::msleep(100);
        }
    }

private:
    struct PastCard {
        QString nip;
        QString tcid;
        WallTime arrival;
    };

    void Punch() {
        const QString nip = QString::number(1 + Below(Employees)).rightJustified(4, u'0');
        const bool in = Below(2) == 0;
        const Day today = clock_.Today();
        const QString sheet = SheetIdentifierOf(today);
        const ClockEntry entry{sheet, today, in ? u"IN"_s : u"OUT"_s, clock_.Now()};
        const qint64 began = SharedMoment();
        if (IsSheetClosed(*connection_, sheet) || RecordClockEntry(*connection_, entry, nip))
            return;
        const qint64 ended = SharedMoment();
        Tell({in ? Writing::Arrival : Writing::Departure, nip, CardIdentifier(sheet, nip),
              ShownTime(entry.Moment()), began, ended});
        Tell({Writing::Status, nip, StoredDay(today), entry.mode, began, ended});
    }

    void CorrectPastCard() {
        const PastCard& card = cards_.at(static_cast<size_t>(Below(static_cast<qsizetype>(cards_.size()))));
        const WallTime departure = card.arrival + std::chrono::minutes{300 + Below(500)};
        qint64 began = SharedMoment();
        connection_->Execute(u"update TimeCardDetail set TimeOUT=? where TCID=?"_s,
                             {StoredTime(departure), card.tcid});
        Tell({Writing::Departure, card.nip, card.tcid, ShownTime(departure), began, SharedMoment()});
        began = SharedMoment();
        modAbsen::CalculateTimeCards(*connection_, {card.tcid});
        Tell({Writing::Results, card.nip, card.tcid, {}, began, SharedMoment()});
    }

    SystemClock clock_;
    std::unique_ptr<Connection> connection_;
    std::vector<PastCard> cards_;
};

void FillFolder(const QString& folder, const QString& fault) {
    DemoOptions options;
    options.employees = Employees;
    options.until = SystemClock().Today() - std::chrono::days{1};
    MakeDemoCompany(folder + u"/DATA.mdb"_s, options);
    if (!fault.isEmpty())
        Spoil(*OpenDatabaseFile(folder + u"/DATA.mdb"_s), fault);
    const QDir assets(QStringLiteral(ASSETS_FOLDER));
    QDir(folder).mkpath(u"images"_s);
    for (const QString& part : {u"."_s, u"images"_s}) {
        for (const QString& file :
             QDir(assets.filePath(part)).entryList({u"*.gif"_s, u"*.ini"_s}, QDir::Files))
            QFile::copy(assets.filePath(part + u'/' + file), folder + u'/' + part + u'/' + file);
    }
}

QString AccountFile(const QString& folder, int worker) {
    return folder + u"/account%1.txt"_s.arg(worker);
}

/// Lets the workers work and tells how many did not end well.
QStringList RunWorkers(double minutes, const QString& folder, const QString& fault) {
    std::array<QProcess, 3> workers;
    for (int i = 0; i < Roles.size(); ++i) {
        QProcess& worker = workers[static_cast<size_t>(i)];
        worker.setStandardErrorFile(folder + u"/errors%1.txt"_s.arg(i));
        worker.setStandardOutputFile(AccountFile(folder, i));
        worker.start(QCoreApplication::applicationFilePath(),
                     {QString::number(minutes), u"--fault"_s, fault, u"--worker"_s, QString::number(i),
                      u"--folder"_s, folder});
    }
    QStringList problems;
    constexpr qint64 patience = 120'000;
    const QDeadlineTimer until(static_cast<qint64>(minutes * 60'000) + patience);
    for (int i = 0; i < Roles.size(); ++i) {
        QProcess& worker = workers[static_cast<size_t>(i)];
        if (!worker.waitForFinished(static_cast<int>(until.remainingTime()))) {
            problems << u"%1 %2 does not end"_s.arg(Roles[i]).arg(i);
            worker.kill();
            worker.waitForFinished();
        } else if (worker.exitStatus() != QProcess::NormalExit || worker.exitCode() != 0) {
            problems << u"%1 %2 failed"_s.arg(Roles[i]).arg(i);
        }
    }
    return problems;
}

/// Prints what was done and what went wrong; true when nothing did.
bool Judge(const QString& folder, QStringList problems) {
    Account account;
    for (int i = 0; i < Roles.size(); ++i)
        ReadAccount(AccountFile(folder, i), u"%1 %2"_s.arg(Roles[i]).arg(i), account);
    const std::vector<Writing>& writings = account.writings;
    problems << account.problems;
    const auto connection = OpenUnchanged(folder + u"/DATA.mdb"_s);
    std::set<int> kinds;
    for (const Writing& writing : writings)
        kinds.insert(writing.kind);
    if (kinds.size() <= Writing::Results)
        problems << u"the time was too short: not everything was done once"_s;
    int compared = 0;
    const QStringList lost = LostWritings(*connection, writings);
    const QStringList wrong = WrongResults(*connection, writings, folder + u"/COPY.mdb"_s, compared);
    QStringList findings;
    CheckData(*connection, [&findings](const Finding& finding) { findings << finding.Line(); });
    for (const QString& line : problems + lost + wrong + findings)
        Say(line);
    Say(u"%1 values written, %2 results compared; lost: %3, wrong results: %4, findings: %5, other problems: %6"_s
            .arg(writings.size())
            .arg(compared)
            .arg(lost.size())
            .arg(wrong.size())
            .arg(findings.size())
            .arg(problems.size()));
    return problems.isEmpty() && lost.isEmpty() && wrong.isEmpty() && findings.isEmpty();
}

int Run(const QApplication& application) {
    QCommandLineParser options;
    const QCommandLineOption fault(
        u"fault"_s, u"What goes wrong on purpose: %1."_s.arg(FaultNames().join(u", "_s)), u"NAME"_s);
    const QCommandLineOption worker(u"worker"_s, {}, u"N"_s);
    const QCommandLineOption folder(u"folder"_s, {}, u"DIR"_s);
    options.addOptions({fault, worker, folder});
    options.addPositionalArgument(u"MINUTES"_s, u"How long the work lasts."_s);
    options.addHelpOption();
    options.process(application);
    const double minutes = options.positionalArguments().value(0).toDouble();
    const QString spoiled = options.value(fault);
    if (minutes <= 0 || (!spoiled.isEmpty() && !FaultNames().contains(spoiled)))
        options.showHelp(2);

    const QDeadlineTimer until(static_cast<qint64>(minutes * 60'000));
    if (options.isSet(worker)) {
        const int number = options.value(worker).toInt();
        if (Roles[number] == u"desk"_s)
            return WorkAsDesk(options.value(folder), number, until, spoiled);
        Script(options.value(folder)).Work(until);
        return 0;
    }
    const QTemporaryDir own;
    FillFolder(own.path(), spoiled);
    return Judge(own.path(), RunWorkers(minutes, own.path(), spoiled)) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QuietPlatform();
    try {
        QApplication application(argc, argv);
        Theme::Apply(application);
        return Run(application);
    } catch (const std::exception& error) {
        Say(QString::fromUtf8(error.what()));
        return 2;
    }
}
