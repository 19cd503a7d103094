#pragma once

#include "database/connection.h"

#include <QString>

namespace modAbsen {

/// The code of the shift that an employee worked on a day: the roster's; else that of the first shift (in the
/// order of the codes) whose hours contain the clock-in time; else "P". Never empty. The clock-in time is a
/// time of day with or without a date before it; "" when there is none. Throws DatabaseError, also for a
/// clock-in text that is no time.
QString ResolveShift(Connection& connection, const QString& nip, Day day, const QString& clockIn);

} // namespace modAbsen
