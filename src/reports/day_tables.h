#pragma once

#include "reports/attendance_rows.h"
#include "reports/report_list.h"

/// What sets a report of day tables apart.
struct DayTables {
    QString title;
    CardFilter filter;
    /// What is said of an employee above the table.
    std::function<QStringList(const ListedEmployee&)> heading;
};

/// One employee after the other: the heading, then a table of every day of the period. Throws as
/// Report::print does.
ListedCount PrintDayTables(Connection& connection, const DayTables& tables, const LineSink& sink,
                           const Progress& progress);
