#include "company/users.h"
#include "core/clock.h"
#include "core/platform_files.h"
#include "core/version.h"
#include "database/database_error.h"
#include "database/database_file.h"
#include "database/new_database_file.h"
#include "tools/data_check.h"
#include "tools/demo_company.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

enum ExitStatus { Done = 0, Findings = 1, Failed = 2 };

void Print(FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

/// What was asked for cannot be done as it was asked for.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// One line on stderr that counts up, from the second second of the work on.
class ProgressLine {
public:
    ProgressLine() { timer_.start(); }
    ~ProgressLine() {
        if (!shown_.isEmpty())
            Print(stderr, u"\n"_s);
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(const QString& state) {
        if (state == shown_ || timer_.elapsed() < 1000)
            return;
        shown_ = state;
        Print(stderr, u'\r' + state);
        std::fflush(stderr);
    }

private:
    QElapsedTimer timer_;
    QString shown_;
};

int Create(const QString& file, const QCommandLineParser&) {
    MakeDatabaseFile(file, [](Connection&) {});
    return Done;
}

int NumberOption(const QCommandLineParser& options, const QString& name, int least, int most) {
    bool isNumber = false;
    const int number = options.value(name).toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        throw UsageError(
            u"--%1 takes a number from %2 to %3, not \"%4\""_s.arg(name).arg(least).arg(most).arg(
                options.value(name)));
    return number;
}

Day DayOption(const QCommandLineParser& options, const QString& name) {
    constexpr int leastYear = 1950;
    constexpr int mostYear = 2999;
    const QString text = options.value(name);
    const std::optional<WallTime> day = text.size() == 10 ? ReadStored(text) : std::nullopt;
    const int year = day ? ToQDate(DayOf(*day)).year() : 0;
    if (year < leastYear || year > mostYear)
        throw UsageError(u"--%1 takes a day as yyyy-mm-dd in the years %2 to %3, not \"%4\""_s.arg(name)
                             .arg(leastYear)
                             .arg(mostYear)
                             .arg(text));
    return DayOf(*day);
}

int Demo(const QString& file, const QCommandLineParser& options) {
    const DemoOptions demo{NumberOption(options, u"employees"_s, 1, 99'999),
                           NumberOption(options, u"months"_s, 0, 120), DayOption(options, u"until"_s)};
    DemoSummary summary;
    {
        ProgressLine progress;
        summary = MakeDemoCompany(file, demo, [&](int percent) { progress.Show(u"%1 %"_s.arg(percent, 3)); });
    }
    Print(stdout, u"%1: %2 employees, %3 time cards on %4 sheets from %5 to %6\n"_s.arg(
                      file, QString::number(demo.employees), QString::number(summary.cards),
                      QString::number(summary.sheets), StoredDay(summary.firstDay), StoredDay(demo.until)));
    Print(stdout, u"Supervisor: pelon, password pelon. Employees: the number is the password.\n"_s);
    return Done;
}

int Check(const QString& file, const QCommandLineParser&) {
    bool found = false;
    const std::unique_ptr<Connection> connection = OpenUnchanged(file);
    ProgressLine progress;
    CheckData(
        *connection,
        [&](const Finding& finding) {
            found = true;
            Print(stdout, finding.Line() + u'\n');
        },
        [&](qint64 rowsRead) { progress.Show(u"%1 rows read"_s.arg(rowsRead)); });
    return found ? Findings : Done;
}

int HashPasswords(const QString& file, const QCommandLineParser& options) {
    if (!options.isSet(u"hash"_s))
        throw UsageError(u"passwords takes --hash"_s);
    int hashed = 0;
    {
        ProgressLine line;
        hashed = Users(*OpenDatabaseFile(file)).HashPlainTexts([&](qsizetype done, qsizetype total) {
            line.Show(u"%1 of %2 passwords"_s.arg(done).arg(total));
            return true;
        });
    }
    Print(stdout, u"%1: %2 passwords hashed\n"_s.arg(file).arg(hashed));
    return Done;
}

struct Command {
    QString name;
    QString purpose;
    QList<QCommandLineOption> options;
    int (*run)(const QString& file, const QCommandLineParser& options);
};

std::vector<Command> Commands() {
    const QString yesterday = StoredDay(SystemClock().Today() - std::chrono::days{1});
    const DemoOptions usual;
    return {
        {u"create"_s, u"Makes an empty database in a new file."_s, {}, Create},
        {u"demo"_s,
         u"Makes the database of a demo company in a new file, and the folder \"photos\" beside it."_s,
         {{u"employees"_s, u"How many employees (%1)."_s.arg(usual.employees), u"N"_s,
           QString::number(usual.employees)},
          {u"months"_s, u"How many months of attendance (%1)."_s.arg(usual.months), u"M"_s,
           QString::number(usual.months)},
          {u"until"_s, u"The last day with attendance, as yyyy-mm-dd (yesterday)."_s, u"DATE"_s, yesterday}},
         Demo},
        {u"check"_s,
         u"Tells rows that do not fit together, one a line, and changes nothing. Exit status 0: none, 1: "
         u"some, "
         "2: the file cannot be read."_s,
         {},
         Check},
        {u"passwords"_s,
         u"Works on the passwords of all users. They go on to be valid."_s,
         {{u"hash"_s, u"Hashes those that are stored as they were typed."_s}},
         HashPasswords},
    };
}

QString Help(const std::vector<Command>& commands) {
    QString help =
        u"Usage: tadata COMMAND [options] FILE\n\nMakes and checks databases of the time attendance "
        "program.\n\nCommands:\n"_s;
    for (const Command& command : commands)
        help += u"  %1  %2\n"_s.arg(command.name, -10).arg(command.purpose);
    return help
           + u"\n\"tadata COMMAND --help\" tells the options of a command, \"tadata "
             "--version\" the version.\n"_s;
}

int RunCommand(const Command& command, const QStringList& arguments) {
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Displays this help."_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(command.purpose);
    parser.addOption(help);
    parser.addOptions(command.options);
    parser.addPositionalArgument(u"FILE"_s, u"The database file."_s, command.name + u" FILE"_s);
    if (!parser.parse(arguments))
        throw UsageError(parser.errorText());
    if (parser.isSet(help)) {
        Print(stdout, parser.helpText());
        return Done;
    }
    // The command itself is the first positional argument.
    const QStringList names = parser.positionalArguments();
    if (names.size() != 2 || names[1].isEmpty())
        throw UsageError(u"%1 takes one FILE"_s.arg(command.name));
    return command.run(names[1], parser);
}

int Run(const QStringList& arguments) {
    const std::vector<Command> commands = Commands();
    const QString wanted = arguments.value(1);
    if (wanted == u"--help"_s || wanted == u"-h"_s) {
        Print(stdout, Help(commands));
        return Done;
    }
    if (wanted == u"--version"_s || wanted == u"-v"_s) {
        Print(stdout, u"tadata %1\n"_s.arg(ProgramVersion()));
        return Done;
    }
    for (const Command& command : commands) {
        if (command.name == wanted)
            return RunCommand(command, arguments);
    }
    throw UsageError(wanted.isEmpty() ? u"no command given"_s : u"unknown command \"%1\""_s.arg(wanted));
}

} // namespace

int main(int argc, char** argv) {
    TellFileSizeLimitAsError();
    const QCoreApplication application(argc, argv);
    int status = Failed;
    try {
        status = Run(QCoreApplication::arguments());
    } catch (const UsageError& error) {
        Print(stderr, u"tadata: %1\nTry \"tadata --help\".\n"_s.arg(QString::fromUtf8(error.what())));
    } catch (const ProgramError& error) {
        Print(stderr, u"tadata: %1\n"_s.arg(error.Description()));
    } catch (const std::exception& error) {
        Print(stderr, u"tadata: %1\n"_s.arg(QString::fromUtf8(error.what())));
    }
    // Findings that could not be printed must not pass for none.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        Print(stderr, u"tadata: the output cannot be written\n"_s);
        status = Failed;
    }
    return status;
}
