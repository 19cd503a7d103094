#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "reports/printed_report.h"
#include "reports/report_criteria.h"

#include <QStringView>

/// One of the reports that can be asked for by name, and the criteria that it takes beside date1.
struct Report {
    QStringView name;
    QStringView title;
    QStringView routine; ///< for the error log
    MaybePrinted (*print)(Connection&, const ReportCriteria&, const Progress&);
    bool takesPeriod = false;
    bool takesEmployee = false;
    bool takesDepartment = false; ///< and division
    bool takesSort = false;
};

/// Null when there is no report of that name.
const Report* FindReport(QStringView name);
