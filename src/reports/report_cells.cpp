#include "reports/report_cells.h"

#include "core/status_codes.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NumberWidth = 4;
constexpr int NipWidth = 8;
constexpr int NamaWidth = 20;
constexpr int StatusWidth = 7;

} // namespace

void AppendCell(QString& line, const QString& text, int width) {
    modGeneral::AppendCellText(line, text, width);
    line.append(u'|');
}

void AppendEmployeeCells(QString& line, qsizetype number, const QString& nip, const QString& nama) {
    const QString digits = QString::number(number);
    line.append(u'|');
    modGeneral::AppendPadded(line, digits, qMax(NumberWidth, static_cast<int>(digits.size())));
    line.append(u'|');
    AppendCell(line, nip, NipWidth);
    AppendCell(line, nama, NamaWidth);
}

QString DayCell(Day day) {
    return u'|' + ShownDay(day) + u'|';
}

void AppendTimeCell(QString& line, int minuteOfDay) {
    if (minuteOfDay < 0) {
        line.append(u"       |"_s);
        return;
    }
    const auto digit = [](int value) { return static_cast<char16_t>(u'0' + value % 10); };
    const int hour = minuteOfDay / 60;
    const int minute = minuteOfDay % 60;
    const char16_t cell[] = {
        u' ', digit(hour / 10), digit(hour), u':', digit(minute / 10), digit(minute), u' ', u'|'};
    line.append(QStringView(cell, std::ssize(cell)));
}

void AppendStatusAndRemark(QString& line, const QString& status, const QString& remark, int remarkWidth) {
    AppendCell(line, status, StatusWidth);
    AppendCell(line, remark, remarkWidth);
}

QString AbsentCells(int remarkWidth) {
    QString cells;
    AppendTimeCell(cells, -1);
    AppendTimeCell(cells, -1);
    AppendStatusAndRemark(cells, CardStatus::Absent.toString(), {}, remarkWidth);
    return cells;
}

QString ReportPeriod(Day first, Day last) {
    return u"TANGGAL: "_s + ShownDay(first) + u" s/d "_s + ShownDay(last);
}

QString RuleLine(qsizetype width) {
    return QString(width, u'-');
}
