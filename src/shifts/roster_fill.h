#pragma once

#include "shifts/shift_rhythm.h"

#include <functional>

/// A day of an employee that is to get a code. Employees are counted as the month shows them, days from 1; an
/// empty code is a day without a shift.
struct PlannedCell {
    int employee;
    unsigned day;
    QString code;
};

/// The days of employees that are filled.
struct FillArea {
    std::vector<int> employees;
    unsigned firstDay = 1;
    unsigned lastDay = 31;
};

/// What stands on a day of an employee in a month that was read.
using CodeOnDay = std::function<QString(int employee, unsigned day)>;

/// How a month goes on in the next one.
enum class MonthCopy { Rhythm, SameDates, SameWeekdays };

/// A month that went on, and with whom it did not.
struct CopiedMonth {
    std::vector<PlannedCell> cells = {};
    /// The employees in whose days there was nothing to carry on.
    std::vector<int> without = {};
    /// Those whose rhythm has days that it does not explain.
    std::vector<int> nearly = {};
};

/// The area filled with a cycle, in the order of its employees.
std::vector<PlannedCell> PlanCycle(const ShiftCycle& cycle, const FillArea& area, CycleStart start);
/// The days of two employees exchanged: those of the area's first and last.
std::vector<PlannedCell> PlanSwap(const FillArea& area, const CodeOnDay& stands);
/// One employee's days given to those of the area.
std::vector<PlannedCell> PlanSame(int from, const FillArea& area, const CodeOnDay& stands);
/// The area of a month filled as the month before goes on there.
CopiedMonth PlanCopy(MonthCopy how, std::chrono::year_month month, const FillArea& area,
                     const CodeOnDay& before);
