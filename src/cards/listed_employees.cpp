#include "cards/listed_employees.h"

#include "database/statement.h"

using namespace Qt::StringLiterals;

std::vector<ListedEmployee> ReadListedEmployees(Connection& connection, const CardFilter& filter,
                                                const QString& order, EmployeeColumns columns) {
    QStringList conditions;
    for (const auto& [column, value] :
         {std::pair{u"NIP="_s, &filter.nip}, {u"Dept="_s, &filter.dept}, {u"Divisi="_s, &filter.divisi}}) {
        if (*value)
            conditions << column + Quoted(**value);
    }
    const bool all = columns == EmployeeColumns::All;
    QString statement =
        all ? u"SELECT NIP, Nama, Dept, Divisi FROM Employee"_s : u"SELECT NIP, Nama FROM Employee"_s;
    if (!conditions.isEmpty())
        statement += u" WHERE "_s + conditions.join(u" AND "_s);
    if (!order.isEmpty())
        statement += u" ORDER BY "_s + order;
    Cursor rows = connection.Query(statement);
    std::vector<ListedEmployee> employees;
    while (rows.Next())
        employees.push_back(
            {rows.Text(0), rows.Text(1), all ? rows.Text(2) : QString(), all ? rows.Text(3) : QString()});
    return employees;
}
