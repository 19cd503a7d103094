#pragma once

#include "editing/attendance_refresh.h"

/// An employee's day as it is shown while it is worked at.
struct ShownDayRow {
    QString nip;
    Day day{};
    std::optional<AttendanceRecord> record; ///< nothing: no card is shown
};

/// Gives a day a status that is listed, and its card first when it has none; returns what is stored then.
/// Times are never touched. Throws ConflictError when another desk changed the status or made or removed the
/// card since it was shown, ProgramError when the card belongs elsewhere, DatabaseError; nothing is written
/// then.
AttendanceRecord SaveDayStatus(Connection& connection, const ShownDayRow& row, const QString& status);

/// A status for an employee's day. A null text is no card: the one that was made for a status alone goes
/// away.
struct DayStatus {
    QString nip;
    Day day{};
    QString shown; ///< what must stand there, null for no card
    QString status;
};

/// What became of many of them.
struct DayStatusesSaved {
    /// Why some cannot be, by their place; nothing was written then.
    std::vector<std::pair<size_t, QString>> refused;
    /// What stands there now, place by place.
    std::vector<std::optional<AttendanceRecord>> now;
};

/// Gives all these days their statuses as SaveDayStatus does, in one transaction of few statements. Throws
/// DatabaseError.
DayStatusesSaved SaveDayStatuses(Connection& connection, const std::vector<DayStatus>& statuses);

/// What goes with the card when its days are deleted and cannot be seen in its row, a line for each day: its
/// overtime, and the days that it has beside the one shown. Throws DatabaseError.
QStringList HiddenOnCard(Connection& connection, const ShownDayRow& row);

/// Deletes the days of the row's card and leaves its header; nothing when no card is shown. Throws
/// ConflictError when the card is no longer as it is shown, or hides other things than were told,
/// DatabaseError; nothing is deleted then.
void DeleteCardDays(Connection& connection, const ShownDayRow& row, const QStringList& told);

/// What the database holds now for the row; nothing when the day has no card. Throws DatabaseError.
std::optional<AttendanceRecord> LoadRow(Connection& connection, const ShownDayRow& row);
