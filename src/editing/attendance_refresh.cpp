#include "editing/attendance_refresh.h"

#include "database/database_error.h"
#include "database/statement.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// The number of the error "overflow".
constexpr int TooManyRowsError = 6;

enum Field { Tcid, Nip, Dept, Divisi, Tanggal, TimeIn, TimeOut, Status, Keterangan };

QString DateLiteral(Day day) {
    return u'#' + StoredDay(day) + u'#';
}

struct Queries {
    QString employees = u"SELECT NIP, Nama, Dept, Divisi FROM Employee"_s;
    QString attendance = u"SELECT a.TCID, c.NIP, c.Dept, c.Divisi, b.Tanggal, b.TimeIN, b.TimeOUT, a.Status, "
                         "a.Keterangan FROM (TimeCardHeader a "
                         "INNER JOIN TimeCardDetail b ON a.TCID=b.TCID) "
                         "INNER JOIN Employee c ON a.NIP=c.NIP "_s;

    void AddCondition(const QString& condition) {
        attendance += (attendance.contains(u"WHERE"_s) ? u" AND "_s : u" WHERE "_s) + condition;
    }
};

void ChooseGroup(Queries& queries, const AttendanceCriteria& criteria) {
    QStringList conditions;
    QStringList order;
    if (criteria.divisi)
        conditions << u"Divisi="_s + Quoted(*criteria.divisi);
    if (criteria.dept) {
        conditions << u"Dept="_s + Quoted(*criteria.dept);
        order << u"Dept"_s;
        queries.AddCondition(u"c.Dept="_s + Quoted(*criteria.dept));
    }
    if (criteria.divisi) {
        order << u"Divisi"_s;
        queries.AddCondition(u"c.Divisi="_s + Quoted(*criteria.divisi));
    }
    order << u"Nama"_s;
    if (!conditions.isEmpty())
        queries.employees += u" WHERE "_s + conditions.join(u" AND "_s);
    queries.employees += u" ORDER BY "_s + order.join(u", "_s);
}

Queries QueriesFor(const AttendanceCriteria& criteria) {
    Queries queries;
    if (criteria.interval)
        queries.attendance += u" WHERE b.Tanggal BETWEEN "_s + DateLiteral(criteria.interval->first)
                              + u" AND "_s + DateLiteral(criteria.interval->last) + u' ';
    const QString nip = criteria.nip.trimmed();
    if (nip.isEmpty()) {
        ChooseGroup(queries, criteria);
    } else {
        queries.employees += u" WHERE NIP="_s + Quoted(nip);
        queries.AddCondition(u"a.NIP="_s + Quoted(nip));
    }
    return queries;
}

void CheckRows(const Attendance& attendance) {
    if (attendance.RowCount() <= Attendance::MostRows)
        return;
    throw ProgramError(TooManyRowsError,
                       u"Terlalu banyak baris: %1 karyawan selama %2 hari.\nPersempit tanggalnya, atau pilih "
                       "satu karyawan, departemen atau divisi."_s.arg(attendance.employees.size())
                           .arg(attendance.range.Days()));
}

/// Thousands of records share a few codes, and so each code's text.
class SharedTexts {
public:
    QString Of(const QString& text) { return text.isEmpty() ? QString() : *texts_.insert(text); }

private:
    QSet<QString> texts_;
};

AttendanceRecord RecordIn(const Cursor& rows, SharedTexts& texts) {
    return {rows.Text(Tcid), TimeIfSet(rows.Time(TimeIn)), TimeIfSet(rows.Time(TimeOut)),
            texts.Of(rows.Text(Status)), texts.Of(rows.Text(Keterangan))};
}

/// The rows come day by day as a rule: a day's text is read once.
class DayReader {
public:
    std::optional<Day> Read(const QString& text) {
        if (text != text_ || !day_) {
            const std::optional<WallTime> time = ReadStored(text);
            day_ = time ? std::optional(DayOf(*time)) : std::nullopt;
            text_ = text;
        }
        return day_;
    }

private:
    QString text_;
    std::optional<Day> day_;
};

std::vector<AttendanceEmployee> ReadEmployees(Connection& connection, const QString& query) {
    Cursor rows = connection.Query(query);
    SharedTexts texts;
    std::vector<AttendanceEmployee> employees;
    while (rows.Next())
        employees.push_back({rows.Text(0), rows.Text(1), texts.Of(rows.Text(2)), texts.Of(rows.Text(3))});
    return employees;
}

/// The days from the earliest to the latest record; nothing when there are none, or when it was stopped.
struct RecordsRead {
    std::optional<DayRange> days;
    bool stopped = false;
};

RecordsRead ReadRecords(Connection& connection, const QString& query, Attendance& attendance,
                        const Progress& progress) {
    QHash<QString, size_t> rowsByNip;
    for (size_t i = 0; i < attendance.employees.size(); ++i)
        rowsByNip.insert(attendance.employees[i].nip, i);
    RecordsRead read;
    SharedTexts texts;
    DayReader days;
    Cursor rows = connection.Query(query);
    for (qsizetype done = 0; rows.Next(); ++done) {
        if (!ShouldContinue(progress, done, 0))
            return {read.days, true};
        const std::optional<Day> day = days.Read(rows.Text(Tanggal));
        const auto employee = rowsByNip.constFind(rows.Text(Nip));
        // An employee may have come between the two statements.
        if (!day || employee == rowsByNip.constEnd())
            continue;
        if (!read.days)
            read.days = {*day, *day};
        read.days = {std::min(read.days->first, *day), std::max(read.days->last, *day)};
        attendance.Offer(*day, *employee, RecordIn(rows, texts));
    }
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
    if (present.tcid.isNull() || record.tcid < present.tcid)
        present = std::move(record);
}

std::optional<Attendance> RefreshAttendance(Connection& connection, const AttendanceCriteria& criteria,
                                            Day today, const Progress& progress) {
    const Queries queries = QueriesFor(criteria);
    Attendance attendance;
    attendance.employees = ReadEmployees(connection, queries.employees);
    if (criteria.interval) {
        attendance.range = *criteria.interval;
        CheckRows(attendance);
    }
    const RecordsRead read = ReadRecords(connection, queries.attendance, attendance, progress);
    if (read.stopped)
        return std::nullopt;
    if (!criteria.interval) {
        attendance.range = read.days.value_or(DayRange{today, today});
        CheckRows(attendance);
    }
    return attendance;
}

std::optional<AttendanceRecord> ReadAttendance(Connection& connection, const QString& nip, Day day) {
    const AttendanceCriteria criteria{nip, {}, {}, DayRange{day, day}};
    const auto attendance = RefreshAttendance(connection, criteria, day, [](auto, auto) { return true; });
    const AttendanceRecord* record = attendance->employees.empty() ? nullptr : attendance->Find(day, 0);
    return record ? std::optional(*record) : std::nullopt;
}
