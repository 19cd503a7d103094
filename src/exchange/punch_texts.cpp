#include "exchange/punch_texts.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int FirstYear = 1990;
constexpr int LastYear = 2099;

constexpr QStringView InWords[] = {u"IN",   u"I",        u"M",        u"MASUK",
                                   u"C/IN", u"CHECK IN", u"CHECK-IN", u"CHECKIN"};
constexpr QStringView OutWords[] = {u"OUT",   u"O",         u"K",         u"KELUAR",  u"PULANG",
                                    u"C/OUT", u"CHECK OUT", u"CHECK-OUT", u"CHECKOUT"};

bool IsOneOf(QStringView text, const auto& words) {
    return std::ranges::any_of(
        words, [&](QStringView word) { return text.compare(word, Qt::CaseInsensitive) == 0; });
}

bool IsAllDigits(QStringView text) {
    return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// The numbers of a text, parted by one kind of sign; empty when there is anything else in it.
std::vector<int> NumbersIn(QStringView text, QStringView signs) {
    std::vector<int> numbers;
    QChar sign;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i].isDigit())
            continue;
        const QStringView part = text.sliced(start, i - start);
        const bool parts =
            i == text.size() || (signs.contains(text[i]) && (sign.isNull() || sign == text[i]));
        if (!parts || part.isEmpty() || part.size() > 4 || !IsAllDigits(part))
            return {};
        numbers.push_back(part.toInt());
        if (i < text.size())
            sign = text[i];
        start = i + 1;
    }
    return numbers;
}

std::optional<Day> PlausibleDay(int year, int month, int day) {
    return year < FirstYear || year > LastYear ? std::nullopt : MakeDay(year, month, day);
}

} // namespace

std::optional<Day> PunchTexts::ReadDate(QStringView text, DateOrder order) {
    const bool monthFirst = order == DateOrder::MonthFirst;
    if (text.size() == 8 && IsAllDigits(text)) {
        if (const auto day =
                PlausibleDay(text.first(4).toInt(), text.sliced(4, 2).toInt(), text.last(2).toInt()))
            return day;
        const int first = text.first(2).toInt();
        const int second = text.sliced(2, 2).toInt();
        return PlausibleDay(text.last(4).toInt(), monthFirst ? first : second, monthFirst ? second : first);
    }
    const std::vector<int> numbers = NumbersIn(text, u"-/.");
    if (numbers.size() != 3)
        return std::nullopt;
    if (numbers[0] > 31)
        return PlausibleDay(numbers[0], numbers[1], numbers[2]);
    const int year = numbers[2] < 100 ? 2000 + numbers[2] : numbers[2];
    return PlausibleDay(year, numbers[monthFirst ? 0 : 1], numbers[monthFirst ? 1 : 0]);
}

std::optional<Seconds> PunchTexts::ReadTime(QStringView text) {
    const bool packed = (text.size() == 4 || text.size() == 6) && IsAllDigits(text);
    std::vector<int> numbers =
        packed ? std::vector{text.first(2).toInt(), text.sliced(2, 2).toInt()} : NumbersIn(text, u":.");
    if (packed && text.size() == 6)
        numbers.push_back(text.last(2).toInt());
    if (numbers.size() == 2)
        numbers.push_back(0);
    if (numbers.size() != 3 || numbers[0] > 23 || numbers[1] > 59 || numbers[2] > 59)
        return std::nullopt;
    return std::chrono::hours{numbers[0]} + std::chrono::minutes{numbers[1]} + Seconds{numbers[2]};
}

std::optional<WallTime> PunchTexts::ReadMoment(QStringView text, DateOrder order) {
    if (const std::optional<WallTime> stored = ReadStored(text); stored && text.size() > 10)
        return PlausibleDay(ToQDate(DayOf(*stored)).year(), 1, 1) ? stored : std::nullopt;
    qsizetype gap = text.indexOf(u' ');
    if (gap < 0)
        gap = text.indexOf(u'T');
    if (gap < 0)
        return std::nullopt;
    const auto day = ReadDate(text.first(gap), order);
    const auto time = ReadTime(text.sliced(gap + 1).trimmed());
    return day && time ? std::optional(*day + *time) : std::nullopt;
}

PunchDirection PunchTexts::ReadDirection(QStringView text) {
    if (text == u"0" || IsOneOf(text, InWords))
        return PunchDirection::In;
    return text == u"1" || IsOneOf(text, OutWords) ? PunchDirection::Out : PunchDirection::None;
}

bool PunchTexts::IsDirectionWord(QStringView text) {
    return IsOneOf(text, InWords) || IsOneOf(text, OutWords);
}
