#pragma once

#include "cards/time_card.h"
#include "database/database_error.h"

/// What to throw when a card does not stand as it was `read`. It names the card and each field that another
/// desk changed, with what is `stored` there and what this desk `wanted` to write over it. Days are told
/// apart by their place.
ConflictError CardConflict(const QString& tcid, const QString& nip, const TimeCard& read,
                           const TimeCard& stored, const TimeCard& wanted);
