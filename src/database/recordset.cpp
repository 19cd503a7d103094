#include "database/recordset.h"

#include "database/database_error.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;
using Kind = StatementToken::Kind;

namespace {

/// The name that follows the first "from".
QString TableOf(const QString& select) {
    bool afterFrom = false;
    for (const StatementToken& token : Tokenize(select)) {
        if (afterFrom && (token.kind == Kind::Word || token.kind == Kind::Name))
            return token.text;
        afterFrom = afterFrom || token.IsWord(u"from");
    }
    throw StatementError(ErrorKind::NoTableName, u"the statement names no table"_s);
}

} // namespace

Recordset::Recordset(Connection& connection, const QString& select)
    : connection_(connection), table_(TableOf(select)) {
    Cursor rows = connection_.Query(select);
    columns_ = rows.ColumnNames();
    while (rows.Next()) {
        Row row;
        row.read.reserve(static_cast<size_t>(columns_.size()));
        for (int i = 0; i < columns_.size(); ++i)
            row.read.push_back(rows.Value(i).Stored());
        row.values = row.read;
        rows_.push_back(std::move(row));
    }
}

FieldValue Recordset::Field(const QString& name) const {
    return FieldValue(rows_.at(current_).values[ColumnOf(name)]);
}

void Recordset::AddNew() {
    Row row;
    row.values.resize(static_cast<size_t>(columns_.size()));
    row.isNew = true;
    rows_.push_back(std::move(row));
    current_ = rows_.size() - 1;
}

void Recordset::Set(const QString& name, const FieldValue& value) {
    rows_.at(current_).values[ColumnOf(name)] = value.Stored();
}

void Recordset::Update() {
    Row& row = rows_.at(current_);
    if (row.isNew)
        Insert(row);
    else
        Change(row);
    row.read = row.values;
    row.isNew = false;
}

void Recordset::CancelUpdate() {
    Row& row = rows_.at(current_);
    if (row.isNew)
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(current_));
    else
        row.values = row.read;
}

void Recordset::Delete() {
    const Condition asRead = StandsAsRead(rows_.at(current_));
    if (connection_.Execute(u"DELETE FROM [%1]"_s.arg(table_) + asRead.where, asRead.values) == 0)
        throw ConflictError(table_);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(current_));
}

size_t Recordset::ColumnOf(const QString& name) const {
    for (qsizetype i = 0; i < columns_.size(); ++i) {
        if (columns_[i].compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<size_t>(i);
    }
    throw StatementError(ErrorKind::UnknownColumn, u"no column %1 in table %2"_s.arg(name, table_),
                         {name, table_});
}

void Recordset::Insert(const Row& row) {
    QStringList names;
    QStringList marks;
    QVariantList values;
    for (size_t i = 0; i < row.values.size(); ++i) {
        names << u'[' + columns_[static_cast<qsizetype>(i)] + u']';
        marks << u"?"_s;
        values << row.values[i];
    }
    connection_.Execute(
        u"INSERT INTO [%1] (%2) VALUES (%3)"_s.arg(table_, names.join(u','), marks.join(u',')), values);
}

/// The row is found by its key and by every value that was read, so that another desk's change is never
/// overwritten.
Recordset::Condition Recordset::StandsAsRead(const Row& row) const {
    QStringList conditions;
    for (const QString& name : columns_)
        conditions << u"Same(["_s + name + u"],?)"_s;
    return {u" WHERE "_s + conditions.join(u" AND "_s), QVariantList(row.read.cbegin(), row.read.cend())};
}

void Recordset::Change(const Row& row) {
    QStringList assignments;
    QVariantList values;
    for (size_t i = 0; i < row.values.size(); ++i) {
        if (row.values[i] != row.read[i] || row.values[i].isNull() != row.read[i].isNull()) {
            assignments << u'[' + columns_[static_cast<qsizetype>(i)] + u"]=?"_s;
            values << row.values[i];
        }
    }
    const Condition asRead = StandsAsRead(row);
    // A row with nothing to write is looked at all the same: what its caller writes beside it rests on it.
    const bool stands =
        assignments.isEmpty()
            ? connection_.Query(u"SELECT 1 FROM [%1]"_s.arg(table_) + asRead.where, asRead.values).Next()
            : connection_.Execute(u"UPDATE [%1] SET %2"_s.arg(table_, assignments.join(u", "_s))
                                      + asRead.where,
                                  values + asRead.values)
                  > 0;
    if (!stands)
        throw ConflictError(table_);
}
