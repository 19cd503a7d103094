#pragma once

#include "core/progress.h"

#include <QAbstractItemModel>
#include <QStringList>

#include <optional>

struct DayRange;

/// "Tanggal: 01-Nov-2026 s/d 22-Nov-2026", the filter after it where there is one.
QString ListedPeriod(const DayRange& range, const QString& filter);

/// The lines of the browser's print: the title, the line that tells the period, and a fixed-width line for
/// each row of an AttendanceModel. Nothing when the progress asked it to stop.
std::optional<QStringList> PrintAttendance(const QAbstractItemModel& rows, const QString& periodLine,
                                           const Progress& progress);
