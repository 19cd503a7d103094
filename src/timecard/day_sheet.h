#pragma once

#include "database/connection.h"

#include <QString>

#include <optional>
#include <vector>

/// One line of the employee list.
struct SheetEmployee {
    QString dept; ///< department and division, "PROD/A"
    QString nip;
    QString nama;
};

/// What one employee's card says on a sheet. Times that were never set are absent.
struct SheetEntry {
    QString status;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    std::optional<WallTime> overtimeIn;
    std::optional<WallTime> overtimeOut;

    bool operator==(const SheetEntry&) const = default;
};

/// The status of an employee without a day row.
inline constexpr QStringView AbsentStatus = u"A";

/// "Hours": for a card that is IN the time since arrival, growing with `now`; else from arrival to departure;
/// "" when a time is missing.
QString HoursText(const SheetEntry& entry, WallTime now);

/// "OT Hours": between the two overtime times of day, the dates dropped; "" when one is missing.
QString OvertimeText(const SheetEntry& entry);

/// The employees in the order of the clause (" ORDER BY NAMA"). Throws DatabaseError.
std::vector<SheetEmployee> ReadEmployees(Connection& connection, const QString& orderBy);

/// A sheet's card with its identifier.
struct SheetCard {
    QString tcid;
    SheetEntry entry;
};

/// All cards of a sheet that have a day row, in one statement, ordered by identifier; none while the
/// identifier is still too short to name a day. Throws DatabaseError.
std::vector<SheetCard> ReadSheetCards(Connection& connection, const QString& sheet);
