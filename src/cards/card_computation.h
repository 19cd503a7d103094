#pragma once

#include "core/progress.h"
#include "database/connection.h"

#include <QString>
#include <QStringList>

#include <exception>

namespace modAbsen {

/// A card that was left as it was.
struct CardNotComputed {
    QString tcid;
    std::exception_ptr reason; ///< null: it has no day row, or no header to hold the results
};

/// A card whose hours were computed by a shift that the table of shifts lacks, as if it ended at midnight.
struct UnknownShift {
    QString tcid;
    QString shiftCode;
};

/// What became of a run over cards.
struct ComputationReport {
    int computed = 0;
    std::vector<CardNotComputed> notComputed; ///< in the order given
    std::vector<UnknownShift> unknownShifts;  ///< of computed cards
    bool cancelled = false;                   ///< stopped before the last card
};

/// Computes cards: resolves the shift, writes overtime period and shift code onto the day row, hours and
/// amounts onto the header, a card's together or not at all. Of a card with several day rows the first
/// counts. Cards are written some hundreds in a transaction; progress is told between them. A card that
/// cannot be computed stops no other one. An identifier given twice counts once, an empty one not at all.
/// Throws DatabaseError; the cards of the transactions before the failure stay computed.
ComputationReport CalculateTimeCards(Connection& connection, const QStringList& tcids,
                                     const Progress& progress = {});

/// The same for one card.
ComputationReport CalculateTimeCard(Connection& connection, const QString& tcid);

} // namespace modAbsen
