#pragma once

#include <QString>

/// What an employee is paid by on a day. The table EmployeePay holds a row for each change: a row holds, as a
/// whole, from its day (Berlaku) until the employee's next row. The pay columns of Employee tell what holds
/// before the employee's first row: a raise adds a row and leaves Employee, and with it the past, as it is.
/// So whoever shows what somebody is paid by asks for a day; the row of Employee alone does not tell.
namespace PayInForce {

/// The four columns EmpType, GP, RateOT and TMakan, in this order, and the join that they need, for a
/// statement that reads the table Employee as "e". The day is an expression of the statement, or "?".
QString Columns();
QString Join(const QString& day);

} // namespace PayInForce
