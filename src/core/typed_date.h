#pragma once

#include "database/wall_time.h"

/// The years that a typed date may be of.
inline constexpr int FirstTypedYear = 1900;
inline constexpr int LastTypedYear = 2999;

/// A date as a person types it, the day first: "31/1/2026", "31-01-26", "31.1", "31Jan2026", "31 Des",
/// "31012026", "310126", "3101" or "31", where what is missing is that of the date shown; "2026-01-31"; "+1"
/// and "-1", days from the date shown; "t" or "h" for today. Months have English or Indonesian names of three
/// letters or more, years of two digits are of this century. Nothing where the text is none of these, or the
/// calendar lacks the day. Where today is not known, it is not read either.
std::optional<Day> ReadTypedDate(QStringView text, Day shown, std::optional<Day> today);

/// What is shown after a time of the next day.
inline constexpr QStringView NextDaySign = u" (+1)";

/// A time of day as a person types it.
struct TypedTime {
    Seconds timeOfDay{};
    bool nextDay = false;

    WallTime On(Day day) const;
    /// On the day; where that would be before the arrival, on the first day on which it is not. A time that
    /// says its day itself is left there.
    WallTime On(Day day, const std::optional<WallTime>& arrival) const;
};

/// A time: "7:45", "07.45", "0745", "745", "7" or "7:45:30", and after it "+1" or "(+1)" for the next day.
/// Nothing where the text is none of these, or no clock shows it.
std::optional<TypedTime> ReadTypedTime(QStringView text);

/// A moment as a person types it: a time as above, which is on the day shown, a date as above, which keeps
/// the time shown, or both, a blank between. Nothing where the text is neither, or can be read in two ways
/// ("22/11 2015").
std::optional<WallTime> ReadTypedMoment(QStringView text, WallTime shown, std::optional<Day> today);
