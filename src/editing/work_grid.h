#pragma once

#include "cards/card_search.h"
#include "core/shared_texts.h"
#include "core/text_table.h"

#include <QHash>

#include <array>
#include <vector>

/// A work grid of 34 columns that lays out a print: the serial number, two cells that say what the row is of,
/// and one column for each day of a month. It keeps numbers of texts: a month of thousands of employees is
/// small.
class WorkGrid {
public:
    /// The headings of the two cells after the serial number. The texts are kept by the caller.
    WorkGrid(const QString& keyHeading, const QString& nameHeading, NumberedTexts& texts);

    /// Writes a value into the day's column of the row with that key, adding the row when there is none yet.
    /// A second value on the same day goes after the first, after "/".
    void PlaceInWorkGrid(const QString& key, const QString& name, int day, const QString& value);

    /// Hands the page heading and the grid as a text table to the sink.
    void Print(const QStringList& pageHeading, const LineSink& sink) const;

private:
    static constexpr int DaysOfAMonth = 31;
    struct Row {
        quint32 key;
        quint32 name;
        std::array<quint32, DaysOfAMonth> days = {};
    };

    modGeneral::ColumnWidths Widths(const QString& serialHeading) const;

    QString keyHeading_;
    QString nameHeading_;
    NumberedTexts& texts_;
    std::vector<Row> rows_;
    QHash<quint32, size_t> rowOfKey_;
};

// The prints of a search's result. They hand their lines to the sink and return false when they were stopped.

/// The result as the grid shows it; the rows are asked for twice.
bool GridPrint(const FoundRows& rows, const LineSink& sink);

/// The status codes of the result, a column per day: for each month of its sheets one table with a row per
/// employee.
bool SheetPrint(const FoundRows& rows, const QString& printedAt, const LineSink& sink,
                const Progress& progress = {});

/// The same by employee: for each employee one table with a row per month.
bool EmployeePrint(const FoundRows& rows, const QString& printedAt, const LineSink& sink,
                   const Progress& progress = {});
