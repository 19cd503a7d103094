#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "reports/printed_report.h"
#include "reports/report_criteria.h"

/// Everybody's attendance on date1, in the order of `sort`; who has no card that day is absent.
/// Nothing when `progress` asks to stop. Throws DatabaseError.
MaybePrinted PrintDailyReport(Connection& connection, const ReportCriteria& criteria,
                              const Progress& progress);
