#pragma once

#include "cards/card_computation.h"
#include "cards/card_lines.h"

#include <QString>

#include <vector>

/// What can be wrong with somebody's day.
enum class ProblemKind {
    NoDeparture, ///< and the shift's end is long over
    NoArrival,
    Reversed, ///< departure before arrival
    TooLong,
    WorkOnDayOff,
    NoCard, ///< rostered, and neither a card nor a status tells what became of the day
    UnknownShift,
    NoDay,      ///< a header without a day row
    NotComputed ///< gone, and the hours were never computed
};
inline constexpr int ProblemKindCount = static_cast<int>(ProblemKind::NotComputed) + 1;
QString KindText(ProblemKind kind);

/// A day that a supervisor has to look at.
struct CardProblem {
    ProblemKind kind{};
    QString tcid; ///< empty when there is no card
    QString nip;
    QString nama;
    QString dept;
    Day day{};
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    QString status;
    QString shift;
    /// For a forgotten departure: when the shift was over; nothing when no row tells, or the arrival lies
    /// after it.
    std::optional<WallTime> proposedOut;

    /// Whether the proposal can be taken without opening the card.
    bool CanBeTaken() const { return proposedOut || kind == ProblemKind::NotComputed; }
    QString ProposalText() const;
    /// The card before and after, of a proposal that can be taken.
    QString OldAndNew() const;
    /// All of it on one line.
    QString Line() const;
};

/// The problems of the days from filter.days (which must be there), the employee and the department that it
/// names, as they stand at the moment `now`, ordered by day and number; those that only wait for their hours
/// come last. The number of statements does not depend on the number of cards. Throws DatabaseError.
std::vector<CardProblem> FindProblems(Connection& connection, const CardFilter& filter, WallTime now);

/// How many of the last seven days' problems want a person, as the attendance desk tells. Throws
/// DatabaseError.
int CountProblems(Connection& connection, WallTime now);

/// What became of proposals that were taken.
struct TakenProposals {
    int completed = 0;                         ///< departures
    std::vector<CardProblem> changedMeanwhile; ///< left as they are
    modAbsen::ComputationReport computation;
};

/// Takes the proposals of those that have one. Forgotten departures are completed in one transaction: the
/// scheduled end, status OUT, a remark that says so. A card that no longer stands as it was shown is left and
/// named. Then hours are computed. Throws DatabaseError; no departure is completed then.
TakenProposals TakeProposals(Connection& connection, const std::vector<CardProblem>& problems,
                             const Progress& progress = {});
