#include "reports/report_list.h"

#include <algorithm>

namespace {

constexpr Report Reports[] = {
    {.name = u"AbsensiHarian",
     .title = u"Laporan Absensi Harian",
     .routine = u"PrintDailyReport",
     .print = PrintDailyReport,
     .takesSort = true},
    {.name = u"AbsensiDetailKaryawan",
     .title = u"Laporan Absensi Detail Karyawan",
     .routine = u"PrintEmployeeDetailReport",
     .print = PrintEmployeeDetailReport,
     .takesPeriod = true,
     .takesEmployee = true},
    {.name = u"AbsensiDivisi",
     .title = u"Laporan Absensi per Departemen dan Divisi",
     .routine = u"PrintDepartmentReport",
     .print = PrintDepartmentReport,
     .takesPeriod = true,
     .takesDepartment = true},
    {.name = u"AbsensiSumKary",
     .title = u"Rekapitulasi Absensi Karyawan",
     .routine = u"PrintSummaryReport",
     .print = PrintSummaryReport,
     .takesPeriod = true,
     .takesDepartment = true},
};

} // namespace

const Report* FindReport(QStringView name) {
    const auto* found = std::ranges::find(Reports, name, &Report::name);
    return found == std::end(Reports) ? nullptr : found;
}
