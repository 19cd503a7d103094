#pragma once

#include "core/line_sink.h"
#include "core/progress.h"
#include "database/connection.h"
#include "reports/report_criteria.h"

#include <QStringView>

#include <optional>

/// How many employees a report lists; nothing when the progress asked it to stop.
using ListedCount = std::optional<qsizetype>;

/// One of the reports that can be asked for by name, and the criteria that it takes beside date1.
struct Report {
    QStringView name;
    QStringView title;
    QStringView routine; ///< for the error log
    /// Hands the report's lines to the sink. Throws DatabaseError, and what the sink throws.
    ListedCount (*print)(Connection&, const ReportCriteria&, const LineSink&, const Progress&);
    bool takesPeriod = false;
    bool takesEmployee = false;
    bool takesDepartment = false; ///< and division
    bool takesSort = false;
};

/// Null when there is no report of that name.
const Report* FindReport(QStringView name);
