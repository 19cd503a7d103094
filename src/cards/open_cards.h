#pragma once

#include "database/connection.h"

#include <QString>

#include <vector>

/// A card that waits for its departure.
struct OpenCard {
    QString tcid;
    WallTime arrival{};
    QString rosterCode; ///< empty when the roster says nothing of its day
};

/// The cards of an employee on the sheets of a day, extended ones included, that hold an arrival and no
/// departure, in one statement; the latest arrival first. Throws DatabaseError.
std::vector<OpenCard> OpenCardsOf(Connection& connection, const QString& nip, Day day);
