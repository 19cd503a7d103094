#pragma once

#include "core/line_sink.h"
#include "core/progress.h"
#include "database/connection.h"
#include "reports/report_criteria.h"

#include <QStringView>

#include <optional>

/// How many employees a report lists; nothing when the progress asked it to stop.
using ListedCount = std::optional<qsizetype>;

/// Hands a report's lines to the sink. Throws DatabaseError, and what the sink throws.
using ReportPrinter = ListedCount(Connection&, const ReportCriteria&, const LineSink&, const Progress&);

/// Everybody's attendance on date1, in the order of `sort`; who has no card that day is absent.
ReportPrinter PrintDailyReport;
/// One employee, or all, day by day from date1 to date2.
ReportPrinter PrintEmployeeDetailReport;
/// The employees of a department, a division or both, day by day from date1 to date2.
ReportPrinter PrintDepartmentReport;
/// How many days of each status the employees of a department, a division or both have from date1 to date2.
ReportPrinter PrintSummaryReport;

/// One of the reports that can be asked for by name, and the criteria that it takes beside date1.
struct Report {
    QStringView name;
    QStringView title;
    QStringView routine; ///< for the error log
    ReportPrinter* print;
    bool takesPeriod = false;
    bool takesEmployee = false;
    bool takesDepartment = false; ///< and division
    bool takesSort = false;
};

/// Null when there is no report of that name.
const Report* FindReport(QStringView name);
