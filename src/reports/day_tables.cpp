#include "reports/day_tables.h"

#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RemarkWidth = 34;

/// What is the same for every employee on one day of the period, made once.
struct DayLines {
    Day day;
    QString prefix;
    QString absent;
};

std::vector<DayLines> DaysOf(const ReportCriteria& criteria) {
    const QString absent = AbsentCells(RemarkWidth);
    std::vector<DayLines> days;
    for (Day day = criteria.date1; day <= criteria.date2; day += std::chrono::days{1}) {
        const QString prefix = u'|' + ShownDay(day) + u'|';
        days.push_back({day, prefix, prefix + absent});
    }
    return days;
}

/// The rows stand in the order of the days, so each day's are the next ones.
void WriteDays(QStringList& lines, const std::vector<DayLines>& days,
               const std::vector<AttendanceRow>& rows) {
    static const QString sameDay = u"|           |"_s;
    auto row = rows.cbegin();
    for (const DayLines& day : days) {
        if (row == rows.cend() || row->day != day.day) {
            lines << day.absent;
            continue;
        }
        lines << day.prefix + AttendanceCells(*row, RemarkWidth);
        for (++row; row != rows.cend() && row->day == day.day; ++row)
            lines << sameDay + AttendanceCells(*row, RemarkWidth);
    }
}

} // namespace

MaybePrinted PrintDayTables(const QString& title, const ReportCriteria& criteria, const DayTableData& data,
                            const std::function<QStringList(const ReportEmployee&)>& heading,
                            const Progress& progress) {
    const QString titles = u"|Tanggal    |TimeIN |TimeOUT|Status |Keterangan                        |"_s;
    const QString rule = RuleLine(titles.size());
    const std::vector<DayLines> days = DaysOf(criteria);
    const std::vector<AttendanceRow> none;
    PrintedReport report;
    report.lines << title << PeriodLine(criteria.date1, criteria.date2);
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
