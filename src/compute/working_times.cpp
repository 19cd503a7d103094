#include "compute/working_times.h"

#include "core/status_codes.h"

bool WorkingTimes::IsDayOff(const QString& code, const std::vector<ShiftRow>& shifts) {
    const auto shift = modAbsen::HoursOfShift(shifts, code);
    return code == ShiftCode::DayOff || (shift && shift->start == shift->end);
}

bool WorkingTimes::EndsAfterMidnight(const ShiftHours& shift) {
    return DayOf(shift.end) > DayOf(shift.start) || TimeOfDay(shift.end) < TimeOfDay(shift.start);
}

ShiftHours WorkingTimes::ShiftOn(const ShiftHours& shift, Day day) {
    const std::chrono::days later{EndsAfterMidnight(shift) ? 1 : 0};
    return {TimeOnDay(day, TimeOfDay(shift.start)), TimeOnDay(day + later, TimeOfDay(shift.end))};
}

std::optional<ShiftHours> WorkingTimes::ShiftWorked(const QString& rosterCode,
                                                    const std::optional<WallTime>& arrival,
                                                    const std::vector<ShiftRow>& shifts) {
    return modAbsen::HoursOfShift(shifts, modAbsen::ResolveShift(rosterCode, arrival, shifts));
}
