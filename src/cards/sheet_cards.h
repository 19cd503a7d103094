#pragma once

#include "database/connection.h"

#include <QString>

#include <optional>
#include <vector>

/// What a card says on its sheet. Times that were never set are absent.
struct SheetEntry {
    QString status;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    std::optional<WallTime> overtimeIn;
    std::optional<WallTime> overtimeOut;

    bool operator==(const SheetEntry&) const = default;
};

/// A sheet's card with its identifier.
struct SheetCard {
    QString tcid;
    SheetEntry entry;
};

/// All cards of a sheet that have a day row, in one statement, ordered by identifier; none while the
/// identifier is still too short to name a day. Throws DatabaseError.
std::vector<SheetCard> ReadSheetCards(Connection& connection, const QString& sheet);

/// The day of the sheet's cards; `today` when it has none. A sheet without an extension also finds the cards
/// of that day's extended sheets. Throws DatabaseError.
Day SheetDate(Connection& connection, const QString& sheet, Day today);
