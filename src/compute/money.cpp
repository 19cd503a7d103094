#include "compute/money.h"

#include "database/database_error.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int AmountTooLargeNumber = 90005;

/// A little below what the units of Money can hold, in those units.
constexpr double AmountLimit = 9.2e18;

/// In hundredths of hours; ten times what the calendar's ten thousand years hold.
constexpr qint64 HoursLimit = 90'000'000'000;

} // namespace

Money AmountFor(DottedHours hours, HourlyRate rate) {
    constexpr qint64 One = 100'000'000; // a rate of 1, in units of its last place
    const double estimate = static_cast<double>(hours.Units()) * static_cast<double>(rate.Units()) / 1e6;
    if (std::abs(estimate) > AmountLimit || qAbs(hours.Units()) > HoursLimit)
        throw ProgramError(ErrorKind::AmountTooLarge, AmountTooLargeNumber,
                           u"amount too large: %1 hours x %2"_s.arg(hours.Text(), rate.Text()),
                           {hours.Text(), rate.Text()});
    // The full product has ten decimals and does not fit into 64 bits: the whole part of the rate and its
    // decimals are multiplied apart.
    const qint64 whole = hours.Units() * (rate.Units() / One) * 100;
    const qint64 decimals = RoundedQuotient(hours.Units() * (rate.Units() % One), 1'000'000);
    return Money::FromUnits(whole + decimals);
}

QString DigitsOf(const std::optional<double>& number) {
    constexpr double TooLarge = 1e14;
    if (!number)
        return {};
    return std::abs(*number) < TooLarge ? Money::FromField(FieldValue(*number)).Text()
                                        : QString::number(*number, 'f', QLocale::FloatingPointShortest);
}
