#include "exchange/punch_pairing.h"

#include <algorithm>

using namespace WorkingTimes;
using enum PunchOutcome;

namespace {

/// A lone punch so shortly before the end of a shift, or after it, is a departure.
constexpr std::chrono::hours NearEnd{1};

class Pairer {
public:
    Pairer(const std::vector<Punch>& punches, const std::function<QString(Day)>& rosterOf,
           const PairingRules& rules)
        : punches_(punches), rosterOf_(rosterOf), rules_(rules) {
        result_.outcomes.assign(punches.size(), Between);
    }

    Pairing Run() {
        for (size_t i = 0; i < punches_.size(); ++i) {
            if (IsDouble(i))
                result_.outcomes[i] = Double;
            else
                Take(i);
        }
        for (WorkedDay& day : result_.days)
            TurnLoneDeparture(day);
        for (const WorkedDay& day : result_.days) {
            if (day.arrival)
                result_.outcomes[*day.arrival] = Arrival;
            if (day.departure)
                result_.outcomes[*day.departure] = Departure;
        }
        return std::move(result_);
    }

private:
    PunchDirection DirectionOf(size_t i) const {
        const Punch& punch = punches_[i];
        return rules_.firstAndLast && !punch.storedDay ? PunchDirection::None : punch.direction;
    }

    WallTime At(size_t i) const { return punches_[i].moment; }

    bool IsDouble(size_t i) {
        if (!last_ || At(i) - At(*last_) > rules_.doubles)
            return false;
        const PunchDirection a = DirectionOf(i);
        const PunchDirection b = DirectionOf(*last_);
        if (a != b && a != PunchDirection::None && b != PunchDirection::None)
            return false;
        if (!result_.days.empty() && result_.days.back().arrival == last_) {
            WorkedDay& day = result_.days.back();
            day.day = punches_[i].storedDay.value_or(day.day); // one of both may be the stored card's
            day.confirmed = true;
        }
        return true;
    }

    void Take(size_t i) {
        last_ = i;
        WorkedDay* open = Open(i);
        switch (DirectionOf(i)) {
        case PunchDirection::In:
            TakeArrival(i);
            break;
        case PunchDirection::Out:
            open ? void(open->departure = i) : TakeLoneDeparture(i);
            break;
        case PunchDirection::None:
            if (open && !IsNextArrival(*open, At(i)))
                open->departure = i;
            else
                TakeUndirected(i);
            break;
        }
    }

    /// The day whose arrival lies near enough for a departure.
    WorkedDay* Open(size_t i) {
        WorkedDay* last = result_.days.empty() ? nullptr : &result_.days.back();
        return last && last->arrival && At(i) - At(*last->arrival) <= Longest ? last : nullptr;
    }

    void TakeArrival(size_t i) {
        const Day day = punches_[i].storedDay.value_or(RosteredDay(At(i)).value_or(DayOf(At(i))));
        WorkedDay* known = Known(day);
        const bool isStored = punches_[i].storedDay.has_value();
        if (!known)
            result_.days.push_back({day, i, {}, !isStored});
        else if (!known->arrival)
            known->arrival = i;
        else if (!isStored && !known->confirmed)
            result_.outcomes[i] = Contradicts; // the device saw the arrival at another time
        if (known && !isStored)
            known->confirmed = true;
    }

    void TakeLoneDeparture(size_t i) {
        const std::optional<Day> day = DayThatEnds(At(i));
        WorkedDay* known = day ? Known(*day) : nullptr;
        if (!day)
            result_.outcomes[i] = NoArrival;
        else if (!known)
            result_.days.push_back({*day, {}, i});
        else if (!known->arrival)
            known->departure = i;
    }

    void TakeUndirected(size_t i) {
        if (!RosteredDay(At(i)) && DayThatEnds(At(i)))
            TakeLoneDeparture(i);
        else
            TakeArrival(i);
    }

    WorkedDay* Known(Day day) {
        const auto found = std::ranges::find(result_.days, day, &WorkedDay::day);
        return found == result_.days.end() ? nullptr : &*found;
    }

    /// The shift that the roster plans for a day.
    std::optional<ShiftHours> Planned(Day day) const {
        const QString code = rosterOf_(day);
        if (code.isEmpty() || IsDayOff(code, rules_.shifts))
            return std::nullopt;
        const auto shift = modAbsen::HoursOfShift(rules_.shifts, code);
        return shift ? std::optional(ShiftOn(*shift, day)) : std::nullopt;
    }

    /// Of the planned days about a moment the one that `distance`, nothing where it does not fit, puts
    /// nearest.
    template<class Distance>
    std::optional<Day> Nearest(WallTime moment, Distance distance) const {
        std::optional<Day> nearest;
        std::optional<Seconds> least;
        for (const int days : {-1, 0, 1}) {
            const Day day = DayOf(moment) + std::chrono::days{days};
            const auto shift = Planned(day);
            const std::optional<Seconds> away = shift ? distance(*shift) : std::nullopt;
            if (away && (!least || *away < *least)) {
                least = away;
                nearest = day;
            }
        }
        return nearest;
    }

    std::optional<Day> RosteredDay(WallTime moment) const {
        return Nearest(moment, [moment](const ShiftHours& shift) {
            const bool fits = shift.start - BeforeStart <= moment && moment < shift.end;
            return fits ? std::optional(std::chrono::abs(moment - shift.start)) : std::nullopt;
        });
    }

    std::optional<Day> DayThatEnds(WallTime moment) const {
        return Nearest(moment, [moment](const ShiftHours& shift) {
            const bool fits = shift.start < moment && moment <= shift.end + AfterEnd;
            return fits ? std::optional(std::chrono::abs(moment - shift.end)) : std::nullopt;
        });
    }

    /// Whether a punch without a direction begins another day rather than ends this one.
    bool IsNextArrival(const WorkedDay& open, WallTime moment) const {
        const WallTime arrival = At(*open.arrival);
        const auto shift = ShiftWorked(rosterOf_(open.day), arrival, rules_.shifts);
        const WallTime end = shift ? ShiftOn(*shift, open.day).end : arrival;
        const bool late = end <= arrival || moment > end + AfterEnd;
        const std::optional<Day> next = RosteredDay(moment);
        if (next && *next > open.day)
            return late || (open.departure && moment > end);
        return late && open.departure && DayOf(moment) > open.day && moment - At(*open.departure) > AfterEnd;
    }

    void TurnLoneDeparture(WorkedDay& day) const {
        if (day.departure || punches_[*day.arrival].storedDay
            || DirectionOf(*day.arrival) != PunchDirection::None)
            return;
        const auto shift = Planned(day.day);
        if (shift && At(*day.arrival) >= shift->end - NearEnd)
            std::swap(day.arrival, day.departure);
    }

    const std::vector<Punch>& punches_;
    const std::function<QString(Day)>& rosterOf_;
    const PairingRules& rules_;
    Pairing result_;
    std::optional<size_t> last_; ///< that was no double
};

} // namespace

Pairing PairPunches(const std::vector<Punch>& punches, const std::function<QString(Day)>& rosterOf,
                    const PairingRules& rules) {
    return Pairer(punches, rosterOf, rules).Run();
}
