#pragma once

#include "database/connection.h"
#include "database/field_value.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

/// The rows of one table that a "select * from ..." finds, held in memory, to be read and changed. Fields are
/// named in any letter case; a name that the table lacks is a DatabaseError.
class Recordset {
public:
    Recordset(Connection& connection, const QString& select);

    /// True when there is no current row: none was found, or MoveNext went behind the last.
    bool AtEnd() const { return current_ >= rows_.size(); }
    void MoveNext() { ++current_; }

    /// The current row's field.
    FieldValue Field(const QString& name) const;

    /// Starts a new row, all fields null, which becomes the current one.
    void AddNew();
    void Set(const QString& name, const FieldValue& value);
    /// Writes the current row. Throws ConflictError when it no longer stands in the database as it was
    /// read, even when there is nothing to write; nothing is written then.
    void Update();

private:
    struct Row {
        std::vector<QVariant> read;
        std::vector<QVariant> values;
        bool isNew = false;
    };

    size_t ColumnOf(const QString& name) const;
    void Insert(const Row& row);
    void Change(const Row& row);

    Connection& connection_;
    QString table_;
    QStringList columns_;
    std::vector<Row> rows_;
    size_t current_ = 0;
};
