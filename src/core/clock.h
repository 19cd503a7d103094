#pragma once

#include "database/wall_time.h"

/// What time it is. Nothing else in the program asks the system, so that tests can set the time.
class Clock {
public:
    virtual ~Clock() = default;
    /// The reading of the wall clock, in whole seconds.
    virtual WallTime Now() const = 0;
    /// Seconds that pass whatever is done to the wall clock, from any start. A clock that nobody sets passes
    /// them as it is read.
    virtual Seconds Elapsed() const { return Now() - EmptyTime; }

    Day Today() const { return DayOf(Now()); }
};

class SystemClock : public Clock {
public:
    WallTime Now() const override { return FromQDateTime(QDateTime::currentDateTime()); }
    /// Goes on while the machine sleeps.
    Seconds Elapsed() const override;
};
