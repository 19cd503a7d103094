#include "reports/employee_detail_report.h"

#include "reports/day_tables.h"
#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

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
