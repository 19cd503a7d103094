#include "compute/time_card_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool HasHours(const CardData& card) {
    static const QStringList clockedOut{u"OUT"_s, u"OU"_s, u"PC"_s};
    return card.shiftCode != DayOff && clockedOut.contains(card.status) && TimeIfSet(card.timeIn)
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
    return pay.employeeType.trimmed().toUpper() == QStringView(u"HRN");
}

} // namespace

QString ShiftAround(const std::vector<ShiftRow>& shifts, Seconds timeOfDay) {
    const WallTime time = TimeOnDay(DayZero, timeOfDay);
    const auto found = std::ranges::find_if(shifts, [time](const ShiftRow& shift) {
        return shift.timeIn && shift.timeOut && *shift.timeIn <= time && time <= *shift.timeOut;
    });
    return found == shifts.end() ? QString() : found->code;
}

ShiftHours HoursOfShift(const std::vector<ShiftRow>& shifts, const QString& code) {
    const auto found = std::ranges::find(shifts, code, &ShiftRow::code);
    if (found == shifts.end())
        return {};
    return {found->timeIn.value_or(EmptyTime), found->timeOut.value_or(EmptyTime)};
}

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
