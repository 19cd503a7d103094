#include "company/employee_import.h"
#include "core/clock.h"
#include "database/database_file.h"
#include "exchange/access_file.h"
#include "exchange/database_import.h"
#include "exchange/table_export.h"
#include "tools/command.h"
#include "tools/data_check.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

Progress ShowRows(ProgressLine& line) {
    return [&line](qsizetype done, qsizetype) {
        line.Show(u"%1 rows"_s.arg(done));
        return true;
    };
}

void PrintNotes(const QString& what, const QStringList& names) {
    for (const QString& name : names)
        Print(stdout, u"%1: %2\n"_s.arg(what, name));
}

/// A line for each table and each of its columns of numbers and dates, both sides where they differ.
void PrintAccounts(const DatabaseImport& import) {
    for (const TableAccount& table : import.tables) {
        QString line = u"%1: %2 rows read, %3 written"_s.arg(table.name, QString::number(table.rowsRead),
                                                             QString::number(table.rowsWritten));
        if (table.rowsSetAside > 0)
            line += u", %1 set aside"_s.arg(table.rowsSetAside);
        Print(
            stdout,
            line + (table.rowsRead == table.rowsWritten + table.rowsSetAside ? u"\n"_s : u"  DIFFERENT\n"_s));
        for (const auto& [name, read, written] : table.columns)
            Print(stdout, read == written
                              ? u"  %1: %2\n"_s.arg(name, read)
                              : u"  %1: %2 read, %3 written  DIFFERENT\n"_s.arg(name, read, written));
    }
    for (const auto& [table, key, why] : import.setAside)
        Print(stdout, u"set aside, a second row of its key: %1 %2: %3\n"_s.arg(table, key, why));
    for (const auto& [table, key, why] : import.refused)
        Print(stdout, u"refused: %1 %2: %3\n"_s.arg(table, key, why));
}

int ImportAccess(const QStringList& files, const QCommandLineParser& options) {
    AccessFile source(files[0]);
    DatabaseImport import;
    {
        ProgressLine line;
        const auto whenMissing =
            options.isSet(u"incomplete"_s) ? WhenMissing::LeaveEmpty : WhenMissing::Refuse;
        import = ImportDatabase(source, files[1], whenMissing, ShowRows(line));
    }
    PrintAccounts(import);
    PrintNotes(u"left, not a table of the program"_s, import.leftTables);
    PrintNotes(u"left, not a column of the program"_s, import.leftColumns);
    PrintNotes(u"not in the file"_s, import.missing);
    PrintNotes(u"its rows stand in another file, which is the one to import"_s, import.linked);
    if (!import.missing.isEmpty() && !import.missingAccepted)
        Print(stderr, u"tadata: the file lacks tables or columns; --incomplete takes it as it is\n"_s);
    if (!import.Agrees()) {
        Print(stderr, u"tadata: not everything could be taken over; %1 was not made\n"_s.arg(files[1]));
        return Failed;
    }
    CheckData(*OpenUnchanged(files[1]),
              [](const Finding& finding) { Print(stdout, u"check: %1\n"_s.arg(finding.Line())); });
    Print(stdout, u"%1: everything agrees\n"_s.arg(files[1]));
    return Done;
}

template<class Form>
std::optional<Form> FormOption(const QCommandLineParser& options, const QString& name,
                               const std::vector<std::pair<QString, Form>>& forms) {
    if (!options.isSet(name))
        return std::nullopt;
    QStringList words;
    for (const auto& [word, form] : forms) {
        words << word;
        if (options.value(name) == word)
            return form;
    }
    throw UsageError(u"--%1 takes %2, not \"%3\""_s.arg(name, words.join(u" or "), options.value(name)));
}

ImportOptions ImportOptionsOf(const QCommandLineParser& options, Day today) {
    const std::chrono::year_month_day date{today};
    ImportOptions import;
    import.emptyClears = options.isSet(u"empty-clears"_s);
    import.makeMissing = options.isSet(u"make-missing"_s);
    import.payFrom = options.isSet(u"pay-from"_s) ? DayOption(options, u"pay-from"_s)
                                                  : Day{date.year() / date.month() / std::chrono::day {
                                                        1
                                                    }};
    import.numbers = FormOption<NumberForm>(options, u"numbers"_s,
                                            {{u"1,000.5"_s, NumberForm::PointDecimals},
                                             { u"1.000,5"_s,
                                               NumberForm::CommaDecimals }});
    import.dates = FormOption<DateForm>(options, u"dates"_s,
                                        {{u"dmy"_s, DateForm::DayFirst},
                                         { u"mdy"_s,
                                           DateForm::MonthFirst }});
    return import;
}

