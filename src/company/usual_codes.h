#pragma once

#include "core/code_lists.h"

/// The codes that a company usually begins with.
namespace UsualCodes {

std::vector<CodeName> Statuses();
std::vector<CodeName> AbsenceTypes();
/// A day, three shifts around the clock, and a day off, which has no hours.
std::vector<ShiftRow> Shifts();

} // namespace UsualCodes
