#include "editing/attendance_print.h"

#include "core/text_table.h"
#include "core/typed_date.h"
#include "editing/attendance_model.h"
#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RuleLength = 104;

struct PrintedColumn {
    int column;
    int width;
};

constexpr PrintedColumn PrintedColumns[] = {{AttendanceModel::Nip, 8},    {AttendanceModel::Nama, 20},
                                            {AttendanceModel::Dept, 8},   {AttendanceModel::Divisi, 8},
                                            {AttendanceModel::TimeIn, 7}, {AttendanceModel::TimeOut, 7},
                                            {AttendanceModel::Status, 7}, {AttendanceModel::Keterangan, 30}};

} // namespace

QString ListedPeriod(const DayRange& range, const QString& filter) {
    QString line = u"Tanggal: "_s + ShownDay(range.first);
    if (range.last != range.first)
        line += u" s/d "_s + ShownDay(range.last);
    return filter.isEmpty() ? line : line + u"  "_s + OneLine(filter);
}

bool PrintAttendance(const QAbstractItemModel& rows, const QString& periodLine, const LineSink& sink,
                     const Progress& progress) {
    const QString rule(RuleLength, u'-');
    for (const QString& line :
         {u"ABSENSI KARYAWAN "_s, periodLine, rule,
          u"|NIP     |Nama                |Dept    |Divisi  |TimeIN |TimeOUT|Status |Keterangan"_s, rule})
        sink(line);
    const int count = rows.rowCount();
    QString line;
    for (int row = 0; row < count; ++row) {
        if (!ShouldContinue(progress, row, count))
            return false;
        line.truncate(0);
        for (const auto& [column, width] : PrintedColumns) {
            line += u'|';
            QString text = rows.index(row, column).data().toString();
            if (column == AttendanceModel::TimeIn || column == AttendanceModel::TimeOut)
                text.remove(NextDaySign.toString()); // there is room for the clock alone
            modGeneral::AppendCellText(line, text, width);
        }
        sink(line);
    }
    sink(rule);
    return true;
}
