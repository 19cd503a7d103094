#pragma once

#include "reports/report_list.h"

/// The employees of a department, a division or both, day by day from date1 to date2.
ListedCount PrintDepartmentReport(Connection& connection, const ReportCriteria& criteria,
                                  const LineSink& sink, const Progress& progress);
