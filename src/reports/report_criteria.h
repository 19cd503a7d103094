#pragma once

#include "cards/card_lines.h"
#include "core/code_lists.h"

#include <QString>

/// A department or division as it was chosen: what rows hold, and what the user reads.
struct ReportChoice {
    QString code = AllChoice.toString();
    QString shown = AllChoice.toString();

    bool Filters() const { return code != AllChoice; }
    /// The code to filter by; nothing for all.
    std::optional<QString> Code() const { return Filters() ? std::optional(code) : std::nullopt; }
};

/// What was asked for. Every report takes those criteria that concern it and passes over the others.
struct ReportCriteria {
    Day date1{}; ///< the only day of the daily report
    Day date2{}; ///< before date1: a period without days
    QString employee = AllChoice.toString();
    ReportChoice department = {};
    ReportChoice division = {};
    QString sort = {}; ///< columns of Employee, ready for ORDER BY

    /// The cards of the period and of the chosen department and division.
    CardFilter Filter() const { return {DayRange{date1, date2}, {}, department.Code(), division.Code()}; }
};
