#include "editing/employee_status.h"

#include "core/query_values.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;

std::optional<QString> ListedStatus(Connection& connection, const QString& code) {
    for (const QString& written : {code, code.toUpper()}) {
        QString status;
        if (modGeneral::QueryValues(connection,
                                    u"select Status, Description from [Employee Status] WHERE Status="_s
                                        + Quoted(written),
                                    status))
            return status;
    }
    return std::nullopt;
}
