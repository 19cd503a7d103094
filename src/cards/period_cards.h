#pragma once

#include "cards/card_lines.h"

#include <functional>
#include <vector>

/// One day of a card, or a card that has none, as it is to be examined. Times that were never set are absent.
struct PeriodCard {
    QString tcid;
    QString nip; ///< empty when the header is missing
    QString status;
    Day day{}; ///< of a card without a day row, the one that its identifier names
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    QString shiftCode; ///< that it was computed by
    bool hasHours = false;
};

/// Somebody who is expected at work.
struct PeriodEmployee {
    QString nip;
    QString nama;
    QString dept;
    std::optional<WallTime> joined; ///< the first day
    std::optional<WallTime> left;   ///< the last day
};

/// Each reads in one statement, whose cost follows from the days and not from the history, and throws
/// DatabaseError. The cards are of the days and of the number, if one is asked for, ordered by day and card.
void EachPeriodCard(Connection& connection, DayRange days, const std::optional<QString>& nip,
                    const std::function<void(const PeriodCard&)>& visit);
/// The cards of these days that have a header and no day row.
std::vector<PeriodCard> CardsWithoutDay(Connection& connection, DayRange days,
                                        const std::optional<QString>& nip);
std::vector<PeriodEmployee> PeriodEmployees(Connection& connection, const CardFilter& filter);
/// What the roster says of the days.
void EachRosterDay(Connection& connection, DayRange days,
                   const std::function<void(const QString& nip, Day day, const QString& code)>& visit);
