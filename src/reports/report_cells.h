#pragma once

#include "core/text_table.h"
#include "database/wall_time.h"

#include <QString>

#include <optional>

using modGeneral::OneLine;

/// Appends the text, cut or padded to the width, and the "|" that closes its cell.
void AppendCell(QString& line, const QString& text, int width);

/// Appends "|", the running number, the employee's number and name. A number too long for its cell is written
/// in full and moves what follows.
void AppendEmployeeCells(QString& line, qsizetype number, const QString& nip, const QString& nama);

/// "|22-Nov-2026|"
QString DayCell(Day day);

/// Appends a time in its cell, given as the minute of its day; blanks for a time below 0, which was never
/// set.
void AppendTimeCell(QString& line, int minuteOfDay);
/// Appends the cells of a status and of a remark in its width.
void AppendStatusAndRemark(QString& line, const QString& status, const QString& remark, int remarkWidth);
/// The cells of times, status and remark of somebody who has no card: absent.
QString AbsentCells(int remarkWidth);

/// "TANGGAL: 01-Nov-2026 s/d 30-Nov-2026"
QString ReportPeriod(Day first, Day last);

QString RuleLine(qsizetype width);
