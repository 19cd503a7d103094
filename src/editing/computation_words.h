#pragma once

#include "cards/card_computation.h"

/// Tells of a card that has nothing to compute.
QString NoDataText(const modAbsen::CardNotComputed& card);

/// Names the cards that were left and why, and those computed by an unknown shift, the first ones of each in
/// full; "" when there are none.
QString ComplaintsText(const modAbsen::ComputationReport& report);
