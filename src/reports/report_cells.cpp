#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NumberWidth = 4;
constexpr int NipWidth = 8;
constexpr int NamaWidth = 20;
constexpr int EmployeeCellsWidth = 36; ///< with all their "|"
constexpr int StatusWidth = 7;
constexpr int AttendanceWidth = 25; ///< all cells but the remark, with every "|"

void AppendTimeCell(QString& line, const std::optional<WallTime>& time) {
    if (!time) {
        line.append(u"       |"_s);
        return;
    }
    line.append(u' ');
    AppendShownMinute(line, *time);
    line.append(u" |"_s);
}

} // namespace

void AppendCell(QString& line, const QString& text, int width) {
    modGeneral::AppendPadded(line, OneLine(text), width);
    line.append(u'|');
}

QString EmployeeCells(qsizetype number, const QString& nip, const QString& nama) {
    QString line(u'|');
    line.reserve(EmployeeCellsWidth);
    line.append(QString::number(number).leftJustified(NumberWidth)).append(u'|');
    AppendCell(line, nip, NipWidth);
    AppendCell(line, nama, NamaWidth);
    return line;
}

QString DayCell(Day day) {
    return u'|' + ShownDay(day) + u'|';
}

void AppendAttendance(QString& line, const std::optional<WallTime>& timeIn,
                      const std::optional<WallTime>& timeOut, const QString& status, const QString& remark,
                      int remarkWidth) {
    line.reserve(line.size() + AttendanceWidth + remarkWidth);
    AppendTimeCell(line, timeIn);
    AppendTimeCell(line, timeOut);
    AppendCell(line, status, StatusWidth);
    AppendCell(line, remark, remarkWidth);
}

QString AbsentCells(int remarkWidth) {
    QString cells;
    AppendAttendance(cells, {}, {}, AbsentCode.toString(), {}, remarkWidth);
    return cells;
}

QString ReportPeriod(Day first, Day last) {
    return u"TANGGAL: "_s + ShownDay(first) + u" s/d "_s + ShownDay(last);
}

QString RuleLine(qsizetype width) {
    return QString(width, u'-');
}
