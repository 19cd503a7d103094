#include "database/wall_time.h"

#include <QStringList>

#include <array>

using namespace std::chrono;

namespace {

constexpr qint64 JulianDayOfEpoch = 2440588;

void AppendNumber(QString& text, unsigned value, int width) {
    std::array<char16_t, 10> digits{};
    for (int i = width - 1; i >= 0; --i) {
        digits[static_cast<size_t>(i)] = static_cast<char16_t>(u'0' + value % 10);
        value /= 10;
    }
    text.append(QStringView(digits.data(), width));
}

void AppendTime(QString& text, WallTime time, bool withSeconds) {
    const hh_mm_ss clock(TimeOfDay(time));
    AppendNumber(text, static_cast<unsigned>(clock.hours().count()), 2);
    text.append(u':');
    AppendNumber(text, static_cast<unsigned>(clock.minutes().count()), 2);
    if (withSeconds) {
        text.append(u':');
        AppendNumber(text, static_cast<unsigned>(clock.seconds().count()), 2);
    }
}

QString MonthName(month value) {
    static constexpr const char* names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return QString::fromLatin1(names[static_cast<unsigned>(value) - 1]);
}

/// The number at a fixed place; -1 when anything but digits stands there: "+5", " 5" and "٥" are no part of a
/// date. Stored forms are read by the ten thousand at every refresh.
int FixedNumber(QStringView text, qsizetype at, qsizetype length) {
    int value = 0;
    for (const QChar c : text.sliced(at, length)) {
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value;
}

/// A number of at least and at most so many digits.
std::optional<int> ReadDigits(QStringView text, qsizetype least, qsizetype most) {
    if (text.size() < least || text.size() > most)
        return std::nullopt;
    const int value = FixedNumber(text, 0, text.size());
    return value < 0 ? std::nullopt : std::optional(value);
}

std::optional<Seconds> ReadClock(QStringView text) {
    const QList<QStringView> parts = text.split(u':');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    const auto hour = ReadDigits(parts[0], 1, 2);
    const auto minute = ReadDigits(parts[1], 2, 2);
    const auto second = parts.size() == 3 ? ReadDigits(parts[2], 2, 2) : std::optional(0);
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    return hours{*hour} + minutes{*minute} + seconds{*second};
}

std::optional<Day> ReadCalendarDay(QStringView text) {
    const QChar separator = text.contains(u'/') ? u'/' : u'-';
    const QList<QStringView> parts = text.split(separator);
    if (parts.size() != 3)
        return std::nullopt;
    const bool yearFirst = parts[0].size() == 4;
    const auto yearPart = ReadDigits(parts[yearFirst ? 0 : 2], 4, 4);
    const auto monthPart = ReadDigits(parts[yearFirst ? 1 : 0], 1, 2);
    const auto dayPart = ReadDigits(parts[yearFirst ? 2 : 1], 1, 2);
    if (!yearPart || !monthPart || !dayPart)
        return std::nullopt;
    return MakeDay(*yearPart, *monthPart, *dayPart);
}

} // namespace

std::optional<Day> MakeDay(int yearPart, int monthPart, int dayPart) {
    if (yearPart < 0 || monthPart < 1 || dayPart < 1)
        return std::nullopt;
    const year_month_day date{year{yearPart}, month{static_cast<unsigned>(monthPart)},
                              day{static_cast<unsigned>(dayPart)}};
    if (!date.ok())
        return std::nullopt;
    return Day{date};
}

QString StoredDay(Day day) {
    const year_month_day date{day};
    QString text;
    text.reserve(19);
    AppendNumber(text, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    text.append(u'-');
    AppendNumber(text, static_cast<unsigned>(date.month()), 2);
    text.append(u'-');
    AppendNumber(text, static_cast<unsigned>(date.day()), 2);
    return text;
}

QString StoredTime(WallTime time) {
    QString text = StoredDay(DayOf(time));
    text.append(u' ');
    AppendTime(text, time, true);
    return text;
}

std::optional<WallTime> ReadStored(QStringView text) {
    if (text.size() != 10 && text.size() != 19)
        return std::nullopt;
    if (text[4] != u'-' || text[7] != u'-')
        return std::nullopt;
    const std::optional<Day> day =
        MakeDay(FixedNumber(text, 0, 4), FixedNumber(text, 5, 2), FixedNumber(text, 8, 2));
    if (!day || text.size() == 10)
        return day;
    const std::optional<Seconds> clock = ReadStoredClock(text.sliced(11));
    return clock && text[10] == u' ' ? std::optional(*day + *clock) : std::nullopt;
}

std::optional<Seconds> ReadStoredClock(QStringView text) {
    if (text.size() != 8 || text[2] != u':' || text[5] != u':')
        return std::nullopt;
    const int hour = FixedNumber(text, 0, 2);
    const int minute = FixedNumber(text, 3, 2);
    const int second = FixedNumber(text, 6, 2);
    if (hour < 0 || minute < 0 || second < 0 || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return hours{hour} + minutes{minute} + seconds{second};
}

std::optional<DateText> ReadDateText(QStringView text) {
    const QStringView trimmed = text.trimmed();
    const qsizetype gap = trimmed.indexOf(u' ');
    const auto day = ReadCalendarDay(gap < 0 ? trimmed : trimmed.first(gap));
    if (!day)
        return std::nullopt;
    if (gap < 0)
        return DateText{*day, false};
    const auto clock = ReadClock(trimmed.sliced(gap).trimmed());
    if (!clock)
        return std::nullopt;
    return DateText{TimeOnDay(*day, *clock), true};
}

QString ShownDay(Day day) {
    const year_month_day date{day};
    QString text;
    AppendNumber(text, static_cast<unsigned>(date.day()), 2);
    text += u'-' + MonthName(date.month()) + u'-';
    AppendNumber(text, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    return text;
}

QString ShownShortDay(Day day) {
    QString text = ShownDay(day);
    return text.remove(7, 2);
}

QString ShownTime(WallTime time) {
    QString text;
    text.reserve(8);
    AppendTime(text, time, true);
    return text;
}

QString ShownMinute(WallTime time) {
    QString text;
    text.reserve(5);
    AppendTime(text, time, false);
    return text;
}

QDate ToQDate(Day day) {
    return QDate::fromJulianDay(day.time_since_epoch().count() + JulianDayOfEpoch);
}

Day FromQDate(QDate date) {
    return date.isValid() ? Day{days{date.toJulianDay() - JulianDayOfEpoch}} : DayZero;
}

WallTime FromQDateTime(const QDateTime& moment) {
    return TimeOnDay(FromQDate(moment.date()), Seconds{moment.time().msecsSinceStartOfDay() / 1000});
}
