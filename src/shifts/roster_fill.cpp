#include "shifts/roster_fill.h"

#include <algorithm>

namespace {

std::vector<PlannedCell> Planned(const FillArea& area, const CodeOnDay& code) {
    std::vector<PlannedCell> cells;
    cells.reserve(area.employees.size() * (area.lastDay - area.firstDay + 1));
    for (const int employee : area.employees) {
        for (unsigned day = area.firstDay; day <= area.lastDay; ++day)
            cells.push_back({employee, day, code(employee, day)});
    }
    return cells;
}

/// The codes of the month before, from its first day.
std::vector<QString> DaysOf(int employee, std::chrono::year_month month, const CodeOnDay& stands) {
    std::vector<QString> days;
    for (unsigned day = 1; day <= DaysIn(month); ++day)
        days.push_back(stands(employee, day));
    return days;
}

} // namespace

std::vector<PlannedCell> PlanCycle(const ShiftCycle& cycle, const FillArea& area, CycleStart start) {
    std::vector<PlannedCell> cells;
    for (size_t i = 0; i < area.employees.size(); ++i) {
        for (unsigned day = area.firstDay; day <= area.lastDay; ++day) {
            const qsizetype onDay = start.DayOf(static_cast<qsizetype>(i), day - area.firstDay);
            cells.push_back({area.employees[i], day, cycle.On(onDay)});
        }
    }
    return cells;
}

std::vector<PlannedCell> PlanSwap(const FillArea& area, const CodeOnDay& stands) {
    return Planned({{area.employees.front(), area.employees.back()}, area.firstDay, area.lastDay},
                   [&](int employee, unsigned day) {
                       const bool first = employee == area.employees.front();
                       return stands(first ? area.employees.back() : area.employees.front(), day);
                   });
}

std::vector<PlannedCell> PlanSame(int from, const FillArea& area, const CodeOnDay& stands) {
    return Planned(area, [&](int, unsigned day) { return stands(from, day); });
}

CopiedMonth PlanCopy(MonthCopy how, std::chrono::year_month month, const FillArea& area,
                     const CodeOnDay& before) {
    const std::chrono::year_month source = month - std::chrono::months{1};
    CopiedMonth copied;
    for (const int employee : area.employees) {
        const std::vector<QString> days = DaysOf(employee, source, before);
        const auto rhythm = how == MonthCopy::Rhythm ? RecogniseRhythm(days) : std::nullopt;
        const bool empty = std::ranges::all_of(days, &QString::isEmpty);
        if (how == MonthCopy::Rhythm ? !rhythm : empty) {
            copied.without.push_back(employee);
            continue;
        }
        if (rhythm && rhythm->exceptions > 0)
            copied.nearly.push_back(employee);
        for (unsigned day = area.firstDay; day <= area.lastDay; ++day) {
            if (rhythm) {
                copied.cells.push_back({employee, day, rhythm->cycle.On(DaysIn(source) + day - 1)});
                continue;
            }
            const Day date{month / std::chrono::day{day}};
            const auto from =
                how == MonthCopy::SameDates ? SameDate(date, source) : SameWeekday(date, source);
            // A day that had no shift carries none on: what stands there stays.
            if (from && !days[*from - 1].isEmpty())
                copied.cells.push_back({employee, day, days[*from - 1]});
        }
    }
    return copied;
}
