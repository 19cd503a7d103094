#include "compute/shift_resolution.h"

#include "core/status_codes.h"

#include <algorithm>

QString modAbsen::ResolveShift(const QString& rosterCode, const std::optional<WallTime>& clockIn,
                               const std::vector<ShiftRow>& shifts) {
    if (!rosterCode.isEmpty())
        return rosterCode;
    const auto contains = [&clockIn](const ShiftRow& shift) {
        const WallTime time = TimeOnDay(DayZero, TimeOfDay(*clockIn));
        return shift.timeIn && shift.timeOut && *shift.timeIn <= time && time <= *shift.timeOut;
    };
    const auto found = clockIn ? std::ranges::find_if(shifts, contains) : shifts.end();
    return found == shifts.end() || found->code.isEmpty() ? ShiftCode::Default.toString() : found->code;
}

std::optional<ShiftHours> modAbsen::HoursOfShift(const std::vector<ShiftRow>& shifts, const QString& code) {
    const auto found = std::ranges::find(shifts, code, &ShiftRow::code);
    if (found == shifts.end())
        return std::nullopt;
    return ShiftHours{found->timeIn.value_or(EmptyTime), found->timeOut.value_or(EmptyTime)};
}
