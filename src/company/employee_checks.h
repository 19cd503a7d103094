#pragma once

#include "company/employee_store.h"

/// What is wrong with changes to employees, as the database stands now. Throws DatabaseError.
std::vector<EmployeeFinding> CheckEmployees(Connection& connection,
                                            const std::vector<EmployeeChange>& changes);

/// What the user is told of a finding, in Indonesian: what is wrong and what to do.
QString FindingText(const EmployeeFinding& finding);
