#include "reports/attendance_rows.h"
#include "reports/report_cells.h"
#include "reports/report_list.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RemarkWidth = 34;

/// What sets a report of day tables apart.
struct DayTables {
    QString title;
    CardFilter filter;
    /// What is said of an employee above the table.
    std::function<QStringList(const ListedEmployee&)> heading;
};

/// The cell of each day, and the line of a day on which somebody has no card: the same for every employee,
/// made once.
struct TableDay {
    Day day;
    QString cell;
    QString absent;
};

std::vector<TableDay> DaysOf(const DayRange& range) {
    const QString absent = AbsentCells(RemarkWidth);
    std::vector<TableDay> days;
    for (Day day = range.first; day <= range.last; day += std::chrono::days{1})
        days.push_back({day, DayCell(day), DayCell(day) + absent});
    return days;
}

/// The rows stand in the order of the days, so each day's are the next ones.
void WriteDays(const std::vector<TableDay>& days, const AttendanceRows& attendance, size_t employee,
               const LineSink& sink) {
    static const QString sameDay = u"|           |"_s;
    const auto& rows = attendance.Of(employee);
    QString line;
    auto row = rows.cbegin();
    for (const TableDay& day : days) {
        if (row == rows.cend() || row->day != day.day)
            sink(day.absent);
        for (bool first = true; row != rows.cend() && row->day == day.day; ++row, first = false) {
            line.truncate(0);
            line.append(first ? day.cell : sameDay);
            attendance.AppendCells(line, *row);
            sink(line);
        }
    }
}

/// One employee after the other: the heading, then a table of every day of the period.
ListedCount PrintDayTables(Connection& connection, const DayTables& tables, const LineSink& sink,
                           const Progress& progress) {
    const auto employees = ReadListedEmployees(connection, tables.filter, {});
    AttendanceRows attendance(RemarkWidth);
    if (!attendance.Read(connection, tables.filter, employees, progress))
        return std::nullopt;
    const QString titles = u"|Tanggal    |TimeIN |TimeOUT|Status |Keterangan                        |"_s;
    const QString rule = RuleLine(titles.size());
    const DayRange range = tables.filter.days.value();
    const std::vector<TableDay> days = DaysOf(range);
    sink(tables.title);
    sink(ReportPeriod(range.first, range.last));
    for (size_t i = 0; i < employees.size(); ++i) {
        if (!progress(static_cast<qsizetype>(i), std::ssize(employees)))
            return std::nullopt;
        for (const QString& line : QStringList{QString()} + tables.heading(employees[i])
                                       + QStringList{QString(), rule, titles, rule})
            sink(line);
        WriteDays(days, attendance, i, sink);
        sink(rule);
    }
    return std::ssize(employees);
}

} // namespace

ListedCount PrintEmployeeDetailReport(Connection& connection, const ReportCriteria& criteria,
                                      const LineSink& sink, const Progress& progress) {
    CardFilter filter{DayRange{criteria.date1, criteria.date2}};
    if (criteria.employee != AllChoice)
        filter.nip = criteria.employee;
    const auto heading = [](const ListedEmployee& employee) {
        return QStringList{u"NIP : "_s + OneLine(employee.nip), u"Nama: "_s + OneLine(employee.nama)};
    };
    return PrintDayTables(connection, {u"ABSENSI DETAIL KARYAWAN"_s, filter, heading}, sink, progress);
}

ListedCount PrintDepartmentReport(Connection& connection, const ReportCriteria& criteria,
                                  const LineSink& sink, const Progress& progress) {
    const auto heading = [](const ListedEmployee& employee) {
        return QStringList{u"NIP   : "_s + OneLine(employee.nip), u"Nama  : "_s + OneLine(employee.nama),
                           u"Dept  : "_s + OneLine(employee.dept), u"Divisi: "_s + OneLine(employee.divisi)};
    };
    return PrintDayTables(connection, {u"ABSENSI KARYAWAN "_s, criteria.Filter(), heading}, sink, progress);
}
