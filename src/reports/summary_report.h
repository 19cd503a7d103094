#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "reports/printed_report.h"
#include "reports/report_criteria.h"

/// How many days of each status the employees of a department, a division or both have from date1 to date2.
/// Nothing when `progress` asks to stop. Throws DatabaseError.
MaybePrinted PrintSummaryReport(Connection& connection, const ReportCriteria& criteria,
                                const Progress& progress);
