#include "reports/report_cells.h"

#include "core/text_table.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int NumberWidth = 4;
constexpr int StatusWidth = 7;

bool BreaksTheLine(QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator
           || c == QChar::ParagraphSeparator;
}

QString TimeCell(const std::optional<WallTime>& time) {
    return time ? u' ' + ShownMinute(*time) + u" |"_s : u"       |"_s;
}

} // namespace

QString OneLine(const QString& text) {
    if (std::ranges::none_of(text, BreaksTheLine))
        return text;
    QString line = text;
    line.replace(u"\r\n"_s, u" "_s);
    std::ranges::replace_if(line, BreaksTheLine, QChar(u' '));
    return line;
}

QString Cell(const QString& text, int width) {
    return modGeneral::PadText(OneLine(text), width) + u'|';
}

QString EmployeeCells(qsizetype number, const ReportEmployee& employee) {
    const QString numberCell = QString::number(number).leftJustified(NumberWidth);
    return u'|' + numberCell + u'|' + Cell(employee.nip, 8) + Cell(employee.nama, 20);
}

QString AttendanceCells(const AttendanceRow& row, int remarkWidth) {
    return TimeCell(row.timeIn) + TimeCell(row.timeOut) + Cell(row.status, StatusWidth)
           + Cell(row.keterangan, remarkWidth);
}

QString AbsentCells(int remarkWidth) {
    return AttendanceCells({.status = AbsentCode.toString()}, remarkWidth);
}

QString PeriodLine(Day first, Day last) {
    return u"TANGGAL: "_s + ShownDay(first) + u" s/d "_s + ShownDay(last);
}

QString RuleLine(qsizetype width) {
    return QString(width, u'-');
}
