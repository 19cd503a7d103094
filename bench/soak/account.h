#pragma once

#include "database/connection.h"

#include <QString>
#include <QStringList>

#include <vector>

/// What a worker wrote into the database, and when: in milliseconds of a clock that all programs of this
/// machine share.
struct Writing {
    enum Kind { Arrival, Departure, Status, Remark, Roster, Results };

    Kind kind = Arrival;
    QString nip;
    QString key;   ///< the card; of a status and a shift the day, yyyy-mm-dd
    QString value; ///< a text, of arrivals and departures the time of day; of results none
    qint64 began = 0;
    qint64 ended = 0;
    /// False when a message was shown meanwhile: the value may stand there, or come later.
    bool certain = true;
};

qint64 SharedMoment();

/// What a worker reports, as lines on its standard output.
void Say(const QString& line);
void Tell(const Writing& writing);
void TellProblem(const QString& what);

/// What workers reported.
struct Account {
    std::vector<Writing> writings;
    QStringList problems;
};
/// Adds what one worker reported; what is neither a writing nor a problem is printed.
void ReadAccount(const QString& file, const QString& worker, Account& account);

/// The values that do not stand in the database although nobody can have overwritten them, and arrivals that
/// were recorded twice, a line each.
QStringList LostWritings(Connection& connection, const std::vector<Writing>& writings);

/// The cards whose stored results are not those of their times, status and roster, a line each. Only cards
/// that nobody wrote to since they were computed count; their number comes with it. The rules are applied in
/// a copy of the database, which is left behind.
QStringList WrongResults(Connection& connection, const std::vector<Writing>& writings, const QString& copy,
                         int& compared);
