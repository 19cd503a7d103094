#pragma once

#include "compute/money.h"
#include "compute/shift_resolution.h"
#include "database/wall_time.h"

#include <QString>

#include <optional>

/// What an employee is paid by. An employee without a record has nothing of it.
struct PayData {
    Money basicPay; ///< for daily employees the pay for one day
    HourlyRate overtimeRate;
    Money mealAllowance; ///< for one day
    QString employeeType;
};

/// What a card's hours and amounts follow from.
struct CardData {
    QString status;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    bool mealGranted = false;
    QString shiftCode;
    ShiftHours shift;
    PayData pay;
};

/// What the computation writes back onto the day row.
struct DayResult {
    WallTime overtimeIn; ///< the scheduled end of the shift
    WallTime overtimeOut;
    QString shiftCode;
};

struct CardResult {
    DottedHours normalHours;
    DottedHours overtimeHours;
    Money normalAmount;
    Money overtimeAmount;
    Money mealTotal;
    /// Nothing when the day row stays as it is.
    std::optional<DayResult> day;
};

/// Hours count on a card that was clocked out (status OUT, OU or PC) on a day that is not off. Normal hours
/// run from arrival to the scheduled end; overtime is what the departure lies before the scheduled end. A
/// card that lacks one of the two times, or holds the empty time for it, gets no hours and its day row stays
/// as it is. Throws ProgramError when an amount is too large.
CardResult ComputeCard(const CardData& card);
