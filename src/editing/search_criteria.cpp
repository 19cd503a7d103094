#include "editing/search_criteria.h"

#include "database/statement.h"

using namespace Qt::StringLiterals;

QString EqualFragment(const QString& field, const QString& text) {
    return text.isEmpty() ? QString() : u" and "_s + field + u'=' + Quoted(text);
}

QString PrefixFragment(const QString& field, const QString& text) {
    return text.isEmpty() ? QString() : u" and "_s + field + u" like "_s + Quoted(text + u'%');
}

QString WhereClause(const QString& fragments) {
    QString conditions = fragments.trimmed();
    if (conditions.startsWith(u"and"_s))
        conditions = conditions.sliced(3).trimmed();
    return conditions.isEmpty() ? QString() : u" Where "_s + conditions;
}
