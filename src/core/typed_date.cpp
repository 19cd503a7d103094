#include "core/typed_date.h"

#include <QRegularExpression>

#include <algorithm>

using namespace std::chrono;

namespace {

using Match = QRegularExpressionMatch;

Match MatchWhole(const char* pattern, const QString& text) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern))).match(text);
}

/// A number, or the first letters of a name; 0 for a month that there is not.
int MonthOf(const QString& text, month shown) {
    static constexpr std::pair<QStringView, int> names[] = {
        {u"january", 1},   {u"januari", 1},   {u"february", 2}, {u"februari", 2}, {u"march", 3},
        {u"maret", 3},     {u"april", 4},     {u"may", 5},      {u"mei", 5},      {u"june", 6},
        {u"juni", 6},      {u"july", 7},      {u"juli", 7},     {u"august", 8},   {u"agustus", 8},
        {u"agt", 8},       {u"september", 9}, {u"october", 10}, {u"oktober", 10}, {u"november", 11},
        {u"nopember", 11}, {u"december", 12}, {u"desember", 12}};
    if (text.isEmpty())
        return static_cast<int>(static_cast<unsigned>(shown));
    const auto* named =
        std::ranges::find_if(names, [&](const auto& name) { return name.first.startsWith(text); });
    return named == std::end(names) ? text.toInt() : named->second;
}

int YearOf(const QString& digits, year shown) {
    if (digits.isEmpty())
        return static_cast<int>(shown);
    return digits.size() == 2 ? 2000 + digits.toInt() : digits.toInt();
}

/// A day of the calendar; month and year are those shown where they are not typed.
std::optional<Day> ReadCalendarDay(const QString& text, year_month_day shown) {
    if (const Match iso = MatchWhole("([0-9]{4})[-/. ]([0-9]{1,2})[-/. ]([0-9]{1,2})", text); iso.hasMatch())
        return MakeDay(iso.captured(1).toInt(), iso.captured(2).toInt(), iso.captured(3).toInt());
    // Day, month and year, of which the last ones may be missing.
    for (const char* pattern : {"([0-9]{1,2})", "([0-9]{2})([0-9]{2})([0-9]{4}|[0-9]{2})?",
                                "([0-9]{1,2})[-/. ]([0-9]{1,2})(?:[-/. ]([0-9]{4}|[0-9]{2}))?",
                                "([0-9]{1,2})[-/. ]?([a-z]{3,})(?:[-/. ]?([0-9]{4}|[0-9]{2}))?"}) {
        const Match match = MatchWhole(pattern, text);
        if (match.hasMatch())
            return MakeDay(YearOf(match.captured(3), shown.year()), MonthOf(match.captured(2), shown.month()),
                           match.captured(1).toInt());
    }
    return std::nullopt;
}

} // namespace

WallTime TypedTime::On(Day day) const {
    return TimeOnDay(nextDay ? day + days{1} : day, timeOfDay);
}

WallTime TypedTime::On(Day day, const std::optional<WallTime>& arrival) const {
    if (nextDay || !arrival || On(day) >= *arrival)
        return On(day);
    const WallTime sameDay = On(DayOf(*arrival));
    return sameDay < *arrival ? sameDay + days{1} : sameDay;
}

std::optional<TypedTime> ReadTypedTime(QStringView text) {
    const Match match = MatchWhole("([0-9]{1,2})(?:[.:]?([0-9]{2})|:([0-9]{2}):([0-9]{2}))?( ?\\(?\\+1\\)?)?",
                                   text.toString().simplified());
    const int hour = match.captured(1).toInt();
    const int minute = (match.captured(2) + match.captured(3)).toInt();
    const int second = match.captured(4).toInt();
    if (!match.hasMatch() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return TypedTime{hours{hour} + minutes{minute} + seconds{second}, !match.captured(5).isEmpty()};
}

std::optional<Day> ReadTypedDate(QStringView text, Day shown, std::optional<Day> today) {
    const QString typed = text.toString().simplified().toLower();
    std::optional<Day> read;
    if (MatchWhole("[th]", typed).hasMatch())
        read = today;
    else if (MatchWhole("[-+][0-9]{1,5}", typed).hasMatch())
        read = shown + days{typed.toInt()};
    else
        read = ReadCalendarDay(typed, year_month_day{shown});
    const int ofYear = read ? static_cast<int>(year_month_day{*read}.year()) : 0;
    return ofYear >= FirstTypedYear && ofYear <= LastTypedYear ? read : std::nullopt;
}

std::optional<WallTime> ReadTypedMoment(QStringView text, WallTime shown, std::optional<Day> today) {
    const QString typed = text.toString().simplified();
    const Day shownDay = DayOf(shown);
    const auto alone = ReadTypedTime(typed);
    // A time that the clock lacks is not taken for a date.
    if (alone || MatchWhole("[0-9]{1,4}|[0-9]{1,2}[.:][0-9]{1,2}", typed).hasMatch())
        return alone ? std::optional(alone->On(shownDay)) : std::nullopt;
    const auto whole = ReadTypedDate(typed, shownDay, today);
    const qsizetype gap = typed.lastIndexOf(u' ');
    const auto day = gap < 0 ? std::nullopt : ReadTypedDate(typed.first(gap), shownDay, today);
    const auto time = ReadTypedTime(typed.sliced(gap + 1));
    const bool both = day && time;
    if (whole.has_value() == both)
        return std::nullopt;
    return both ? time->On(*day) : TimeOnDay(*whole, TimeOfDay(shown));
}
