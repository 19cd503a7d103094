#pragma once

#include "cards/card_search.h"
#include "core/progress.h"
#include "core/text_table.h"

#include <QHash>

#include <vector>

/// A work grid of 34 columns that lays out a print: the serial number, two cells that say what the row is of,
/// and one column for each day of a month.
class WorkGrid {
public:
    /// The headings of the two cells after the serial number.
    WorkGrid(const QString& keyHeading, const QString& nameHeading);

    /// Writes a value into the day's column of the row with that key, adding the row when there is none yet.
    /// A second value on the same day goes after the first, after "/".
    void PlaceInWorkGrid(const QString& key, const QString& name, int day, const QString& value);

    /// The page heading and the grid as a text table.
    QStringList Lines(const QStringList& pageHeading) const;

private:
    /// How wide the column's longest text is, but never less than this.
    int WidthOf(int column, int least) const;

    modGeneral::TextGrid grdTemp;
    QHash<QString, int> rowOfKey_;
};

/// The status codes of a search's result, a column per day: for each month of its sheets one table with a row
/// per employee. No lines at all when it was stopped.
QStringList SheetPrint(const std::vector<FoundDay>& rows, const QString& printedAt,
                       const Progress& progress = {});

/// The same by employee: for each employee one table with a row per month.
QStringList EmployeePrint(const std::vector<FoundDay>& rows, const QString& printedAt,
                          const Progress& progress = {});
