#pragma once

#include "core/progress.h"
#include "database/schema.h"

#include <QString>

#include <functional>
#include <vector>

/// A column of what is written to a file: its heading, and what its cells are. A cell that is not what its
/// column says is written as the text that it is.
struct ExportColumn {
    QString title;
    ColumnKind kind = ColumnKind::Text;
};

using ExportRow = std::vector<FieldValue>;
/// Hands the rows to the sink, one by one; false when it was stopped.
using ExportRows = std::function<bool(const std::function<void(const ExportRow& row)>& sink)>;

/// Writes a table to a file for spreadsheets and holds one row of it at a time: as CSV (UTF-8 with its mark,
/// commas, every text quoted), or as a workbook where the name ends in ".xlsx" (real dates, times and
/// numbers, the headings frozen, columns as wide as their cells). What begins like a formula is written as
/// text; in CSV, numbers are written so that they cannot be read in two ways (ReadCsv gives back what was
/// written). A file that stands there is replaced once the new one is complete, else it stays: also when
/// the rows were stopped, which returns false. Throws ProgramError when the file cannot be written or a
/// workbook has no room for the rows.
bool ExportTable(const QString& path, const std::vector<ExportColumn>& columns, const ExportRows& rows);

/// What a grid shows in a cell, as a value of its column's kind: "08:15" as a time, "1,250.5" as a number. A
/// text that is no such value stays a text, an empty one is none.
FieldValue ShownValue(const QString& text, ColumnKind kind);

/// Writes a table of the database, by the order of its key. The pay of Employee is the one in force today;
/// passwords are left out. Throws ProgramError when the database has no such table, also as ExportTable does.
bool ExportDatabaseTable(Connection& connection, const QString& table, const QString& path, Day today,
                         const Progress& progress = {});
