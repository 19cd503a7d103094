#pragma once

#include "database/wall_time.h"

#include <QString>

/// A time of a shift that starts on the base day: "06:00", or "06:00 (+1)" on the day after it.
QString ShownShiftTime(WallTime time, Day base);
