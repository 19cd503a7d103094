#pragma once

#include "core/dialogs.h"
#include "core/progress.h"
#include "database/connection.h"

#include <QString>
#include <QStringList>

namespace modAbsen {

/// Computes one time card: writes the overtime period and the shift code onto its day row, hours and amounts
/// onto its header, together or not at all. Of a card with several day rows the first counts. A card without
/// a day row, or without a header to hold the results, is told to the user and nothing is written; an empty
/// identifier does nothing. Throws DatabaseError, and ProgramError when an amount is too large.
void CalculateTimeCard(Connection& connection, Dialogs& dialogs, const QString& tcid);

/// What became of a run over many cards.
struct ComputationReport {
    int computed = 0;
    /// The identifiers that have no day row or no header, in the order given.
    QStringList withoutData;
    /// True when the run was stopped before the last card.
    bool cancelled = false;
};

/// Computes many cards with the results of CalculateTimeCard, some hundreds in a transaction. Progress is
/// told between the transactions. An identifier given twice counts once, an empty one not at all. Nothing is
/// shown. Throws like CalculateTimeCard; the cards of the transactions before the failure stay computed.
ComputationReport CalculateTimeCards(Connection& connection, const QStringList& tcids,
                                     const Progress& progress = {});

} // namespace modAbsen
