#include "reports/department_report.h"

#include "reports/day_tables.h"
#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

ListedCount PrintDepartmentReport(Connection& connection, const ReportCriteria& criteria,
                                  const LineSink& sink, const Progress& progress) {
    const auto heading = [](const ListedEmployee& employee) {
        return QStringList{u"NIP   : "_s + OneLine(employee.nip), u"Nama  : "_s + OneLine(employee.nama),
                           u"Dept  : "_s + OneLine(employee.dept), u"Divisi: "_s + OneLine(employee.divisi)};
    };
    return PrintDayTables(connection, {u"ABSENSI KARYAWAN "_s, criteria.Filter(), heading}, sink, progress);
}
