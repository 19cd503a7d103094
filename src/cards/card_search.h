#pragma once

#include "cards/card_computation.h"
#include "cards/time_card.h"

#include <QStringList>

/// What a search finds: a card, one of its days and the employee. What the search does not read is absent:
/// the shift code and the total of the meal allowance.
struct FoundDay {
    CardHeader header;
    std::optional<CardDay> day; ///< nothing: the card has no such day
    QString nama;
    QString dept;
    QString divisi;

    bool operator==(const FoundDay&) const = default;
};

/// The result of a search, read page by page in the order of the cards. Each page is a statement of its own
/// that goes on after the last card of the page before it: a statement left open between two pages would
/// keep every other desk from writing. Pages grow, so that a large result takes few of them.
class CardSearch {
public:
    CardSearch() = default;
    /// The clause follows the search's statement (search_criteria); "" finds all.
    explicit CardSearch(const QString& whereClause) : clause_(whereClause), atEnd_(false) {}

    bool AtEnd() const { return atEnd_; }
    /// The next rows; a card's days always come in one page. Throws DatabaseError, and may be asked again
    /// then.
    std::vector<FoundDay> Next(Connection& connection);

    /// The same, but only the identifiers of the next cards, each once.
    QStringList NextCards(Connection& connection);

private:
    Cursor Query(Connection& connection, const QString& columns, int limit) const;
    std::vector<FoundDay> Read(Connection& connection, int limit);

    QString clause_;
    QString lastCard_;
    int pageSize_ = 200;
    bool atEnd_ = true;
};

/// Hands each row of a search's result to the function, in the order of the cards; false when it was stopped.
using FoundRows = std::function<bool(const std::function<void(const FoundDay&)>& take)>;

/// Reads the whole result of a search, anew each time it is asked for, and holds one page of it. How much
/// there is to read it can tell from the second time on. Throws DatabaseError.
class WholeResult {
public:
    WholeResult(Connection& connection, const QString& whereClause, Progress progress)
        : connection_(connection), clause_(whereClause), progress_(std::move(progress)) {}

    bool operator()(const std::function<void(const FoundDay&)>& take);

private:
    Connection& connection_;
    QString clause_;
    Progress progress_;
    qsizetype total_ = 0;
};

/// How many cards a search finds. Throws DatabaseError.
qsizetype CountCards(Connection& connection, const QString& whereClause);

/// Computes the cards that a search finds, page by page (CalculateTimeCards). How many there are is told for
/// the progress.
modAbsen::ComputationReport CalculateFoundCards(Connection& connection, const QString& whereClause,
                                                qsizetype cards, const Progress& progress);

/// The row's card as it stands, with the day that the row shows or else the card's first; nothing when the
/// card is gone. Throws DatabaseError.
std::optional<FoundDay> FindAgain(Connection& connection, const FoundDay& row);

/// The card reduced to what a search reads, with the day of that date, or without one its first.
FoundDay AsFound(const TimeCard& card, const std::optional<CardDay>& day);
