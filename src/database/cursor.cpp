#include "database/cursor.h"

#include "database/engine.h"

#include <QSqlRecord>

bool Cursor::Next() {
    if (query_.next())
        return true;
    if (query_.lastError().isValid())
        throw DatabaseError(engine_->Describe(query_.lastError()));
    return false;
}

QStringList Cursor::ColumnNames() const {
    const QSqlRecord record = query_.record();
    QStringList names;
    for (int i = 0; i < record.count(); ++i)
        names << record.fieldName(i);
    return names;
}

int Cursor::ColumnOf(const QString& name) const {
    return query_.record().indexOf(name);
}
