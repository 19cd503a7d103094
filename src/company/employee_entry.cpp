#include "company/employee_entry.h"

#include "cards/card_store.h"
#include "company/employee_checks.h"
#include "company/users.h"

namespace {
constexpr int RefusedNumber = 90033;
}

void SaveEmployee(Connection& connection, const EmployeeEntry& entry) {
    const Users users(connection);
    HashedPasswords password;
    if (entry.password)
        password = *users.Hash({{entry.change.after->nip, *entry.password}});
    connection.InTransaction([&] {
        const EmployeeStore store(connection);
        const std::vector<EmployeeFinding> findings = store.Save({entry.change});
        if (!findings.empty())
            throw ProgramError(RefusedNumber, FindingText(findings.front()));
        if (entry.pay)
            store.SavePay({*entry.pay});
        users.Write(password);
    });
}

bool HasCards(Connection& connection, const QString& nip) {
    return !CardStore(connection).WithCards({nip}).isEmpty();
}
