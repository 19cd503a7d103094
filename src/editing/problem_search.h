#pragma once

#include "cards/period_cards.h"
#include "core/code_lists.h"
#include "editing/card_problems.h"

#include <QHash>
#include <QSet>

/// Finds the problems among the rows of a period, handed to it one by one: first employees and roster, then
/// cards, then the rest.
class ProblemSearch {
public:
    ProblemSearch(DayRange days, WallTime now, std::vector<ShiftRow> shifts,
                  std::vector<PeriodEmployee> employees, bool onlyThese);

    void TakeRosterDay(const QString& nip, Day day, const QString& code);
    void TakeCard(const PeriodCard& card);
    void TakeCardWithoutDay(const PeriodCard& card);
    /// Tells the rostered days of which no card was taken; all in order.
    std::vector<CardProblem> Finish();

private:
    /// What is known of an employee's day before it is looked at.
    struct EmployeeDay {
        quint16 roster = 0; ///< number of its code
        bool accounted = false;
    };

    EmployeeDay* DayOfEmployee(const QString& nip, Day day);
    const PeriodEmployee* EmployeeOf(const QString& nip) const;
    bool IsWanted(const QString& nip) const { return !onlyThese_ || EmployeeOf(nip); }
    CardProblem& Add(ProblemKind kind, const PeriodCard& card, const QString& shift);
    void CheckTimes(const PeriodCard& card, const QString& code);
    void CheckDeparture(const PeriodCard& card, const QString& code);
    /// When the shift of that day is over; nothing when no row describes it.
    std::optional<WallTime> EndOfShift(const QString& code, Day day) const;

    DayRange days_;
    WallTime now_;
    std::vector<ShiftRow> shifts_;
    std::vector<PeriodEmployee> employees_;
    bool onlyThese_;
    QHash<QString, size_t> places_; ///< of the employees by number
    std::vector<EmployeeDay> calendar_;
    QStringList codes_{QString()};
    std::vector<CardProblem> problems_;
};
