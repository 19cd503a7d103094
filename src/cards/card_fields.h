#pragma once

#include "cards/time_card.h"
#include "database/field_value.h"

#include <QStringList>
#include <QVariantList>

// How the members of a card and the fields of its rows become each other.

// A null text is kept apart from an empty one: writing the card leaves it as it is.
inline void Assign(QString& member, const FieldValue& value) {
    member = value.IsNull() ? QString() : value.Text();
}
inline void Assign(std::optional<double>& member, const FieldValue& value) {
    member = value.IsNull() ? std::nullopt : std::optional(value.Number());
}
inline void Assign(std::optional<bool>& member, const FieldValue& value) {
    member = value.IsNull() ? std::nullopt : std::optional(value.Flag());
}
inline void Assign(std::optional<WallTime>& member, const FieldValue& value) {
    member = value.Time();
}
inline void Assign(Day& member, const FieldValue& value) {
    member = DayOf(value.Time().value_or(EmptyTime));
}

template<class Member>
FieldValue Stored(const std::optional<Member>& member) {
    return member ? FieldValue(*member) : FieldValue();
}
inline FieldValue Stored(const QString& member) {
    return member;
}
inline FieldValue Stored(Day member) {
    return member;
}

template<class Member>
bool Differs(const Member& a, const Member& b) {
    return a != b;
}
inline bool Differs(const QString& a, const QString& b) {
    return a != b || a.isNull() != b.isNull();
}

/// The visits of all columns, to be handed on.
inline const auto HeaderColumns = [](auto visit) { EachHeaderColumn(visit); };
inline const auto DayColumns = [](auto visit) { EachDayColumn(visit); };

/// A row from its fields, which `valueOf` gives by the column's name.
template<class Row, class Each, class ValueOf>
Row RowOf(Each each, ValueOf valueOf) {
    Row row;
    each([&](QStringView name, auto member) { Assign(row.*member, valueOf(name)); });
    return row;
}

/// The columns of a table, in the order in which they are visited.
template<class Each>
QStringList NamesOf(Each each) {
    QStringList names;
    each([&names](QStringView name, auto) { names << name.toString(); });
    return names;
}

/// So many places for bound values.
inline QString Marks(qsizetype count) {
    return QStringList(count, QStringLiteral("?")).join(u',');
}

inline QString InsertStatement(const QString& table, const QStringList& columns) {
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(table, columns.join(u','), Marks(columns.size()));
}

template<class Row, class Each>
QVariantList ValuesOf(const Row& row, Each each) {
    QVariantList values;
    each([&](QStringView, auto member) { values << Stored(row.*member).Stored(); });
    return values;
}
