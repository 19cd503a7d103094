#include "exchange/table_copy.h"

#include "database/database_error.h"
#include "exchange/row_writer.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype BatchSize = 500;
/// Whoever mends a file begins with some of its rows.
constexpr size_t MostNamed = 1000;

/// A value that its column cannot hold.
struct Unfit {
    QString why;
};

void Keep(LeftRow row, std::vector<LeftRow>& list) {
    if (list.size() < MostNamed)
        list.push_back(std::move(row));
}

QVariant NumberIn(const QString& text) {
    static const QRegularExpression number(u"^-?\\d+(\\.\\d+)?$"_s);
    if (!number.match(text).hasMatch())
        throw Unfit{u"is no number"_s};
    bool isWhole = false;
    const qlonglong whole = text.toLongLong(&isWhole);
    return isWhole ? QVariant(whole) : QVariant(text.toDouble());
}

QVariant TimeIn(const QString& text, ColumnKind kind) {
    const std::optional<WallTime> time = ReadStored(text);
    if (!time)
        throw Unfit{u"is no date"_s};
    if (kind == ColumnKind::Moment)
        return StoredTime(*time);
    if (TimeOfDay(*time) != Seconds{})
        throw Unfit{u"holds a time of day"_s};
    return StoredDay(DayOf(*time));
}

QVariant ValueIn(const QString& text, const ColumnDescription& column) {
    if (text.isNull()) {
        if (column.isKey)
            throw Unfit{u"is empty"_s};
        return {};
    }
    switch (column.kind) {
    case ColumnKind::Number:
        return NumberIn(text);
    case ColumnKind::Date:
    case ColumnKind::Moment:
        return TimeIn(text, column.kind);
    case ColumnKind::Flag:
        if (text != u"0"_s && text != u"1"_s && text != u"-1"_s)
            throw Unfit{u"is neither true nor false"_s};
        return text == u"0"_s ? 0 : 1;
    case ColumnKind::Text:
        break;
    }
    return text;
}

} // namespace

QString PlainName(const QString& name) {
    return name.toLower().remove(u' ').remove(u'_');
}

void ColumnTotal::Add(const FieldValue& value) {
    if (value.IsNull())
        return;
    if (kind_ == ColumnKind::Number) {
        // A text in a column of numbers cannot have been written.
        if (const std::optional<QString> number = NumberText(value))
            sum_.Add(*number);
    } else if (kind_ == ColumnKind::Date || kind_ == ColumnKind::Moment) {
        const QString text = value.Text();
        if (first_.isEmpty() || text < first_)
            first_ = text;
        if (text > last_)
            last_ = text;
    }
}

QString ColumnTotal::Text() const {
    if (kind_ == ColumnKind::Number)
        return sum_.Text();
    return first_.isEmpty() ? QString() : first_ + u" .. "_s + last_;
}

TableCopy::TableCopy(Connection& connection, const TableDescription& target, const SourceTable& source,
                     DatabaseImport& import)
    : connection_(connection), import_(import), copied_{target.name, {}} {
    std::vector<bool> taken(target.columns.size());
    for (qsizetype i = 0; i < source.columns.size(); ++i) {
        const QString name = PlainName(source.columns[i]);
        const auto same = std::ranges::find(
            target.columns, name, [](const ColumnDescription& column) { return PlainName(column.name); });
        const auto at = static_cast<size_t>(same - target.columns.begin());
        const bool untold = !source.untold.empty() && source.untold[static_cast<size_t>(i)];
        if (same == target.columns.end() || taken[at] || untold) {
            import.leftColumns << source.name + u'.' + source.columns[i];
            continue;
        }
        taken[at] = true;
        columns_.push_back({i, *same, ColumnTotal(same->kind), ColumnTotal(same->kind)});
        copied_.columns.push_back(*same);
    }
    for (size_t i = 0; i < taken.size(); ++i) {
        if (!taken[i])
            import.missing << target.name + u'.' + target.columns[i].name;
    }
}

void TableCopy::Take(const QStringList& values) {
    ++rowsRead_;
    QVariantList row;
    row.reserve(static_cast<qsizetype>(columns_.size()));
    QString why;
    for (CopiedColumn& column : columns_) {
        const QString& text = values[column.source];
        try {
            row << ValueIn(text, column.target);
            if (column.target.kind == ColumnKind::Number && !text.isNull())
                column.read.AddDigits(text);
            else
                column.read.Add(FieldValue(row.back()));
        } catch (const Unfit& unfit) {
            why = u"%1 \"%2\" %3"_s.arg(column.target.name, text, unfit.why);
        }
    }
    if (!why.isNull()) {
        QStringList copied;
        for (const CopiedColumn& column : columns_)
            copied << values[column.source];
        return Keep(Named(copied, why), import_.refused);
    }
    rows_ << row;
    if (rows_.size() == BatchSize)
        Write();
}

TableAccount TableCopy::Finish() {
    Write();
    TableAccount account{copied_.name, rowsRead_, 0, rowsSetAside_, {}};
    if (!columns_.empty()) {
        Cursor rows = connection_.Query(u"select %1 from [%2]"_s.arg(copied_.ColumnList(), copied_.name));
        for (; rows.Next(); ++account.rowsWritten) {
            for (size_t i = 0; i < columns_.size(); ++i)
                columns_[i].written.Add(rows.Value(static_cast<int>(i)));
        }
    }
    for (const auto& [source, target, read, written] : columns_) {
        if (target.kind != ColumnKind::Text && target.kind != ColumnKind::Flag)
            account.columns.push_back({target.name, read.Text(), written.Text()});
    }
    return account;
}

void TableCopy::Write() {
    if (rows_.isEmpty())
        return;
    const QString statement = u"insert into [%1] (%2) values (%3)"_s.arg(
        copied_.name, copied_.ColumnList(), QStringList(rows_.front().size(), u"?"_s).join(u','));
    connection_.ExecuteMany(statement, rows_,
                            [this](qsizetype row, const DatabaseError&) { SetAside(rows_[row]); });
    rows_.clear();
}

/// No other rule of the schema is left to break: every value was looked at.
void TableCopy::SetAside(const QVariantList& row) {
    ++rowsSetAside_;
    QStringList values;
    QStringList told;
    for (size_t i = 0; i < columns_.size(); ++i) {
        const QVariant& value = row[static_cast<qsizetype>(i)];
        columns_[i].written.Add(FieldValue(value));
        values << value.toString();
        if (!columns_[i].target.isKey && !value.isNull())
            told << columns_[i].target.name + u' ' + value.toString();
    }
    Keep(Named(values, told.join(u", ")), import_.setAside);
}

LeftRow TableCopy::Named(const QStringList& values, const QString& why) const {
    QStringList key;
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].target.isKey)
            key << values[static_cast<qsizetype>(i)];
    }
    return {copied_.name, key.join(u' '), why};
}
