#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <chrono>
#include <optional>

/// Readings of a wall clock. They carry no time zone on purpose: a shift that spans a daylight-saving change
/// has the same hours as on any other night.
using Day = std::chrono::local_days;
using WallTime = std::chrono::local_seconds;
using Seconds = std::chrono::seconds;

/// The day on which times of day are placed when they stand alone.
inline constexpr Day DayZero = Day{std::chrono::year{1899} / std::chrono::December / 30};
/// A time that was never set.
inline constexpr WallTime EmptyTime = DayZero;
/// The time, or nothing when it was never set.
inline std::optional<WallTime> TimeIfSet(std::optional<WallTime> time) {
    return time == EmptyTime ? std::nullopt : time;
}

inline Day DayOf(WallTime time) {
    return std::chrono::floor<std::chrono::days>(time);
}
inline Seconds TimeOfDay(WallTime time) {
    return time - DayOf(time);
}
inline WallTime TimeOnDay(Day day, Seconds timeOfDay) {
    return day + timeOfDay;
}

/// A day from its parts; nothing when the calendar lacks it.
std::optional<Day> MakeDay(int year, int month, int day);

/// The stored forms: "yyyy-mm-dd" for a day, "yyyy-mm-dd hh:mm:ss" for a moment.
QString StoredDay(Day day);
QString StoredTime(WallTime time);
/// Reads either stored form; nothing when the text is neither.
std::optional<WallTime> ReadStored(QStringView text);
/// Reads the time of day of a stored moment, "hh:mm:ss"; nothing when the text is none.
std::optional<Seconds> ReadStoredClock(QStringView text);

/// A date as it is typed into statements: year first or month first, "-" or "/" between, a time or none
/// after.
struct DateText {
    WallTime time;
    bool hasTime;
};
std::optional<DateText> ReadDateText(QStringView text);

/// The shown forms; month names are English, as the regional settings that the program insists on have them.
QString ShownDay(Day day);          ///< "05-Mar-2004"
QString ShownShortDay(Day day);     ///< "05-Mar-04"
QString ShownTime(WallTime time);   ///< "07:58:12"
QString ShownMinute(WallTime time); ///< "07:58"

QDate ToQDate(Day day);
Day FromQDate(QDate date);
/// The reading of the clock face that the date-time shows, whatever its zone.
WallTime FromQDateTime(const QDateTime& moment);