/// How the file was read, so that a reader who was mistaken is seen before anything is paid by it.
void PrintReading(const EmployeeFile& file, const std::vector<EmployeeField>& fields,
                  const EmployeePlan& plan) {
    const QStringList numbers{u"without signs"_s, u"as 1,000.5"_s, u"as 1.000,5"_s};
    const QStringList dates{u"the year first"_s, u"the day first"_s, u"the month first"_s};
    Print(stdout,
          u"%1: %2, separated by %3, numbers %4, dates %5\n"_s.arg(
              file.path, file.form.isUtf8 ? u"UTF-8"_s : u"Windows-1252"_s,
              file.form.separator == '\t' ? u"tabs"_s : u"\"%1\""_s.arg(QLatin1Char(file.form.separator)),
              numbers[static_cast<int>(plan.numbers)], dates[static_cast<int>(plan.dates)]));
    for (size_t i = 0; i < fields.size(); ++i) {
        const QString& heading = file.headings[static_cast<qsizetype>(i)];
        const QString field = EmployeeFieldName(fields[i]);
        if (field.isEmpty())
            Print(stdout, u"column \"%1\" is left\n"_s.arg(heading));
        else if (field != heading)
            Print(stdout, u"column \"%1\" is %2\n"_s.arg(heading, field));
    }
}

int ImportEmployees(const QStringList& files, const QCommandLineParser& options) {
    const Day today = SystemClock().Today();
    const ImportOptions import = ImportOptionsOf(options, today);
    const std::unique_ptr<Connection> connection = OpenUnchanged(files[0]);
    const EmployeeFile file = ReadEmployeeFile(files[1]);
    const std::vector<EmployeeField> fields = MatchHeadings(file.headings);
    const EmployeePlan plan = PlanImport(*connection, file, fields, import, today);
    PrintReading(file, fields, plan);
    for (const ImportFinding& finding : plan.findings)
        Print(stderr, EnglishText(finding) + u'\n');
    if (!plan.findings.empty()) {
        Print(stderr, u"tadata: nothing was written\n"_s);
        return Failed;
    }
    PrintNotes(u"new department"_s, plan.newDepartments);
    PrintNotes(u"new division"_s, plan.newDivisions);
    Print(stdout,
          u"%1 added, %2 changed, %3 unchanged; %4 paid otherwise from %5 on\n"_s.arg(
              QString::number(plan.added), QString::number(plan.changed), QString::number(plan.unchanged),
              QString::number(plan.pay.size()), StoredDay(import.payFrom)));
    if (options.isSet(u"dry-run"_s)) {
        Print(stdout, u"dry run: nothing was written\n"_s);
        return Done;
    }
    ProgressLine line;
    RunImport(*connection, plan, [&line](qsizetype done, qsizetype total) {
        line.Show(u"%1 of %2 passwords"_s.arg(done).arg(total));
        return true;
    });
    return Done;
}

int Export(const QStringList& arguments, const QCommandLineParser&) {
    const QString& file = arguments[2];
    if (!file.endsWith(u".csv"_s, Qt::CaseInsensitive) && !file.endsWith(u".xlsx"_s, Qt::CaseInsensitive))
        throw UsageError(u"the file's name ends in .csv or .xlsx, not as \"%1\""_s.arg(file));
    if (QFileInfo::exists(file))
        RefuseExisting(file);
    ProgressLine line;
    ExportDatabaseTable(*OpenUnchanged(arguments[0]), arguments[1], file, SystemClock().Today(),
                        ShowRows(line));
    return Done;
}

} // namespace

std::vector<Command> ExchangeCommands() {
    return {
        {u"import employees"_s,
         u"Takes employees from a file of separated values: all of it, or nothing where a line is wrong "
         u"(exit "
         "status 2)."_s,
         {u"DB"_s, u"FILE.csv"_s},
         {{u"dry-run"_s, u"Tells what would be done, and writes nothing."_s},
          {u"make-missing"_s, u"Makes the departments and divisions that are not there yet."_s},
          {u"empty-clears"_s, u"Lets an empty cell empty what stands there; otherwise it changes nothing."_s},
          {u"pay-from"_s, u"The day from which changed pay counts (the first of this month)."_s, u"DATE"_s},
          {u"numbers"_s, u"How the file writes numbers where it does not show: 1,000.5 or 1.000,5."_s,
           u"FORM"_s},
          {u"dates"_s, u"How the file writes dates where it does not show: dmy or mdy."_s, u"FORM"_s}},
         ImportEmployees},
        {u"import access"_s,
         u"Makes a new database out of an Access file and compares both. Exit status 0: every row and sum "
         "agrees; 2: not, and the new file is not made."_s,
         {u"OLD.mdb"_s, u"NEW.mdb"_s},
         {{u"incomplete"_s, u"Leaves empty what the file lacks of the program's tables and columns."_s}},
         ImportAccess},
        {u"export"_s,
         u"Writes a table to a new file for spreadsheets, by its name as CSV or as a workbook."_s,
         {u"DB"_s, u"TABLE"_s, u"FILE.csv|FILE.xlsx"_s},
         {},
         Export},
    };
}
