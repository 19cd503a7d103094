#pragma once

#include "shifts/roster_month.h"

/// The ways in which many days of the roster are filled at once.
enum class FillWay { Pattern, Swap, CopyMonth, SameAs };

/// What a person asks for, as it was typed and chosen.
struct FillWish {
    FillWay way = FillWay::Pattern;
    /// The days, and who gets them, in order.
    FillArea area = {};
    QString cycle = {};
    CycleStart start = {};
    MonthCopy copy = MonthCopy::Rhythm;
    /// For an exchange both employees, for a copy the one who is copied.
    QString firstNip = {};
    QString secondNip = {};
};

struct FillPlan {
    std::vector<PlannedCell> cells = {};
    /// What the person should know before it is done; empty for nothing.
    QString note = {};
    /// The codes in it that are no shift of the company.
    QStringList unlisted = {};
};

/// The cells that a wish means in a month, from what stands there and in the month before. Throws
/// ProgramError, in the user's words, for a wish that cannot be understood.
FillPlan PlanFill(const FillWish& wish, const RosterMonth& month, const RosterMonth& before);
