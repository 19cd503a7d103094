#include "editing/attendance_refresh.h"

#include "core/shared_texts.h"
#include "database/database_error.h"

using namespace Qt::StringLiterals;

namespace {

/// The number of the error "overflow".
constexpr int TooManyRowsError = 6;

/// An employee number outweighs department and division.
CardFilter FilterOf(const AttendanceCriteria& criteria) {
    CardFilter filter;
    filter.days = criteria.interval;
    if (const QString nip = criteria.nip.trimmed(); !nip.isEmpty()) {
        filter.nip = nip;
    } else {
        filter.dept = criteria.dept;
        filter.divisi = criteria.divisi;
    }
    return filter;
}

/// The columns that were filtered by, then the name.
QString OrderOf(const CardFilter& filter) {
    QStringList order;
    if (filter.dept)
        order << u"Dept"_s;
    if (filter.divisi)
        order << u"Divisi"_s;
    return (order << u"Nama"_s).join(u", "_s);
}

void CheckRows(const Attendance& attendance) {
    if (attendance.RowCount() <= Attendance::MostRows)
        return;
    throw ProgramError(TooManyRowsError,
                       u"Terlalu banyak baris: %1 karyawan selama %2 hari.\nPersempit tanggalnya, atau pilih "
                       "satu karyawan, departemen atau divisi."_s.arg(attendance.employees.size())
                           .arg(attendance.range.Days()));
}

/// The days from the earliest to the latest record; nothing when there are none, or when it was stopped.
struct RecordsRead {
    std::optional<DayRange> days;
    bool stopped = false;
};

RecordsRead ReadRecords(Connection& connection, const CardFilter& filter, Attendance& attendance,
                        const Progress& progress) {
    QHash<QString, size_t> rowsByNip;
    for (size_t i = 0; i < attendance.employees.size(); ++i)
        rowsByNip.insert(attendance.employees[i].nip, i);
    RecordsRead read;
    SharedTexts texts;
    qsizetype done = 0;
    const auto take = [&](const CardLine& line) {
        const auto employee = rowsByNip.constFind(line.nip);
        // An employee may have come between the two statements.
        if (employee != rowsByNip.constEnd()) {
            read.days = read.days ? DayRange{read.days->first, line.day} : DayRange{line.day, line.day};
            attendance.Offer(
                line.day, *employee,
                {line.tcid, line.timeIn, line.timeOut, texts.Of(line.status), texts.Of(line.keterangan)});
        }
        return ShouldContinue(progress, done++, 0);
    };
    read.stopped = !EachCardLine(connection, filter, WithIdentifier::Yes, take);
    return read;
}

} // namespace

const AttendanceRecord* Attendance::Find(Day day, size_t employee) const {
    const auto found = places_.constFind(Key(day, employee));
    return found == places_.constEnd() ? nullptr : &records_[*found];
}

AttendanceRecord* Attendance::Find(Day day, size_t employee) {
    const auto found = places_.constFind(Key(day, employee));
    return found == places_.constEnd() ? nullptr : &records_[*found];
}

AttendanceRecord& Attendance::RecordFor(Day day, size_t employee) {
    const qsizetype before = places_.size();
    size_t& place = places_[Key(day, employee)];
    if (places_.size() > before) {
        place = records_.size();
        records_.emplace_back();
    }
    return records_[place];
}

void Attendance::Put(Day day, size_t employee, AttendanceRecord record) {
    RecordFor(day, employee) = std::move(record);
}

void Attendance::Offer(Day day, size_t employee, AttendanceRecord record) {
    AttendanceRecord& present = RecordFor(day, employee);
    if (present.tcid.isNull())
        present = std::move(record);
}

std::optional<Attendance> RefreshAttendance(Connection& connection, const AttendanceCriteria& criteria,
                                            Day today, const Progress& progress) {
    const CardFilter filter = FilterOf(criteria);
    Attendance attendance;
    attendance.employees = ReadListedEmployees(connection, filter, OrderOf(filter));
    if (criteria.interval) {
        attendance.range = *criteria.interval;
        CheckRows(attendance);
    }
    const RecordsRead read = ReadRecords(connection, filter, attendance, progress);
    if (read.stopped)
        return std::nullopt;
    if (!criteria.interval) {
        attendance.range = read.days.value_or(DayRange{today, today});
        CheckRows(attendance);
    }
    return attendance;
}

std::optional<AttendanceRecord> AttendanceOn(Connection& connection, const QString& nip, Day day) {
    const AttendanceCriteria criteria{nip, {}, {}, DayRange{day, day}};
    const auto attendance = RefreshAttendance(connection, criteria, day, [](auto, auto) { return true; });
    const AttendanceRecord* record = attendance->employees.empty() ? nullptr : attendance->Find(day, 0);
    return record ? std::optional(*record) : std::nullopt;
}
