#pragma once

#include "compute/money.h"
#include "database/wall_time.h"

#include <QString>

#include <optional>
#include <vector>

/// The codes that have a meaning of their own.
inline constexpr QStringView DefaultShift = u"P";
inline constexpr QStringView DayOff = u"O";

/// Scheduled start and end. They stand on the base date; a night shift ends on the day after it. A shift that
/// is described nowhere has the empty time at both.
struct ShiftHours {
    WallTime start = EmptyTime;
    WallTime end = EmptyTime;
};

/// A row of the shift codes.
struct ShiftRow {
    QString code;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
};

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

/// The shift in whose hours the time of day falls, both ends included: the first one in the order given. ""
/// when there is none.
QString ShiftAround(const std::vector<ShiftRow>& shifts, Seconds timeOfDay);

/// The code's hours; those of a shift that is described nowhere when the code is unknown.
ShiftHours HoursOfShift(const std::vector<ShiftRow>& shifts, const QString& code);

/// Hours count on a card that was clocked out (status OUT, OU or PC) on a day that is not off. Normal hours
/// run from arrival to the scheduled end; overtime is what the departure lies before the scheduled end. A
/// card that lacks one of the two times, or holds the empty time for it, gets no hours and its day row stays
/// as it is. Throws ProgramError when an amount is too large.
CardResult ComputeCard(const CardData& card);
