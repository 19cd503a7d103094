#pragma once

#include "core/code_lists.h"

#include <QString>

/// Scheduled start and end. They stand on the base date; a night shift ends on the day after it. A shift that
/// is described nowhere has the empty time at both.
struct ShiftHours {
    WallTime start = EmptyTime;
    WallTime end = EmptyTime;
};

namespace modAbsen {

/// The code of the shift that was worked on a day: the roster's, unless it is empty; else that of the first
/// shift in the order given whose hours contain the time of day of the clock-in, both ends included; else
/// "P". Never empty.
QString ResolveShift(const QString& rosterCode, const std::optional<WallTime>& clockIn,
                     const std::vector<ShiftRow>& shifts);

/// The code's hours; nothing when no row is of that code, letter case included.
std::optional<ShiftHours> HoursOfShift(const std::vector<ShiftRow>& shifts, const QString& code);

} // namespace modAbsen
