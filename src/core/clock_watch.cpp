#include "core/clock_watch.h"

using namespace Qt::StringLiterals;

namespace {
constexpr std::chrono::minutes Jump{5};
constexpr std::chrono::minutes BetweenDesks{1};
} // namespace

ClockWatch::ClockWatch(const Clock& clock) : clock_(clock), ahead_(Ahead()), looked_(clock.Now()) {}

void ClockWatch::Look() {
    const WallTime now = clock_.Now();
    const Seconds ahead = Ahead();
    if (std::chrono::abs(ahead - ahead_) > Jump) {
        doubt_ = u"Jam komputer berubah dari %1 %2 menjadi %3 %4."_s.arg(
            ShownDay(DayOf(looked_)), ShownMinute(looked_), ShownDay(DayOf(now)), ShownMinute(now));
        ahead_ = ahead;
    }
    looked_ = now;
}

void ClockWatch::Compare(const std::optional<WallTime>& latestArrival) {
    latest_ = latestArrival;
    const WallTime now = clock_.Now();
    if (doubt_.isEmpty() && latestArrival && DayOf(*latestArrival) == DayOf(now)
        && *latestArrival > confirmed_ && now + BetweenDesks < *latestArrival)
        doubt_ = u"Jam komputer menunjukkan %1, padahal hari ini sudah tercatat absen masuk pukul %2."_s.arg(
            ShownMinute(now), ShownMinute(*latestArrival));
}

void ClockWatch::Confirm() {
    ahead_ = Ahead();
    confirmed_ = latest_.value_or(confirmed_);
    doubt_.clear();
}
