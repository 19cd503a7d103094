#pragma once

#include "database/wall_time.h"

/// A roster's period as it is typed and stored: its year and month go into a statement as they stand.
struct RosterPeriod {
    QString year;
    QString month;
    std::chrono::year_month value;
};

/// Reads "YYYYMM". Throws StatementError, in the user's words, for a text that names no month.
RosterPeriod ReadPeriod(const QString& period);
QString PeriodOf(std::chrono::year_month month);

std::chrono::year_month MonthOf(Day day);
/// "November 2026"
QString MonthName(std::chrono::year_month month);
