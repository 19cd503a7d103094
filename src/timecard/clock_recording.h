#pragma once

#include "core/status_codes.h"
#include "database/connection.h"
#include "timecard/night_departure.h"

#include <QString>

#include <optional>

/// What a desk is about to record.
struct ClockEntry {
    QString sheet;
    Day sheetDate;
    QString mode;
    /// The moment at which the entry window was opened.
    WallTime openedAt;
    /// The night that the departure ends, as the user was told; recorded on its card, not on the sheet's.
    std::optional<OpenNight> night = {};
    bool clockInDoubt = false; ///< the card says so in its remark

    bool IsClockIn() const { return mode == ClockMode::In; }
    /// What will stand on the card: at clock-in the sheet's day with the present time of day.
    WallTime Moment() const { return IsClockIn() ? TimeOnDay(sheetDate, TimeOfDay(openedAt)) : openedAt; }
};

/// Why a recording was refused; the texts are those the user is shown.
enum class Refusal { NotClockedIn, AlreadyClockedIn, SheetClosed, HasLeft };
QString RefusalText(Refusal refusal);

/// The password kept for a user; nothing when the user is unknown. Throws DatabaseError.
std::optional<QString> LoadStoredPassword(Connection& connection, const QString& nip);

/// Whether the user is a supervisor without being an employee, and was not let clock in yet.
bool IsSupervisorOnly(Connection& connection, const QString& userId);
/// Lets such a user clock in from now on.
void LetClockIn(Connection& connection, const QString& userId);

/// The night that a departure would end, to be told before it is recorded (ClockEntry::night). Throws
/// DatabaseError.
std::optional<OpenNight> NightOfDeparture(Connection& connection, const ClockEntry& entry,
                                          const QString& nip);

/// Checks and records in one transaction: header and day row are written together or not at all, and two
/// desks that record one employee at the same instant leave one arrival. A sheet that was closed after the
/// entry began takes nothing, nor does one that is dated after the employee's last day, and a departure goes
/// to no other card than the user was told of. Throws DatabaseError; nothing is written then, nor when the
/// recording is refused.
std::optional<Refusal> RecordClockEntry(Connection& connection, const ClockEntry& entry, const QString& nip);
