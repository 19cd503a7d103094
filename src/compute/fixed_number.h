#pragma once

#include "database/field_value.h"

#include <QString>

#include <compare>

/// Rounds to the nearest whole number, halves to the even one. The divisor is above 0.
qint64 RoundedQuotient(qint64 dividend, qint64 divisor);

/// What follows the number that a text begins with: FixedNumber::FromText reads nothing of it.
QStringView UnreadPart(QStringView text);

/// The arithmetic behind FixedNumber: numbers counted in units of 10 to the power of minus `places`.
namespace fixed_units {
qint64 FromText(QStringView text, int places);
qint64 FromField(const FieldValue& value, int places);
QString Text(qint64 units, int places);
FieldValue Field(qint64 units, int places);
} // namespace fixed_units

/// An exact decimal number with this many places after the point. What has more is rounded to the nearest,
/// halves to even. Numbers that do not fit are refused with a ProgramError.
template<int Places>
class FixedNumber {
public:
    constexpr FixedNumber() = default; ///< 0
    static constexpr FixedNumber FromUnits(qint64 units) { return FixedNumber(units); }

    /// The number that the text begins with, read up to the first character that cannot belong to it (a
    /// second point, for one); 0 when it begins with none. Blanks in front do not count.
    static FixedNumber FromText(QStringView text) { return FixedNumber(fixed_units::FromText(text, Places)); }

    /// The number with the digits that a stored number prints with; 0 for null. A text is read by FromText.
    static FixedNumber FromField(const FieldValue& value) {
        return FixedNumber(fixed_units::FromField(value, Places));
    }

    /// The number in units of the last place.
    constexpr qint64 Units() const { return units_; }
    /// The digits, without a point or zeros that say nothing: "9.15", "8.3", "3000".
    QString Text() const { return fixed_units::Text(units_, Places); }
    /// The number to be stored. It reads back as the same digits: whole numbers always, others up to 15
    /// digits in all.
    FieldValue Field() const { return fixed_units::Field(units_, Places); }

    constexpr auto operator<=>(const FixedNumber&) const = default;

private:
    constexpr explicit FixedNumber(qint64 units) : units_(units) {}

    qint64 units_ = 0;
};
