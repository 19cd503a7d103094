#pragma once

#include "database/wall_time.h"
#include "tools/demo_staff.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

/// A shift of the demo company. The times are counted from the midnight at which its day begins; a shift that
/// ends the next morning ends after 24 hours.
struct DemoShift {
    QStringView code;
    Seconds start;
    Seconds end;

    bool IsDayOff() const { return start == end; }
};

std::span<const DemoShift> DemoShifts();

/// The shift that the employee is to work on the day; a shift that IsDayOff when none.
const DemoShift& PlannedShift(const DemoEmployee& employee, Day day);

/// A time card with its one day row. Times that were not recorded are absent.
struct DemoCard {
    QString sheet;
    QString nip;
    Day day{};
    QString status;
    QString keterangan;
    std::optional<WallTime> timeIn{};
    std::optional<WallTime> timeOut{};
    std::optional<WallTime> overtimeIn{};
    std::optional<WallTime> overtimeOut{};
    QString shiftCode{};
};

/// What the employee left on the day's sheets: no card, one, or rarely a second on the extended sheet "-1".
/// Depends on employee and day alone.
std::vector<DemoCard> CardsOf(const DemoEmployee& employee, Day day);
