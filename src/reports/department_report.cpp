#include "reports/department_report.h"

#include "reports/day_tables.h"
#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

MaybePrinted PrintDepartmentReport(Connection& connection, const ReportCriteria& criteria,
                                   const Progress& progress) {
    DayTableData data;
    data.employees = ReadEmployeesOf(connection, criteria);
    auto attendance = ReadAttendance(connection,
                                     u"SELECT a.NIP, b.Tanggal, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan "
                                     "FROM TimeCardHeader a INNER JOIN TimeCardDetail b ON a.TCID=b.TCID "
                                     "INNER JOIN Employee c ON a.NIP=c.NIP "_s
                                         + InPeriod(criteria) + OfChosenEmployees(criteria),
                                     DayTableRemarkWidth, progress);
    if (!attendance)
        return std::nullopt;
    data.attendance = std::move(*attendance);
    const auto heading = [](const ReportEmployee& employee) {
        return QStringList{u"NIP   : "_s + OneLine(employee.nip), u"Nama  : "_s + OneLine(employee.nama),
                           u"Dept  : "_s + OneLine(employee.dept), u"Divisi: "_s + OneLine(employee.divisi)};
    };
    return PrintDayTables(u"ABSENSI KARYAWAN "_s, criteria, data, heading, progress);
}
