#include "core/query_values.h"

#include "database/statement.h"

using namespace Qt::StringLiterals;

QString b_stored_procedure::GetFirstValue(Connection& connection, const QString& statement) {
    Cursor rows = connection.Query(statement);
    return rows.Next() ? b_global::IfNull(rows.Value(0), u""_s).Text() : QString();
}
