#pragma once

#include "database/field_value.h"

#include <QSqlQuery>
#include <QStringList>

#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

class Connection;
class Engine;

/// The rows of one query, read from first to last. Columns are counted from 0 in the query's order.
class Cursor {
public:
    /// Steps to the next row; false after the last. Throws DatabaseError when reading fails.
    bool Next();

    QStringList ColumnNames() const;
    /// The column of that name, in any letter case; -1 when there is none.
    int ColumnOf(const QString& name) const;
    FieldValue Value(int column) const { return FieldValue(query_.value(column)); }
    /// The text of a field, "" for null.
    QString Text(int column) const { return query_.value(column).toString(); }
    /// The moment that a field holds; nothing when it is null or no date.
    std::optional<WallTime> Time(int column) const { return ReadStored(Text(column)); }
    /// What `make` gives for each of the rows that are left.
    template<class Make>
    auto All(Make make) {
        std::vector<std::invoke_result_t<Make, const Cursor&>> all;
        while (Next())
            all.push_back(make(*this));
        return all;
    }

private:
    friend class Connection;
    Cursor(QSqlQuery query, const Engine& engine) : query_(std::move(query)), engine_(&engine) {}

    QSqlQuery query_;
    const Engine* engine_;
};
