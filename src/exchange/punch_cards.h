#pragma once

#include "cards/period_cards.h"
#include "cards/time_card.h"
#include "exchange/punch_import.h"

#include <QHash>
#include <QSet>

/// The cards that punches are brought onto: those that stand, and what is to be written.
class PunchCards {
public:
    explicit PunchCards(Seconds doubles) : doubles_(doubles) {}

    /// Reads the cards, the roster and the closed sheets of these days.
    void Read(Connection& connection, DayRange days, const QSet<QString>& nips);

    /// The arrivals that stand on an employee's cards.
    std::vector<Punch> StoredArrivals(const QString& nip) const;
    QString RosterOf(const QString& nip, Day day) const {
        return roster_.value({nip, day.time_since_epoch().count()});
    }

    /// Brings the two punches of a day onto its card, or tells by their outcomes why not. Null: there is
    /// none.
    void Bring(const QString& nip, Day day, PunchLine* arrival, PunchLine* departure);

    /// Part of the caller's transaction.
    void Write(Connection& connection) const;
    int NewCards() const { return static_cast<int>(added_.size()); }
    int ChangedCards() const { return static_cast<int>(changes_.size()); }

private:
    struct Change {
        QString tcid;
        QString nip;
        Day day{};
        std::optional<WallTime> timeIn;
        std::optional<WallTime> timeOut;
    };

    const PeriodCard* CardOf(const QString& nip, Day day) const;
    bool IsNear(const std::optional<WallTime>& a, WallTime b) const;
    /// Whether the punch is to be written where `stored` stands.
    bool Place(PunchLine* punch, const PeriodCard* card, const std::optional<WallTime>& stored,
               bool open) const;

    Seconds doubles_;
    QHash<QString, std::vector<PeriodCard>> cards_; ///< by number
    QSet<QString> withoutHeader_;
    QHash<std::pair<QString, int>, QString> roster_;
    QSet<QString> closed_;
    std::vector<Change> added_;
    std::vector<Change> changes_;
};
