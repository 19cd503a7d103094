#pragma once

#include "shifts/shift_cycle.h"

#include <chrono>
#include <optional>
#include <vector>

/// The cycle that an employee has worked by.
struct ShiftRhythm {
    ShiftCycle cycle;   ///< its first day is that of the days it was recognised in
    int exceptions = 0; ///< the days that it does not explain
};

/// The shortest cycle that explains the days, of which an empty one tells nothing, and came round twice; else
/// the shortest that came round three times and that all but one in ten follow; else the shortest that
/// explains the days. Nothing where they show no cycle: every day of it must have been seen, and a third of
/// it twice.
std::optional<ShiftRhythm> RecogniseRhythm(const std::vector<QString>& days);

/// The day of a month of which another month's day is the copy: the same day of the month, or the same day of
/// the week, four weeks earlier, five where that is no day of the month. Nothing where that month has none.
std::optional<unsigned> SameDate(Day day, std::chrono::year_month from);
std::optional<unsigned> SameWeekday(Day day, std::chrono::year_month from);

unsigned DaysIn(std::chrono::year_month month);
