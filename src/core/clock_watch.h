#pragma once

#include "core/clock.h"

#include <QString>

#include <optional>

/// Notices that somebody set the machine's clock while the program runs, or that it stands before what is
/// stored already. The doubt lasts until somebody confirms the clock.
class ClockWatch {
public:
    explicit ClockWatch(const Clock& clock);

    /// To be called often: what it notices is told with the time of the last call.
    void Look();
    /// The latest arrival that is stored today. Desks' clocks may differ by a minute.
    void Compare(const std::optional<WallTime>& latestArrival);

    bool IsInDoubt() const { return !doubt_.isEmpty(); }
    /// What was noticed; "" when nothing was.
    const QString& Doubt() const { return doubt_; }
    /// The clock is right as it stands now.
    void Confirm();

private:
    /// What the wall clock is ahead of the seconds that passed.
    Seconds Ahead() const { return (clock_.Now() - EmptyTime) - clock_.Elapsed(); }

    const Clock& clock_;
    Seconds ahead_;
    WallTime looked_;
    WallTime confirmed_ = EmptyTime; ///< no arrival up to here is wondered at again
    std::optional<WallTime> latest_;
    QString doubt_;
};
