#pragma once

#include "cards/card_lines.h"

#include <vector>

/// An employee as lists and reports name one.
struct ListedEmployee {
    QString nip;
    QString nama;
    QString dept = {}; ///< only when it was asked for
    QString divisi = {};
};

enum class EmployeeColumns { NumberAndName, All };

/// The employees whom the filter asks for, whether or not they have cards; those who left before its days
/// only if they have. In the order of the columns of Employee ("Dept, Nama"); without any, in the table's
/// own. Throws DatabaseError.
std::vector<ListedEmployee> ReadListedEmployees(Connection& connection, const CardFilter& filter,
                                                const QString& order,
                                                EmployeeColumns columns = EmployeeColumns::All);
