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
