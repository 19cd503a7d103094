#pragma once

#include "database/schema.h"
#include "exchange/database_import.h"
#include "exchange/exact_sum.h"

/// Keeps the account of a column: what its values come to, however they are stored.
class ColumnTotal {
public:
    explicit ColumnTotal(ColumnKind kind) : kind_(kind) {}
    /// Takes a value as it is stored.
    void Add(const FieldValue& value);
    /// Takes a number as it is read: its digits count, not what is stored of them.
    void AddDigits(const QString& digits) { sum_.Add(digits); }
    /// "" for what has none: texts and flags.
    QString Text() const;

private:
    ColumnKind kind_;
    ExactSum sum_;
    QString first_;
    QString last_;
};

/// Copies the rows of one table of a foreign database. Part of the caller's transaction.
class TableCopy {
public:
    /// Which columns are copied is told to the import.
    TableCopy(Connection& connection, const TableDescription& target, const SourceTable& source,
              DatabaseImport& import);

    void Take(const QStringList& values);
    /// Writes what is still held and compares both sides.
    TableAccount Finish();

private:
    struct CopiedColumn {
        qsizetype source; ///< its place there
        ColumnDescription target;
        ColumnTotal read;
        ColumnTotal written; ///< and set aside
    };

    void Write();
    /// The row, whose values stand as in columns_, has a key that stands there already.
    void SetAside(const QVariantList& row);
    /// The row's name in a list; it is given by its values, as in columns_.
    LeftRow Named(const QStringList& values, const QString& why) const;

    Connection& connection_;
    DatabaseImport& import_;
    TableDescription copied_; ///< the columns that are copied
    std::vector<CopiedColumn> columns_;
    QList<QVariantList> rows_;
    qint64 rowsRead_ = 0;
    qint64 rowsSetAside_ = 0;
};

/// The name without what spellings of it differ in.
QString PlainName(const QString& name);
