#pragma once

#include "database/connection.h"
#include "editing/search_row.h"

#include <QSet>

#include <vector>

/// The result of a search, read page by page in the order of the cards. Each page is a statement of its own
/// that goes on after the last card of the page before it: a statement left open between two pages would
/// keep every other desk from writing. Pages grow, so that a large result takes few of them.
class SearchPages {
public:
    SearchPages() = default;
    explicit SearchPages(const QString& whereClause) : clause_(whereClause), atEnd_(false) {}

    bool AtEnd() const { return atEnd_; }
    /// The next rows; a card's days always come in one page. Throws DatabaseError, and may be asked again
    /// then.
    std::vector<SearchRow> Next(Connection& connection);

    /// The identifiers of all cards of the result, read in one statement.
    QStringList Tcids(Connection& connection) const;

private:
    QString Statement(int limit) const;
    std::vector<SearchRow> Read(Connection& connection, int limit);
    QString Shared(const QString& text) { return *texts_.insert(text); }

    QString clause_;
    QString lastCard_;
    int pageSize_ = 200;
    bool atEnd_ = true;
    /// Names and codes stand in very many rows: they share one text.
    QSet<QString> texts_;
};
