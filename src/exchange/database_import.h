#pragma once

#include "core/progress.h"
#include "exchange/table_source.h"

#include <QString>
#include <QStringList>

#include <vector>

/// What both sides of an import say of a column: the exact sum of its numbers, or its first and last date.
struct ColumnAccount {
    QString name;
    QString read;
    QString written; ///< with the rows set aside
};

/// A row that is not in the new database.
struct LeftRow {
    QString table;
    QString key; ///< the values of its key, a blank between
    QString why; ///< in English; of a second row of a key, its values
};

struct TableAccount {
    QString name;
    qint64 rowsRead = 0;
    qint64 rowsWritten = 0;
    qint64 rowsSetAside = 0;
    std::vector<ColumnAccount> columns; ///< of numbers and dates

    bool Agrees() const;
};

struct DatabaseImport {
    std::vector<TableAccount> tables;
    std::vector<LeftRow> refused;  ///< with a value that its column cannot hold
    std::vector<LeftRow> setAside; ///< second rows of a key; of either list, the first ones of very many
    QStringList leftTables;        ///< of the source that the program does not know
    QStringList leftColumns;       ///< "table.column", the same
    QStringList missing;           ///< tables and "table.column" that the source lacks; they stay empty
    QStringList linked;            ///< tables whose rows stand in another file
    bool missingAccepted = false;
    bool cancelled = false;

    /// Every row was written or set aside, all sums and dates are the same on both sides, and nothing is
    /// missing unless that was accepted.
    bool Agrees() const;
};

/// What is to become of a source that lacks tables or columns: they may never have been there, or what names
/// them may be damaged.
enum class WhenMissing { Refuse, LeaveEmpty };

/// Makes a new database out of another one: every table and column that both know, by their names in any
/// letter case, blanks in them or not. Old tables may hold two rows of one key, of which only the first was
/// ever looked up: it is taken, the others are set aside and named. What was written is read back and
/// compared with what was read. The file appears under its name only when all agrees. Memory does not depend
/// on the number of rows. Throws ProgramError when the file exists or cannot be made, the source has none of
/// the tables, and what the source throws.
DatabaseImport ImportDatabase(TableSource& source, const QString& newFile, WhenMissing whenMissing,
                              const Progress& progress = {});
