#pragma once

#include "reports/report_list.h"

/// How many days of each status the employees of a department, a division or both have from date1 to date2.
ListedCount PrintSummaryReport(Connection& connection, const ReportCriteria& criteria, const LineSink& sink,
                               const Progress& progress);
