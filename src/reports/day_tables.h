#pragma once

#include "core/progress.h"
#include "reports/printed_report.h"
#include "reports/report_data.h"

#include <functional>

/// How wide "Keterangan" is in them.
inline constexpr int DayTableRemarkWidth = 34;

/// What is read before the day tables of a report are written.
struct DayTableData {
    std::vector<ReportEmployee> employees;
    AttendanceByNip attendance;
};

/// One employee after the other: what `heading` says of them, then a table of every day from date1 to date2.
/// Nothing when `progress` asks to stop.
MaybePrinted PrintDayTables(const QString& title, const ReportCriteria& criteria, const DayTableData& data,
                            const std::function<QStringList(const ReportEmployee&)>& heading,
                            const Progress& progress);
