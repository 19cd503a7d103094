#include "reports/daily_report.h"

#include "database/statement.h"
#include "reports/report_cells.h"
#include "reports/report_data.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RemarkWidth = 30;

} // namespace

MaybePrinted PrintDailyReport(Connection& connection, const ReportCriteria& criteria,
                              const Progress& progress) {
    const std::vector<ReportEmployee> employees = ReadReportEmployees(
        connection, u"SELECT NIP, Nama, Dept, Divisi FROM Employee ORDER BY "_s + criteria.sort);
    const auto attendance =
        ReadAttendance(connection,
                       u"SELECT a.NIP, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan FROM TimeCardHeader a "
                       "INNER JOIN TimeCardDetail b ON a.TCID=b.TCID WHERE b.Tanggal="_s
                           + Quoted(StoredDay(criteria.date1)),
                       RemarkWidth, progress);
    if (!attendance)
        return std::nullopt;

    const QString titles =
        u"|No. |NIP     |Nama                |TimeIN |TimeOUT|Status |Keterangan                    |"_s;
    const QString rule = RuleLine(titles.size());
    const QString sameEmployee = u"|    |        |                    |"_s;
    const QString absent = AbsentCells(RemarkWidth);
    PrintedReport report;
    report.lines << u"ABSENSI HARIAN"_s << u"Tanggal: "_s + ShownDay(criteria.date1) << QString() << rule
                 << titles << rule;
    for (const ReportEmployee& employee : employees) {
        if (!progress(report.employees, std::ssize(employees)))
            return std::nullopt;
        QString prefix = EmployeeCells(++report.employees, employee.nip, employee.nama);
        const auto rows = attendance->constFind(employee.nip);
        if (rows == attendance->cend()) {
            report.lines << prefix + absent;
            continue;
        }
        for (const AttendanceRow& row : *rows) {
            report.lines << prefix + row.line;
            prefix = sameEmployee;
        }
    }
    report.lines << rule;
    return report;
}
