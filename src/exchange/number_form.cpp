#include "exchange/number_form.h"

#include "core/typed_date.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// How many digits the text begins with.
qsizetype DigitsAt(QStringView text) {
    return std::ranges::find_if_not(text, IsDigit) - text.begin();
}

/// What counts of a number's cell.
QString Bare(QStringView cell) {
    cell = cell.trimmed();
    const bool negative = cell.startsWith(u'-');
    QStringView amount = negative ? cell.sliced(1) : cell;
    if (!amount.startsWith(u"Rp", Qt::CaseInsensitive))
        return cell.toString();
    amount = amount.sliced(2);
    if (amount.startsWith(u'.'))
        amount = amount.sliced(1);
    return (negative ? u"-"_s : QString()).append(amount.trimmed());
}

/// Whether a text is a number with these signs: digits, or groups of three of them, and decimals.
bool IsNumber(QStringView text, QChar thousands, QChar decimals) {
    if (text.startsWith(u'-') || text.startsWith(u'+'))
        text = text.sliced(1);
    const qsizetype first = DigitsAt(text);
    text = text.sliced(first);
    const bool grouped = text.startsWith(thousands);
    if (first == 0 || (grouped && first > 3))
        return false;
    for (; text.startsWith(thousands); text = text.sliced(4)) {
        if (DigitsAt(text.sliced(1)) != 3)
            return false;
    }
    return text.isEmpty()
           || (text.startsWith(decimals) && text.size() > 1 && DigitsAt(text.sliced(1)) == text.size() - 1);
}

bool IsNumber(QStringView text, NumberForm form) {
    switch (form) {
    case NumberForm::PointDecimals:
        return IsNumber(text, u',', u'.');
    case NumberForm::CommaDecimals:
        return IsNumber(text, u'.', u',');
    case NumberForm::Digits:
        break;
    }
    return IsNumber(text, QChar(), QChar());
}

struct DateParts {
    int first = 0;
    int second = 0;
    int year = 0;
};

/// Three numbers with the same sign between, the year last; a midnight may follow.
std::optional<DateParts> PartsOf(QStringView cell) {
    QStringView text = cell.trimmed();
    DateParts parts;
    QChar sign;
    for (int* part : {&parts.first, &parts.second, &parts.year}) {
        const qsizetype digits = DigitsAt(text);
        const bool isYear = part == &parts.year;
        if (isYear ? digits != 4 : digits < 1 || digits > 2 || digits == text.size())
            return std::nullopt;
        *part = text.first(digits).toInt();
        text = text.sliced(digits);
        if (isYear)
            break;
        if (!QStringView(u"/.-").contains(text.front()) || (part == &parts.second && text.front() != sign))
            return std::nullopt;
        sign = text.front();
        text = text.sliced(1);
    }
    if (text.isEmpty())
        return parts;
    const std::optional<TypedTime> time = ReadTypedTime(text.trimmed());
    return text.startsWith(u' ') && time && time->timeOfDay == Seconds{} ? std::optional(parts)
                                                                         : std::nullopt;
}

} // namespace

void NumberFormFinder::Note(QStringView cell) {
    const QString text = Bare(cell);
    const bool point = IsNumber(text, NumberForm::PointDecimals);
    const bool comma = IsNumber(text, NumberForm::CommaDecimals);
    if (IsNumber(text, NumberForm::Digits) || (!point && !comma))
        return;
    if (point && comma)
        (text.contains(u'.') ? pointInDoubt_ : commaInDoubt_) = text;
    else
        ++(point ? pointDecimals_ : commaDecimals_);
}

FormFound<NumberForm> NumberFormFinder::Found() const {
    // Where cells of both forms stand, those of the rarer one are no numbers.
    if (pointDecimals_ > 0 && pointDecimals_ >= commaDecimals_)
        return {NumberForm::PointDecimals, pointInDoubt_};
    if (commaDecimals_ > 0)
        return {NumberForm::CommaDecimals, commaInDoubt_};
    if (!pointInDoubt_.isEmpty() && !commaInDoubt_.isEmpty())
        return {NumberForm::CommaDecimals, commaInDoubt_};
    if (!pointInDoubt_.isEmpty())
        return {NumberForm::CommaDecimals};
    return {commaInDoubt_.isEmpty() ? NumberForm::Digits : NumberForm::PointDecimals};
}

std::optional<QString> ReadNumber(QStringView cell, NumberForm form) {
    QString text = Bare(cell);
    if (!IsNumber(text, form))
        return std::nullopt;
    text.remove(form == NumberForm::PointDecimals ? u',' : u'.');
    return text.remove(u'+').replace(u',', u'.');
}

void DateFormFinder::Note(QStringView cell) {
    const std::optional<DateParts> parts = PartsOf(cell);
    if (!parts || parts->first == parts->second)
        return;
    const bool dayFirst = MakeDay(parts->year, parts->second, parts->first).has_value();
    const bool monthFirst = MakeDay(parts->year, parts->first, parts->second).has_value();
    dayFirst_ += dayFirst && !monthFirst ? 1 : 0;
    monthFirst_ += monthFirst && !dayFirst ? 1 : 0;
    if (dayFirst && monthFirst)
        inDoubt_ = cell.trimmed().toString();
}

FormFound<DateForm> DateFormFinder::Found() const {
    if (dayFirst_ > 0 && dayFirst_ >= monthFirst_)
        return {DateForm::DayFirst};
    if (monthFirst_ > 0)
        return {DateForm::MonthFirst};
    return {DateForm::DayFirst, inDoubt_};
}

std::optional<Day> ReadDate(QStringView cell, DateForm form) {
    if (const std::optional<WallTime> stored = ReadStored(cell.trimmed()))
        return TimeOfDay(*stored) == Seconds{} ? std::optional(DayOf(*stored)) : std::nullopt;
    const std::optional<DateParts> parts = PartsOf(cell);
    if (!parts)
        return std::nullopt;
    return form == DateForm::MonthFirst ? MakeDay(parts->year, parts->first, parts->second)
                                        : MakeDay(parts->year, parts->second, parts->first);
}
