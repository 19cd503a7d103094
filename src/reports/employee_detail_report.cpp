#include "reports/employee_detail_report.h"

#include "database/statement.h"
#include "reports/day_tables.h"
#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

MaybePrinted PrintEmployeeDetailReport(Connection& connection, const ReportCriteria& criteria,
                                       const Progress& progress) {
    QString employees = u"SELECT NIP, Nama, Dept, Divisi FROM Employee "_s;
    QString cards = u"SELECT a.NIP, b.Tanggal, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan "
                    "FROM TimeCardHeader a INNER JOIN TimeCardDetail b ON a.TCID=b.TCID "_s
                    + InPeriod(criteria);
    if (criteria.employee != AllChoice) {
        employees += u" WHERE NIP="_s + Quoted(criteria.employee);
        cards += u" AND a.NIP="_s + Quoted(criteria.employee);
    }
    DayTableData data;
    data.employees = ReadReportEmployees(connection, employees);
    auto attendance = ReadAttendance(connection, cards, DayTableRemarkWidth, progress);
    if (!attendance)
        return std::nullopt;
    data.attendance = std::move(*attendance);
    const auto heading = [](const ReportEmployee& employee) {
        return QStringList{u"NIP : "_s + OneLine(employee.nip), u"Nama: "_s + OneLine(employee.nama)};
    };
    return PrintDayTables(u"ABSENSI DETAIL KARYAWAN"_s, criteria, data, heading, progress);
}
