#include "compute/time_card_rules.h"

#include "core/status_codes.h"

namespace {

bool HasHours(const CardData& card) {
    const bool clockedOut = card.status == CardStatus::Out || card.status == CardStatus::OutShort
                            || card.status == CardStatus::LeftEarly;
    return card.shiftCode != ShiftCode::DayOff && clockedOut && TimeIfSet(card.timeIn)
           && TimeIfSet(card.timeOut);
}

int DayOfMonth(WallTime time) {
    const std::chrono::year_month_day date{DayOf(time)};
    return static_cast<int>(static_cast<unsigned>(date.day()));
}

bool CrossesMidnight(const ShiftHours& shift) {
    return DayOfMonth(shift.end) > DayOfMonth(shift.start);
}

WallTime ScheduledEnd(const ShiftHours& shift, WallTime timeIn, WallTime timeOut) {
    return TimeOnDay(DayOf(CrossesMidnight(shift) ? timeOut : timeIn), TimeOfDay(shift.end));
}

bool IsDaily(const PayData& pay) {
    return pay.employeeType.trimmed().toUpper() == PayType::Daily;
}

} // namespace

CardResult ComputeCard(const CardData& card) {
    CardResult result;
    bool mealGranted = false;
    if (HasHours(card)) {
        const WallTime scheduledEnd = ScheduledEnd(card.shift, *card.timeIn, *card.timeOut);
        result.normalHours = NormalHoursOf(scheduledEnd - *card.timeIn);
        result.overtimeHours = OvertimeHoursOf(scheduledEnd - *card.timeOut);
        result.day = DayResult{scheduledEnd, *card.timeOut, card.shiftCode.toUpper()};
        mealGranted = card.mealGranted;
    }
    // Monthly pay does not accrue by the card; a daily employee's does even without hours.
    result.normalAmount = IsDaily(card.pay) ? card.pay.basicPay : Money();
    result.overtimeAmount = AmountFor(result.overtimeHours, card.pay.overtimeRate);
    result.mealTotal = mealGranted ? card.pay.mealAllowance : Money();
    return result;
}
