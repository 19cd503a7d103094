#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "reports/report_criteria.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

struct ReportEmployee {
    QString nip;
    QString nama;
    QString dept;
    QString divisi;
};

/// The employees of a query that names NIP, Nama, Dept and Divisi first, in its order. Throws DatabaseError.
std::vector<ReportEmployee> ReadReportEmployees(Connection& connection, const QString& query);

/// The employees of the chosen department and division, in the table's own order. Throws DatabaseError.
std::vector<ReportEmployee> ReadEmployeesOf(Connection& connection, const ReportCriteria& criteria);

/// What one time card says of one day: the line as it is printed, from the cell of the day on, without that
/// where the query does not read the day.
struct AttendanceRow {
    Day day{};
    QString line;
};

/// Every employee's rows, ordered by day and, within a day, by card.
using AttendanceByNip = QHash<QString, std::vector<AttendanceRow>>;

/// Reads all attendance rows that a query over TimeCardHeader a and TimeCardDetail b finds; the query ends
/// where its order would be named. `remarkWidth` is that of the cell of "Keterangan". Nothing when `progress`
/// asks to stop. Throws DatabaseError.
std::optional<AttendanceByNip> ReadAttendance(Connection& connection, const QString& query, int remarkWidth,
                                              const Progress& progress);

/// " WHERE b.Tanggal BETWEEN ..." for the days from date1 to date2.
QString InPeriod(const ReportCriteria& criteria);
/// " AND c.Dept=... AND c.Divisi=..." for what is chosen of the two; c is Employee.
QString OfChosenEmployees(const ReportCriteria& criteria);
