#include "cards/employee_pay.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString PayInForce::Columns() {
    // A row of pay holds with its empty columns, too.
    QStringList columns;
    for (const auto& column : {u"EmpType"_s, u"GP"_s, u"RateOT"_s, u"TMakan"_s})
        columns << u"case when p.NIP is null then e.%1 else p.%1 end as %1"_s.arg(column);
    return columns.join(u", ");
}

QString PayInForce::Join(const QString& day) {
    return u"left join EmployeePay p on p.NIP=e.NIP and p.Berlaku="
           "(select max(q.Berlaku) from EmployeePay q where q.NIP=e.NIP and q.Berlaku<=%1)"_s.arg(day);
}
