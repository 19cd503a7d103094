#pragma once

#include "core/dialogs.h"

#include <QStringList>

// What is asked before something is stored that can hardly be meant. Functions without a reason to ask answer
// as the user would who has none to refuse.

/// Whether a card is stored with departures before their arrivals; `reversed` says which.
bool MayStoreReversed(Dialogs& dialogs, const QString& tcid, const QStringList& reversed);

/// Whether a typed number is stored although digits follow the part of it that counts. Throws ProgramError
/// for a number that is too large.
bool MayCutNumber(Dialogs& dialogs, const QString& typed);

/// What becomes of the status of a card that gets a departure while it says that its employee is in: Yes, it
/// becomes OUT; Cancel, nothing is stored.
Dialogs::Answer OfferOut(Dialogs& dialogs);
