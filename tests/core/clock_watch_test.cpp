#include "core/clock_watch.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

/// Whose wall clock somebody sets while the seconds go on.
class SetClock : public Clock {
public:
    WallTime Now() const override { return now; }
    Seconds Elapsed() const override { return elapsed; }
    void Pass(Seconds seconds) {
        now += seconds;
        elapsed += seconds;
    }

    WallTime now = Moment(u"2026-11-22 07:58:00");
    Seconds elapsed{1000};
};

} // namespace

TEST(ClockWatch, NoticesThatTheClockWasSetUntilItIsConfirmed) {
    SetClock clock;
    ClockWatch watch(clock);
    const std::tuple<const char*, int, int, QString> steps[] = {
        {"time passes", 86'400, 0, {}},
        {"corrected a little", 10, 300, {}},
        {"set forward", 60, 301, u"Jam komputer berubah dari 23-Nov-2026 08:03 menjadi 23-Nov-2026 08:09."_s},
        {"set back again, nobody has looked at it yet", 60, -301,
         u"Jam komputer berubah dari 23-Nov-2026 08:09 menjadi 23-Nov-2026 08:05."_s},
    };
    for (const auto& [what, passed, set, doubt] : steps) {
        clock.Pass(Seconds{passed});
        clock.now += Seconds{set};
        watch.Look();
        EXPECT_EQ(watch.Doubt(), doubt) << what;
    }
    watch.Confirm();
    clock.Pass(Seconds{60});
    watch.Look();
    EXPECT_FALSE(watch.IsInDoubt());
}

TEST(ClockWatch, WondersAtAnArrivalThatLiesAheadOnce) {
    SetClock clock;
    ClockWatch watch(clock);
    for (const auto& [arrival, doubted] : {std::pair{u"2026-11-22 07:59:00"_s, false},
                                           {u"2026-11-23 09:00:00"_s, false},
                                           {u"2026-11-22 07:59:01"_s, true}}) {
        watch.Compare(Moment(arrival));
        EXPECT_EQ(watch.IsInDoubt(), doubted) << arrival.toStdString();
    }
    watch.Confirm();
    watch.Compare(Moment(u"2026-11-22 07:59:01"));
    EXPECT_FALSE(watch.IsInDoubt());
    watch.Compare(Moment(u"2026-11-22 08:30:00"));
    EXPECT_EQ(watch.Doubt(),
              u"Jam komputer menunjukkan 07:58, padahal hari ini sudah tercatat absen masuk pukul 08:30."_s);
}
