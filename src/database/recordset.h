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

    /// True when there is no current row: none was found, or MoveNext went after the last.
    bool AtEnd() const { return current_ >= rows_.size(); }
    void MoveNext() { ++current_; }
    /// How many rows are held, new ones included; the first is number 0.
    int RowCount() const { return static_cast<int>(rows_.size()); }
    void MoveTo(int row) { current_ = static_cast<size_t>(row); }

    /// The current row's field.
    FieldValue Field(const QString& name) const;

    /// Starts a new row, all fields null, which becomes the current one.
    void AddNew();
    void Set(const QString& name, const FieldValue& value);
    /// Writes the current row. Throws ConflictError when it no longer stands in the database as it was
    /// read, even when there is nothing to write; nothing is written then.
    void Update();
    /// Takes back what was set in the current row since it was read or written; a new row goes away.
    void CancelUpdate();
    /// Removes the current row, here and in the database. Throws ConflictError as Update does.
    void Delete();

private:
    struct Row {
        std::vector<QVariant> read;
        std::vector<QVariant> values;
        bool isNew = false;
    };

    /// What tells a row as it was read from every other, and from itself once it is changed.
    struct Condition {
        QString where;
        QVariantList values;
    };

    size_t ColumnOf(const QString& name) const;
    Condition StandsAsRead(const Row& row) const;
    void Insert(const Row& row);
    void Change(const Row& row);

    Connection& connection_;
    QString table_;
    QStringList columns_;
    std::vector<Row> rows_;
    size_t current_ = 0;
};
