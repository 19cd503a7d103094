#pragma once

#include "compute/fixed_number.h"
#include "database/wall_time.h"

/// Hours with the minutes after the point: 8 h 30 min is 8.3. They are stored, printed and multiplied as the
/// number that these digits make.
using DottedHours = FixedNumber<2>;

/// The hours that the duration text gives when ":" is read as ".". The text's odd cases are part of the rule:
/// 5 seconds are 0.05, 2 minutes 0.2 like 20 minutes, a rounded-up minute may be the 60th (1.6), and nothing
/// below zero counts.
DottedHours NormalHoursOf(Seconds duration);

/// The same, but a text of fewer than 6 characters counts as minutes and seconds: under a minute it is 0.
DottedHours OvertimeHoursOf(Seconds duration);

/// The minutes from one time to the other as whole hours, halves to even: 08:00 to 16:30 is 8, 08:00 to 17:30
/// is 10. Seconds do not count; negative when `to` is the earlier one.
qint64 WholeHoursBetween(WallTime from, WallTime to);
