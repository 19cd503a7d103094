#pragma once

#include "cards/sheet_cards.h"

#include <QHash>
#include <QString>

#include <vector>

/// One line of the employee list.
struct SheetEmployee {
    QString dept; ///< department and division, "PROD/A"
    QString nip;
    QString nama;

    bool operator==(const SheetEmployee&) const = default;
};

/// "Hours": for a card that is IN the time since arrival, growing with `now`; else from arrival to departure;
/// "" when a time is missing.
QString HoursText(const SheetEntry& entry, WallTime now);

/// "OT Hours": between the two overtime times of day, the dates dropped; "" when one is missing.
QString OvertimeText(const SheetEntry& entry);

/// The roster's shift codes of a day by employee number, in one statement. Throws DatabaseError.
QHash<QString, QString> ReadDayRoster(Connection& connection, Day day);

/// The employees who have not left before the day, in the order of the clause (" ORDER BY NAMA"). Throws
/// DatabaseError.
std::vector<SheetEmployee> ReadEmployees(Connection& connection, Day day, const QString& orderBy);
