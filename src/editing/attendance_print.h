#pragma once

#include "core/line_sink.h"
#include "core/progress.h"

#include <QAbstractItemModel>

struct DayRange;

/// "Tanggal: 01-Nov-2026 s/d 22-Nov-2026", the filter after it where there is one.
QString ListedPeriod(const DayRange& range, const QString& filter);

/// Hands the lines of the browser's print to the sink: the title, the line that tells the period, and a
/// fixed-width line for each row of an AttendanceModel. False when the progress asked it to stop.
bool PrintAttendance(const QAbstractItemModel& rows, const QString& periodLine, const LineSink& sink,
                     const Progress& progress);
