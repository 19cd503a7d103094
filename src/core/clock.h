#pragma once

#include "database/wall_time.h"

/// What time it is. Nothing else in the program asks the system, so that tests can set the time.
class Clock {
public:
    virtual ~Clock() = default;
    /// The reading of the wall clock, in whole seconds.
    virtual WallTime Now() const = 0;

    Day Today() const { return DayOf(Now()); }
};

class SystemClock : public Clock {
public:
    WallTime Now() const override { return FromQDateTime(QDateTime::currentDateTime()); }
};
