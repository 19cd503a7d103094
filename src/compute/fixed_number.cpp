#include "compute/fixed_number.h"

#include "database/database_error.h"

#include <QLocale>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int TooLargeNumber = 90004;

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

qint64 PowerOfTen(int exponent) {
    qint64 power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

/// Reads digits from the start of a text, one at a time.
class DigitReader {
public:
    explicit DigitReader(QStringView text) : text_(text) {}

    bool AtDigit() const { return at_ < text_.size() && IsDigit(text_[at_]); }
    /// 0 where no digit stands.
    int Next() { return AtDigit() ? text_[at_++].unicode() - u'0' : 0; }
    bool Skip(QChar c) {
        const bool found = at_ < text_.size() && text_[at_] == c;
        at_ += found ? 1 : 0;
        return found;
    }
    /// True for a minus.
    bool SkipSign() {
        const bool minus = Skip(u'-');
        if (!minus)
            Skip(u'+');
        return minus;
    }
    QStringView Rest() const { return text_.sliced(at_); }

private:
    QStringView text_;
    qsizetype at_ = 0;
};

/// Whether the digits that follow a number of this parity round it up.
bool RoundsUp(DigitReader& rest, bool isOdd) {
    const int first = rest.Next();
    if (first != 5)
        return first > 5;
    while (rest.AtDigit()) {
        if (rest.Next() != 0)
            return true;
    }
    return isOdd;
}

} // namespace

qint64 RoundedQuotient(qint64 dividend, qint64 divisor) {
    const qint64 quotient = dividend / divisor;
    const qint64 rest = qAbs(dividend % divisor);
    const bool away = rest > divisor - rest || (rest == divisor - rest && quotient % 2 != 0);
    if (!away)
        return quotient;
    return dividend < 0 ? quotient - 1 : quotient + 1;
}

QStringView UnreadPart(QStringView text) {
    DigitReader digits(text.trimmed());
    digits.SkipSign();
    while (digits.AtDigit())
        digits.Next();
    if (digits.Skip(u'.')) {
        while (digits.AtDigit())
            digits.Next();
    }
    return digits.Rest();
}

qint64 fixed_units::FromText(QStringView text, int places) {
    DigitReader digits(text.trimmed());
    const bool negative = digits.SkipSign();
    qint64 units = 0;
    const auto append = [&units, text](int digit) {
        // The last digit is left free for rounding up.
        if (units > std::numeric_limits<qint64>::max() / 10 - 1)
            throw ProgramError(ErrorKind::NumberTooLarge, TooLargeNumber, u"number too large: %1"_s.arg(text),
                               {text.toString()});
        units = units * 10 + digit;
    };
    while (digits.AtDigit())
        append(digits.Next());
    const bool hasFraction = digits.Skip(u'.');
    for (int i = 0; i < places; ++i)
        append(hasFraction ? digits.Next() : 0);
    if (hasFraction && RoundsUp(digits, units % 2 != 0))
        ++units;
    return negative ? -units : units;
}

qint64 fixed_units::FromField(const FieldValue& value, int places) {
    const QVariant& stored = value.Stored();
    if (stored.typeId() == QMetaType::Double)
        return FromText(QString::number(stored.toDouble(), 'f', QLocale::FloatingPointShortest), places);
    return FromText(stored.toString(), places);
}

QString fixed_units::Text(qint64 units, int places) {
    const qint64 one = PowerOfTen(places);
    QString text = QString::number(qAbs(units / one));
    if (const qint64 fraction = qAbs(units % one); fraction != 0) {
        text += u'.' + QString::number(fraction).rightJustified(places, u'0');
        while (text.endsWith(u'0'))
            text.chop(1);
    }
    return units < 0 ? u'-' + text : text;
}

FieldValue fixed_units::Field(qint64 units, int places) {
    const qint64 one = PowerOfTen(places);
    if (units % one == 0)
        return FieldValue(QVariant(units / one));
    // Up to 53 bits both are exact as doubles, so the quotient is the very double that the digits stand for.
    return static_cast<double>(units) / static_cast<double>(one);
}
