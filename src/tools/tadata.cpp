#include "company/users.h"
#include "core/clock.h"
#include "core/platform_files.h"
#include "core/version.h"
#include "database/database_error.h"
#include "database/database_file.h"
#include "database/new_database_file.h"
#include "tools/command.h"
#include "tools/data_check.h"
#include "tools/demo_company.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

void Print(FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

ProgressLine::~ProgressLine() {
    if (!shown_.isEmpty())
        Print(stderr, u"\n"_s);
}

void ProgressLine::Show(const QString& state) {
    if (state == shown_ || timer_.elapsed() < 1000)
        return;
    shown_ = state;
    Print(stderr, u'\r' + state);
    std::fflush(stderr);
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

namespace {

int Create(const QStringList& files, const QCommandLineParser&) {
    MakeDatabaseFile(files[0], [](Connection&) {});
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

int Demo(const QStringList& files, const QCommandLineParser& options) {
    const QString& file = files[0];
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

int Check(const QStringList& files, const QCommandLineParser&) {
    bool found = false;
    const std::unique_ptr<Connection> connection = OpenUnchanged(files[0]);
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

int HashPasswords(const QStringList& files, const QCommandLineParser& options) {
    if (!options.isSet(u"hash"_s))
        throw UsageError(u"passwords takes --hash"_s);
    int hashed = 0;
    {
        ProgressLine line;
        hashed = Users(*OpenDatabaseFile(files[0])).HashPlainTexts([&](qsizetype done, qsizetype total) {
            line.Show(u"%1 of %2 passwords"_s.arg(done).arg(total));
            return true;
        });
    }
    Print(stdout, u"%1: %2 passwords hashed\n"_s.arg(files[0]).arg(hashed));
    return Done;
}

std::vector<Command> Commands() {
    const QString yesterday = StoredDay(SystemClock().Today() - std::chrono::days{1});
    const DemoOptions usual;
    const QStringList file{u"FILE"_s};
    std::vector<Command> commands{
        {u"create"_s, u"Makes an empty database in a new file."_s, file, {}, Create},
        {u"demo"_s,
         u"Makes the database of a demo company in a new file, and the folder \"photos\" beside it."_s,
         file,
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
         file,
         {},
         Check},
        {u"passwords"_s,
         u"Works on the passwords of all users. They go on to be valid."_s,
         file,
         {{u"hash"_s, u"Hashes those that are stored as they were typed."_s}},
         HashPasswords},
    };
    std::ranges::move(CardCommands(), std::back_inserter(commands));
    std::ranges::move(ExchangeCommands(), std::back_inserter(commands));
    return commands;
}

QString Help(const std::vector<Command>& commands) {
    QString help = u"Usage: tadata COMMAND [options] FILE...\n\nMakes, checks, fills and reads databases of "
                   u"the time attendance "
                   "program.\n\nCommands:\n"_s;
    for (const Command& command : commands)
        help += u"  %1  %2\n"_s.arg(command.name, -16).arg(command.purpose);
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
    QString before = command.name + u' ';
    for (const QString& argument : command.arguments)
        parser.addPositionalArgument(argument, {}, std::exchange(before, QString()) + argument);
    if (!parser.parse(arguments))
        throw UsageError(parser.errorText());
    if (parser.isSet(help)) {
        Print(stdout, parser.helpText());
        return Done;
    }
    const QStringList given = parser.positionalArguments();
    if (given.size() != command.arguments.size() || given.contains(QString()))
        throw UsageError(u"%1 takes %2"_s.arg(command.name, command.arguments.size() == 1
                                                                ? u"one "_s + command.arguments[0]
                                                                : command.arguments.join(u' ')));
    return command.run(given, parser);
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
        const qsizetype words = command.name.count(u' ') + 1;
        // What the parser sees is the program and what follows the command.
        if (arguments.sliced(1, std::min(words, arguments.size() - 1)).join(u' ') == command.name)
            return RunCommand(command, arguments.first(1) + arguments.sliced(1 + words));
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
