#pragma once

#include "reports/report_list.h"

/// Everybody's attendance on date1, in the order of `sort`; who has no card that day is absent.
ListedCount PrintDailyReport(Connection& connection, const ReportCriteria& criteria, const LineSink& sink,
                             const Progress& progress);
