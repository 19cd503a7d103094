#include "reports/day_tables.h"

#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

namespace {

/// The line of a day on which somebody has no card: the same for every employee, made once.
struct AbsentDay {
    Day day;
    QString line;
};

std::vector<AbsentDay> DaysOf(const ReportCriteria& criteria) {
    const QString absent = AbsentCells(DayTableRemarkWidth);
    std::vector<AbsentDay> days;
    for (Day day = criteria.date1; day <= criteria.date2; day += std::chrono::days{1})
        days.push_back({day, DayCell(day) + absent});
    return days;
}

/// The rows stand in the order of the days, so each day's are the next ones.
void WriteDays(QStringList& lines, const std::vector<AbsentDay>& days,
               const std::vector<AttendanceRow>& rows) {
    static const QString sameDay = u"|           |"_s;
    auto row = rows.cbegin();
    for (const AbsentDay& day : days) {
        if (row == rows.cend() || row->day != day.day) {
            lines << day.line;
            continue;
        }
        lines << row->line;
        for (++row; row != rows.cend() && row->day == day.day; ++row)
            lines << sameDay + row->line.sliced(sameDay.size());
    }
}

} // namespace

MaybePrinted PrintDayTables(const QString& title, const ReportCriteria& criteria, const DayTableData& data,
                            const std::function<QStringList(const ReportEmployee&)>& heading,
                            const Progress& progress) {
    const QString titles = u"|Tanggal    |TimeIN |TimeOUT|Status |Keterangan                        |"_s;
    const QString rule = RuleLine(titles.size());
    const std::vector<AbsentDay> days = DaysOf(criteria);
    const std::vector<AttendanceRow> none;
    PrintedReport report;
    report.lines << title << ReportPeriod(criteria.date1, criteria.date2);
    for (const ReportEmployee& employee : data.employees) {
        if (!progress(report.employees++, std::ssize(data.employees)))
            return std::nullopt;
        report.lines << QString() << heading(employee) << QString() << rule << titles << rule;
        const auto rows = data.attendance.constFind(employee.nip);
        WriteDays(report.lines, days, rows == data.attendance.cend() ? none : *rows);
        report.lines << rule;
    }
    return report;
}
