#pragma once

#include "cards/card_computation.h"

/// Tells of a card that has nothing to compute.
QString NoDataText(const modAbsen::CardNotComputed& card);

/// Names the cards that were left and why, the first ones in full.
QString NotComputedText(const modAbsen::ComputationReport& report);
