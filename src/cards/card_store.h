#pragma once

#include "cards/time_card.h"
#include "compute/time_card_rules.h"
#include "database/connection.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>

/// What the computation reads of a card, its first day, its employee and the roster. The pay is the one in
/// force on that day (cards/employee_pay); null where there is no employee.
struct ComputableCard {
    QString tcid;
    QString nip;
    QString status;
    QString storedDay; ///< tells the day row that counts from the card's others
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    bool mealGranted = false;
    QString rosterCode; ///< empty when the roster says nothing of the day
    FieldValue basicPay;
    FieldValue overtimeRate;
    FieldValue mealAllowance;
    QString employeeType;
};

/// What the computation found for a card.
struct ComputedCard {
    QString tcid;
    QString storedDay;
    CardResult result;
};

/// The one way to change a time card, and to read a whole one. Lists, sheets and searches read lines of cards
/// (card_lines, sheet_cards, card_search). All functions throw DatabaseError.
class CardStore {
public:
    explicit CardStore(Connection& connection) : connection_(connection) {}

    /// The card as it stands; empty when there is none.
    TimeCard Read(const QString& tcid) const;

    /// Reads the card, lets `change` alter it, and writes what was altered, as one transaction. Days are told
    /// apart by their place: `change` may alter and append days, not remove them. What it throws leaves the
    /// card as it was; it may be called again. Returns the card as it stands then.
    TimeCard Change(const QString& tcid, const std::function<void(TimeCard&)>& change) const;

    /// The same for many cards, in a number of statements that does not grow with theirs. `change` gets all
    /// of them by their identifiers, empty where there is none; a card of which it leaves no day loses its
    /// days.
    void ChangeAll(const QStringList& tcids,
                   const std::function<void(QHash<QString, TimeCard>&)>& change) const;

    /// Deletes the card's days, or one of them, and leaves its header. `check` sees the card first; what it
    /// throws leaves the card as it was.
    void DeleteDays(const QString& tcid, const std::function<void(const TimeCard&)>& check,
                    std::optional<Day> only = {}) const;

    /// Adds cards that are not there yet, in few statements.
    void Insert(const std::vector<TimeCard>& cards) const;

    /// The cards that have a header and a day, ordered by identifier, in one statement.
    std::vector<ComputableCard> ReadForComputation(const QStringList& tcids) const;
    /// Writes what was computed, in two statements run for each card. Part of the caller's transaction.
    void WriteResults(const std::vector<ComputedCard>& cards) const;

    /// How many days of cards name one of these shift codes.
    int CountDaysOfShift(const QStringList& codes) const;

    /// Those of the employees' numbers on which a card stands.
    QSet<QString> WithCards(const QStringList& nips) const;
    int CountCardsOfStatus(const QString& status) const;
    /// Gives all cards of one status another.
    void RenameStatus(const QString& from, const QString& to) const;

private:
    Connection& connection_;
};
