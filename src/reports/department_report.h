#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "reports/printed_report.h"
#include "reports/report_criteria.h"

/// The employees of a department, a division or both, day by day from date1 to date2.
/// Nothing when `progress` asks to stop. Throws DatabaseError.
MaybePrinted PrintDepartmentReport(Connection& connection, const ReportCriteria& criteria,
                                   const Progress& progress);
