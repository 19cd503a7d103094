#pragma once

#include <QString>

/// What a criterion adds to the search's clause: "" for an empty box. A typed single quote is refused with a
/// StatementError; "%" and "_" are wildcards where a prefix is asked for.
QString EqualFragment(const QString& field, const QString& text);
QString PrefixFragment(const QString& field, const QString& text);

/// What stands after the search's statement: " Where " and the joined fragments without the "and" in front
/// of the first; "" without any.
QString WhereClause(const QString& fragments);
