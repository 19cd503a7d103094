#pragma once

#include "database/wall_time.h"

/// The years that a typed date may be of.
inline constexpr int FirstTypedYear = 1900;
inline constexpr int LastTypedYear = 2999;

/// A date as a person types it, the day first: "31/1/2026", "31-01-26", "31.1", "31Jan2026", "31 Des",
/// "31012026", "310126", "3101" or "31", where what is missing is that of the date shown; "2026-01-31"; "+1"
/// and "-1", days from the date shown; "t" or "h" for today. Months have English or Indonesian names of three
/// letters or more, years of two digits are of this century. Nothing where the text is none of these, or the
/// calendar lacks the day.
std::optional<Day> ReadTypedDate(QStringView text, Day shown, Day today);

/// A moment as a person types it: a time ("7:45", "07.45", "0745", "745", "7"), which is on the day shown, a
/// date as above, which keeps the time shown, or both, a blank between. Nothing where the text is neither, or
/// can be read in two ways ("22/11 2015").
std::optional<WallTime> ReadTypedMoment(QStringView text, WallTime shown, Day today);
