#pragma once

#include "database/database_file.h"
#include "support/test_company.h"
#include "tools/data_check.h"
#include "tools/demo_company.h"

#include <QDir>
#include <QFile>

inline QStringList FindingsOf(Connection& connection) {
    QStringList lines;
    CheckData(connection, [&](const Finding& finding) { lines << finding.Line(); });
    return lines;
}

inline DemoOptions DemoUntil(QStringView day, int employees = 42, int months = 3) {
    return {employees, months, DayOf(Moment(day))};
}

/// All that stands in a folder, hidden entries too.
inline QStringList EntriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}
