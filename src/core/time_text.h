#pragma once

#include "database/wall_time.h"

#include <QString>

namespace modGeneral {

/// A duration as text, "hours:minutes:seconds". The hours-dot-minutes numbers of the pay computation are read
/// from this text, so its odd cases are part of the rules: under a minute (and below zero) it is "0:" and the
/// seconds; under an hour "00:", the minutes without padding and the seconds; from an hour on the minutes are
/// rounded to the nearest, halves to even, while the seconds stay as they are.
QString SecondsToTimeText(Seconds duration);

} // namespace modGeneral
