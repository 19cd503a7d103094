#pragma once

#include "compute/shift_resolution.h"

/// How far what a person did may lie from the shift that it belongs to.
namespace WorkingTimes {

inline constexpr std::chrono::hours BeforeStart{4}; ///< an arrival may come so much before its shift
inline constexpr std::chrono::hours AfterEnd{4};    ///< a departure is waited for so long after the end
inline constexpr std::chrono::hours Longest{16};    ///< no departure lies further from its arrival

/// Whether nobody works on a day of that code: "O", or one whose row has no hours between start and end.
bool IsDayOff(const QString& code, const std::vector<ShiftRow>& shifts);

/// Whether the shift ends on the day after its start, on whichever base day its end is stored.
bool EndsAfterMidnight(const ShiftHours& shift);

/// The shift's start and end on a real day.
ShiftHours ShiftOn(const ShiftHours& shift, Day day);

/// The hours of the shift that a day was, or is to be, worked by; nothing when no row describes it.
std::optional<ShiftHours> ShiftWorked(const QString& rosterCode, const std::optional<WallTime>& arrival,
                                      const std::vector<ShiftRow>& shifts);

} // namespace WorkingTimes
