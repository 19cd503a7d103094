#pragma once

#include "core/code_lists.h"

class QComboBox;

/// Offers the choice of all, then the codes by their names; one without a name is called by its code. What
/// was chosen stays chosen.
void OfferCodes(QComboBox& box, const std::vector<CodeName>& codes);

/// Nothing when all are chosen.
std::optional<QString> ChosenCode(const QComboBox& box);
