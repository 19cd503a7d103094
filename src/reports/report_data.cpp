#include "reports/report_data.h"

#include "database/statement.h"
#include "reports/report_cells.h"

using namespace Qt::StringLiterals;

namespace {

/// The conditions of a choice that filters, none of one that does not.
QStringList ChosenConditions(const ReportCriteria& criteria, const QString& table) {
    QStringList conditions;
    if (criteria.department.Filters())
        conditions << table + u"Dept="_s + Quoted(criteria.department.code);
    if (criteria.division.Filters())
        conditions << table + u"Divisi="_s + Quoted(criteria.division.code);
    return conditions;
}

} // namespace

std::vector<ReportEmployee> ReadReportEmployees(Connection& connection, const QString& query) {
    std::vector<ReportEmployee> employees;
    Cursor rows = connection.Query(query);
    while (rows.Next())
        employees.push_back({rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3)});
    return employees;
}

std::vector<ReportEmployee> ReadEmployeesOf(Connection& connection, const ReportCriteria& criteria) {
    const QStringList conditions = ChosenConditions(criteria, {});
    QString query = u"SELECT NIP, Nama, Dept, Divisi FROM Employee "_s;
    if (!conditions.isEmpty())
        query += u" WHERE "_s + conditions.join(u" AND "_s);
    return ReadReportEmployees(connection, query);
}

std::optional<AttendanceByNip> ReadAttendance(Connection& connection, const QString& query, int remarkWidth,
                                              const Progress& progress) {
    Cursor rows = connection.Query(query + u" ORDER BY b.Tanggal, b.TCID"_s);
    const int nip = rows.ColumnOf(u"NIP"_s);
    const int tanggal = rows.ColumnOf(u"Tanggal"_s); // the report of a single day does not read it
    const int timeIn = rows.ColumnOf(u"TimeIN"_s);
    const int timeOut = rows.ColumnOf(u"TimeOUT"_s);
    const int status = rows.ColumnOf(u"Status"_s);
    const int keterangan = rows.ColumnOf(u"Keterangan"_s);
    AttendanceByNip attendance;
    QString dayText;
    AttendanceRow started; // every row of a day starts alike
    for (qsizetype read = 0; rows.Next(); ++read) {
        if (!ShouldContinue(progress, read, 0))
            return std::nullopt;
        if (tanggal >= 0 && rows.Text(tanggal) != dayText) {
            dayText = rows.Text(tanggal);
            started.day = DayOf(rows.Time(tanggal).value_or(EmptyTime));
            started.line = DayCell(started.day);
        }
        AttendanceRow row = started;
        AppendAttendance(row.line, TimeIfSet(rows.Time(timeIn)), TimeIfSet(rows.Time(timeOut)),
                         rows.Text(status), rows.Text(keterangan), remarkWidth);
        attendance[rows.Text(nip)].push_back(std::move(row));
    }
    return attendance;
}

QString InPeriod(const ReportCriteria& criteria) {
    return u"WHERE b.Tanggal BETWEEN "_s + Quoted(StoredDay(criteria.date1)) + u" AND "_s
           + Quoted(StoredDay(criteria.date2)) + u' ';
}

QString OfChosenEmployees(const ReportCriteria& criteria) {
    QString all;
    for (const QString& condition : ChosenConditions(criteria, u"c."_s))
        all += u" AND "_s + condition;
    return all;
}
