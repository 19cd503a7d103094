#pragma once

#include "database/connection.h"

#include <QString>

namespace b_global {

/// The value, or the replacement when the value is null.
inline FieldValue IfNull(const FieldValue& value, const FieldValue& replacement) {
    return value.IsNull() ? replacement : value;
}

} // namespace b_global

namespace b_stored_procedure {

/// The first field of the first row as text; "" when there is no row or the field is null. Throws
/// DatabaseError.
QString GetFirstValue(Connection& connection, const QString& statement);

} // namespace b_stored_procedure

namespace modGeneral {

inline void Assign(QString& target, const FieldValue& value) {
    target = value.Text();
}
inline void Assign(int& target, const FieldValue& value) {
    target = static_cast<int>(value.Number());
}
/// Copies the first row's fields into the variables, in order and by their types; leaves them as they are and
/// returns false when there is no row. Throws DatabaseError.
template<class... Variables>
bool QueryValues(Connection& connection, const QString& statement, Variables&... variables) {
    Cursor rows = connection.Query(statement);
    if (!rows.Next())
        return false;
    int column = 0;
    (Assign(variables, rows.Value(column++)), ...);
    return true;
}

} // namespace modGeneral
