#pragma once

#include "reports/report_list.h"

/// One employee, or all, day by day from date1 to date2.
ListedCount PrintEmployeeDetailReport(Connection& connection, const ReportCriteria& criteria,
                                      const LineSink& sink, const Progress& progress);
