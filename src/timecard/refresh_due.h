#pragma once

#include "database/wall_time.h"

/// When the desk's clock reads the sheet anew.
inline constexpr Seconds RefreshEvery{5};

/// Seconds since the last multiple of five.
inline Seconds SinceRefresh(WallTime time) {
    return TimeOfDay(time) % RefreshEvery;
}

/// The clock stands on a multiple of five seconds, or went past one since the last tick.
inline bool RefreshIsDue(WallTime lastTick, WallTime now) {
    return SinceRefresh(now) == Seconds{0}
           || lastTick.time_since_epoch() / RefreshEvery != now.time_since_epoch() / RefreshEvery;
}
