#include "reports/attendance_rows.h"

#include "reports/report_cells.h"

namespace {

qint16 MinuteOf(const std::optional<WallTime>& time) {
    using std::chrono::floor;
    using std::chrono::minutes;
    return time ? static_cast<qint16>(floor<minutes>(TimeOfDay(*time)).count()) : qint16{-1};
}

} // namespace

bool AttendanceRows::Read(Connection& connection, const CardFilter& filter,
                          const std::vector<ListedEmployee>& employees, const Progress& progress) {
    QHash<QString, size_t> places;
    places.reserve(std::ssize(employees));
    for (size_t i = 0; i < employees.size(); ++i)
        places.insert(employees[i].nip, i);
    rows_.assign(employees.size(), {});
    qsizetype read = 0;
    size_t next = 0; // cards of a day come in the order of the numbers, and so do employees as a rule
    return EachCardLine(connection, filter, WithIdentifier::No, [&](const CardLine& line) {
        if (next >= employees.size() || employees[next].nip != line.nip)
            next = places.value(line.nip, employees.size());
        if (next < employees.size())
            rows_[next++].push_back({line.day, MinuteOf(line.timeIn), MinuteOf(line.timeOut),
                                     statuses_.NumberOf(line.status), remarks_.NumberOf(line.keterangan)});
        return ShouldContinue(progress, read++, 0);
    });
}

void AttendanceRows::AppendCells(QString& line, const Row& row) const {
    AppendTimeCell(line, row.minuteIn);
    AppendTimeCell(line, row.minuteOut);
    AppendStatusAndRemark(line, statuses_.Text(row.status), remarks_.Text(row.remark), remarkWidth_);
}
