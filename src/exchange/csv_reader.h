#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// How a file of separated values is written, as the file itself shows it.
struct CsvForm {
    char separator = ',';
    bool isUtf8 = true; ///< else Windows-1252
};

/// A row that is not blank, and the line of the file that it begins on, counted from 1.
struct CsvRow {
    int line = 0;
    QStringList cells;
};

/// Takes the rows one by one; false ends the reading.
using CsvSink = std::function<bool(const CsvRow& row)>;

/// Reads a file of values separated by commas, semicolons or tabs, in UTF-8 with or without its mark, else in
/// Windows-1252; its lines may end in any way, the last one not at all. The separator is what parts the first
/// row, unless a first line "sep=" names it. A single quote that keeps a spreadsheet from taking a cell for a
/// formula (WithoutFormulaMark) is no part of the cell. Memory does not depend on the number of rows. Throws
/// ProgramError when the file cannot be read, is no text, or a quoted cell does not end.
CsvForm ReadCsv(const QString& path, const CsvSink& sink);

/// What a spreadsheet would take for a formula is kept from it by a single quote in front: a text that begins
/// with =, +, -, @ or a tab, whatever single quotes stand before these. Taking the mark away again gives the
/// very text.
QString WithFormulaMark(const QString& text);
QString WithoutFormulaMark(const QString& text);
