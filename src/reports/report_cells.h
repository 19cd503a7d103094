#pragma once

#include "database/wall_time.h"
#include "reports/report_data.h"

#include <QString>

/// Blanks for everything that would break a line or move the text behind it.
QString OneLine(const QString& text);

/// The text cut or padded to the width, and the "|" that closes it.
QString Cell(const QString& text, int width);

/// "|", the running number, the employee's number and name. A number too long for its cell is written in full
/// and moves what follows.
QString EmployeeCells(qsizetype number, const ReportEmployee& employee);

/// The cells of one attendance row: both times, the status, the remark in its width.
QString AttendanceCells(const AttendanceRow& row, int remarkWidth);
/// The same cells of somebody who has no attendance row: absent.
QString AbsentCells(int remarkWidth);

/// "TANGGAL: 01-Nov-2026 s/d 30-Nov-2026"
QString PeriodLine(Day first, Day last);

QString RuleLine(qsizetype width);
