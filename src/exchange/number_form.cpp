#include "exchange/number_form.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// What counts of a number's cell.
QString Bare(QStringView cell) {
    static const QRegularExpression currency(u"^(-?)\\s*Rp\\.?\\s*"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    return cell.trimmed().toString().replace(currency, u"\\1"_s);
}

const QRegularExpression& Numbers(NumberForm form) {
    static const QRegularExpression digits(u"^[+-]?\\d+$"_s);
    static const QRegularExpression point(u"^[+-]?(\\d+|\\d{1,3}(,\\d{3})+)(\\.\\d+)?$"_s);
    static const QRegularExpression comma(u"^[+-]?(\\d+|\\d{1,3}(\\.\\d{3})+)(,\\d+)?$"_s);
    switch (form) {
    case NumberForm::PointDecimals:
        return point;
    case NumberForm::CommaDecimals:
        return comma;
    case NumberForm::Digits:
        break;
    }
    return digits;
}

bool IsNumber(const QString& text, NumberForm form) {
    return Numbers(form).match(text).hasMatch();
}

struct DateParts {
    int first = 0;
    int second = 0;
    int year = 0;
};

std::optional<DateParts> PartsOf(QStringView cell) {
    static const QRegularExpression date(
        u"^(\\d{1,2})([/.-])(\\d{1,2})\\2(\\d{4})(?: 0?0[:.]00(?:[:.]00)?)?$"_s);
    const QRegularExpressionMatch match = date.match(cell.trimmed().toString());
    if (!match.hasMatch())
        return std::nullopt;
    return DateParts{match.capturedView(1).toInt(), match.capturedView(3).toInt(),
                     match.capturedView(4).toInt()};
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
