#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "reports/printed_report.h"
#include "reports/report_criteria.h"

/// One employee, or all, day by day from date1 to date2.
/// Nothing when `progress` asks to stop. Throws DatabaseError.
MaybePrinted PrintEmployeeDetailReport(Connection& connection, const ReportCriteria& criteria,
                                       const Progress& progress);
