#include "reports/attendance_rows.h"
#include "reports/report_cells.h"
#include "reports/report_list.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RemarkWidth = 30;

} // namespace

ListedCount PrintDailyReport(Connection& connection, const ReportCriteria& criteria, const LineSink& sink,
                             const Progress& progress) {
    const auto employees = ReadListedEmployees(connection, {.days = DayRange{criteria.date1, criteria.date1}},
                                               criteria.sort, EmployeeColumns::NumberAndName);
    AttendanceRows attendance(RemarkWidth);
    if (!attendance.Read(connection, {DayRange{criteria.date1, criteria.date1}}, employees, progress))
        return std::nullopt;

    const QString titles =
        u"|No. |NIP     |Nama                |TimeIN |TimeOUT|Status |Keterangan                    |"_s;
    const QString rule = RuleLine(titles.size());
    const QString sameEmployee = u"|    |        |                    |"_s;
    const QString absent = AbsentCells(RemarkWidth);
    for (const QString& line :
         {u"ABSENSI HARIAN"_s, u"Tanggal: "_s + ShownDay(criteria.date1), QString(), rule, titles, rule})
        sink(line);
    QString line;
    for (size_t i = 0; i < employees.size(); ++i) {
        if (!progress(static_cast<qsizetype>(i), std::ssize(employees)))
            return std::nullopt;
        line.truncate(0);
        AppendEmployeeCells(line, static_cast<qsizetype>(i) + 1, employees[i].nip, employees[i].nama);
        const qsizetype prefix = line.size();
        if (attendance.Of(i).empty())
            sink(line.append(absent));
        for (const AttendanceRows::Row& row : attendance.Of(i)) {
            if (line.size() > prefix) {
                line.truncate(0);
                line.append(sameEmployee);
            }
            attendance.AppendCells(line, row);
            sink(line);
        }
    }
    sink(rule);
    return std::ssize(employees);
}
