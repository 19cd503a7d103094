#pragma once

#include "database/connection.h"

#include <QString>

#include <optional>
#include <vector>

/// The choice of a list that does not filter.
inline constexpr QStringView AllChoice = u"<ALL>";

/// What rows hold, and what people read.
struct CodeName {
    QString code;
    QString name;
};

/// A shift code and its hours, which stand on the base date; a night shift ends on the day after it.
struct ShiftRow {
    QString code;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
};

/// The lists of codes, each in its fixed order. All functions throw DatabaseError.
namespace CodeLists {

/// A database answers to two spellings of the departments' columns: DeptCode, which the browser reads, and
/// [Dept Code], which the reports read.
enum class DepartmentColumns { Joined, Spaced };

std::vector<CodeName> Departments(Connection& connection, DepartmentColumns columns);
std::vector<CodeName> Divisions(Connection& connection);
std::vector<CodeName> AbsenceTypes(Connection& connection);
std::vector<CodeName> EmployeeStatuses(Connection& connection);
/// In the order of the reports' columns.
std::vector<CodeName> Statuses(Connection& connection);
/// In the order in which a clock-in is compared with them.
std::vector<ShiftRow> Shifts(Connection& connection);

} // namespace CodeLists

/// Nothing for a number that no employee has. Throws DatabaseError.
std::optional<QString> EmployeeName(Connection& connection, const QString& nip);

/// The condition of a statement on employees that leaves out those who have left before the day.
QString StillThere(Day day);

/// What the pick lists of the windows show: the columns are headed as here.
namespace PickListQuery {

/// Those who may clock in on the day.
QString EntryEmployees(Day day);
inline const QString BrowserEmployees = QStringLiteral("select NIP, Nama from Employee ORDER BY NIP");
inline const QString ReportEmployees = QStringLiteral("select [NIP], [Nama] from [Employee] ORDER BY [NIP]");
inline const QString BrowserStatuses =
    QStringLiteral("select [ID], [Status], [Description] from [Employee Status] ORDER BY ID");
inline const QString SearchStatuses =
    QStringLiteral("select Status, Description from [Employee Status] ORDER BY ID");
inline const QString Shifts = QStringLiteral(
    "select Code, Mid(TimeIn,12,5) as TimeIn, Mid(TimeOut,12,5) as TimeOut from Shift ORDER BY Code");

} // namespace PickListQuery
