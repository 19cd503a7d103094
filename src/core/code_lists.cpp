#include "core/code_lists.h"

using namespace Qt::StringLiterals;

namespace {

std::vector<CodeName> ReadList(Connection& connection, const QString& query) {
    return connection.Query(query).All([](const Cursor& row) { return CodeName{row.Text(0), row.Text(1)}; });
}

} // namespace

namespace CodeLists {

std::vector<CodeName> Departments(Connection& connection, DepartmentColumns columns) {
    return ReadList(connection,
                    columns == DepartmentColumns::Joined
                        ? u"SELECT DeptCode, DeptName FROM Departments ORDER BY DeptName"_s
                        : u"SELECT [Dept Code], [Dept Name] FROM [Departments] ORDER BY [Dept Name]"_s);
}

std::vector<CodeName> Divisions(Connection& connection) {
    return ReadList(connection, u"SELECT DivKode, DivName FROM Division ORDER BY DivName"_s);
}

std::vector<CodeName> AbsenceTypes(Connection& connection) {
    return ReadList(connection, u"SELECT Kode,Keterangan FROM AbsenTipe ORDER BY Kode"_s);
}

std::vector<CodeName> Statuses(Connection& connection) {
    return ReadList(connection, u"SELECT Status, Description FROM [Employee Status] ORDER BY ID"_s);
}

std::vector<ShiftRow> Shifts(Connection& connection) {
    return connection.Query(u"select Code,TimeIn,TimeOut from Shift"_s).All([](const Cursor& row) {
        return ShiftRow{row.Text(0), row.Time(1), row.Time(2)};
    });
}

std::vector<CodeName> EmployeeStatuses(Connection& connection) {
    return ReadList(connection, PickListQuery::SearchStatuses);
}

} // namespace CodeLists

std::optional<QString> EmployeeName(Connection& connection, const QString& nip) {
    Cursor rows = connection.Query(u"select Nama from Employee where NIP=?"_s, {nip});
    return rows.Next() ? std::optional(rows.Text(0)) : std::nullopt;
}

QString StillThere(Day day) {
    return u"(Keluar is null or Keluar>=#%1#)"_s.arg(StoredDay(day));
}

QString PickListQuery::EntryEmployees(Day day) {
    return u"select Nama,NIP from Employee where "_s + StillThere(day);
}
