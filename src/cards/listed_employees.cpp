#include "cards/listed_employees.h"

#include "core/code_lists.h"
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
    // Who has left is listed for the days before, and wherever a card stands.
    if (filter.days)
        conditions << u"(%1 or exists (select h.TCID from TimeCardHeader h inner join TimeCardDetail d on "
                      "d.TCID=h.TCID where h.NIP=Employee.NIP and d.Tanggal between #%2# and #%3#))"_s.arg(
                          StillThere(filter.days->first), StoredDay(filter.days->first),
                          StoredDay(filter.days->last));
    const bool all = columns == EmployeeColumns::All;
    QString statement =
        all ? u"SELECT NIP, Nama, Dept, Divisi FROM Employee"_s : u"SELECT NIP, Nama FROM Employee"_s;
    if (!conditions.isEmpty())
        statement += u" WHERE "_s + conditions.join(u" AND "_s);
    if (!order.isEmpty())
        statement += u" ORDER BY "_s + order;
    return connection.Query(statement).All([all](const Cursor& row) {
        return ListedEmployee{row.Text(0), row.Text(1), all ? row.Text(2) : QString(),
                              all ? row.Text(3) : QString()};
    });
}
