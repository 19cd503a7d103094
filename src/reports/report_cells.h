#pragma once

#include "core/text_table.h"
#include "database/wall_time.h"

#include <QString>

#include <optional>

/// The status of a day without any attendance.
inline constexpr QStringView AbsentCode = u"A";

using modGeneral::OneLine;

/// Appends the text, cut or padded to the width, and the "|" that closes its cell.
void AppendCell(QString& line, const QString& text, int width);

/// "|", the running number, the employee's number and name. A number too long for its cell is written in full
/// and moves what follows.
QString EmployeeCells(qsizetype number, const QString& nip, const QString& nama);

/// "|22-Nov-2026|"
QString DayCell(Day day);

/// Appends what a time card says of a day: both times, blank when never set, the status, the remark in its
/// width.
void AppendAttendance(QString& line, const std::optional<WallTime>& timeIn,
                      const std::optional<WallTime>& timeOut, const QString& status, const QString& remark,
                      int remarkWidth);
/// The same cells of somebody who has no card: absent.
QString AbsentCells(int remarkWidth);

/// "TANGGAL: 01-Nov-2026 s/d 30-Nov-2026"
QString ReportPeriod(Day first, Day last);

QString RuleLine(qsizetype width);
