#include "exchange/database_import.h"

#include "database/database_error.h"
#include "database/new_database_file.h"
#include "exchange/table_copy.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int ImportNumber = 90024;

/// Ends the making of a file that is not to be kept.
class NotKept : public std::exception {};

/// A table of the source and the one of the new database that takes its rows.
struct TablePair {
    SourceTable source;
    TableDescription target;
};

/// What a database of the first version holds: later tables and columns are not missed in an old one.
QSet<QString> NamesToExpect(const Connection& connection) {
    const EngineSchema& schema = connection.UsedEngine().Schema();
    return schema.NamesAfter(schema.Steps().first(1)).tables;
}

std::vector<TablePair> Pair(const std::vector<SourceTable>& source, std::vector<TableDescription> targets,
                            DatabaseImport& import) {
    std::vector<TablePair> pairs;
    for (const SourceTable& table : source) {
        const auto same =
            std::ranges::find(targets, PlainName(table.name),
                              [](const TableDescription& target) { return PlainName(target.name); });
        if (same == targets.end()) {
            import.leftTables << table.name;
        } else if (table.isLinked) {
            import.linked << table.name;
        } else {
            pairs.push_back({table, *same});
            targets.erase(same);
        }
    }
    for (const TableDescription& target : targets)
        import.missing << target.name;
    return pairs;
}

void CopyTables(Connection& connection, TableSource& source, const std::vector<TablePair>& pairs,
                const Progress& progress, DatabaseImport& import) {
    std::vector<TableCopy> copies;
    std::vector<SourceTable> tables;
    for (const auto& [table, target] : pairs) {
        copies.emplace_back(connection, target, table, import);
        tables.push_back(table);
    }
    qsizetype rows = 0;
    import.cancelled = !source.ReadRows(tables, [&](size_t table, const QStringList& values) {
        copies[table].Take(values);
    return ShouldContinue(progress, ++rows, 0);
});
for (TableCopy& copy : copies) {
    if (!import.cancelled)
        import.tables.push_back(copy.Finish());
}
} // namespace

} // namespace

bool TableAccount::Agrees() const {
    return rowsRead == rowsWritten + rowsSetAside
           && std::ranges::all_of(columns,
                                  [](const ColumnAccount& column) { return column.read == column.written; });
}

bool DatabaseImport::Agrees() const {
    return !cancelled && refused.empty() && linked.isEmpty() && (missing.isEmpty() || missingAccepted)
           && std::ranges::all_of(tables, &TableAccount::Agrees);
}

DatabaseImport ImportDatabase(TableSource& source, const QString& newFile, WhenMissing whenMissing,
                              const Progress& progress) {
    DatabaseImport import;
    import.missingAccepted = whenMissing == WhenMissing::LeaveEmpty;
    const std::vector<SourceTable> tables = source.Tables();
    try {
        MakeDatabaseFile(newFile, [&](Connection& connection) {
            const std::vector<TablePair> pairs = Pair(tables, TablesOf(connection), import);
            if (pairs.empty() && import.linked.isEmpty())
                throw ProgramError(ErrorKind::NoTables, ImportNumber,
                                   u"the file has none of the tables of a time attendance database"_s);
            connection.InTransaction([&] { CopyTables(connection, source, pairs, progress, import); });
            const QSet<QString> expected = NamesToExpect(connection);
            erase_if(import.missing, [&](const QString& name) { return !expected.contains(name.toLower()); });
            if (!import.Agrees())
                throw NotKept();
        });
    } catch (const NotKept&) {
        // The import says why.
    }
    return import;
}
