#pragma once

#include "compute/dotted_hours.h"
#include "compute/fixed_number.h"

#include <optional>

/// An amount of money keeps four decimals.
using Money = FixedNumber<4>;

/// Pay for one unit of dotted hours. Rates are stored with whatever decimals they were given; eight of them
/// count.
using HourlyRate = FixedNumber<8>;

/// The dotted hours multiplied by the rate as the number that they are: 0.3 hours at 10000 are 3000. Throws
/// ProgramError when the amount is too large for Money.
Money AmountFor(DottedHours hours, HourlyRate rate);

/// A stored number in digits only, which read back as the same; "" for none. One that is too large for Money
/// has got into the database from elsewhere: it is shown all the same, so that it can be corrected.
QString DigitsOf(const std::optional<double>& number);
