#pragma once

#include "company/employee_store.h"

/// All that is entered about one employee at once.
struct EmployeeEntry {
    EmployeeChange change;
    std::optional<PayRow> pay = {};       ///< other pay from a day on
    std::optional<QString> password = {}; ///< the number becomes a user with this password
};

/// Writes all of it in one transaction. Throws ProgramError with the user's text where something is wrong;
/// nothing is written then. Throws DatabaseError.
void SaveEmployee(Connection& connection, const EmployeeEntry& entry);

/// Whether cards stand on the number. Throws DatabaseError.
bool HasCards(Connection& connection, const QString& nip);
