#pragma once

#include <QStringList>

#include <optional>

/// The lines of one report, as they go into the report file.
struct PrintedReport {
    QStringList lines;
    qsizetype employees = 0; ///< how many it lists
};

/// Nothing when the work was stopped on the way.
using MaybePrinted = std::optional<PrintedReport>;
