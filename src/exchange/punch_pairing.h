#pragma once

#include "compute/working_times.h"
#include "exchange/punch_form.h"

#include <functional>

/// What became of a punch.
enum class PunchOutcome {
    Arrival,
    Departure,
    Stored,      ///< its time stands on the card already
    Double,      ///< so soon after another one that it is the same
    Between,     ///< neither the first arrival nor the last departure of its day
    NoArrival,   ///< a departure that no arrival and no rostered shift claims
    Contradicts, ///< another time, or a status without times, stands on the card
    SheetClosed,
    UnknownNumber,
    Unreadable
};
inline constexpr int PunchOutcomeCount = static_cast<int>(PunchOutcome::Unreadable) + 1;

/// A punch of one employee, or the arrival of a card that is stored.
struct Punch {
    WallTime moment{};
    PunchDirection direction = PunchDirection::None;
    std::optional<Day> storedDay = {}; ///< of a stored arrival: the day of its card
};

struct PairingRules {
    Seconds doubles{120};      ///< punches no further apart are one
    bool firstAndLast = false; ///< directions are not believed: people press the wrong key
    std::vector<ShiftRow> shifts = {};
};

/// A day that punches tell of; the places of its two among those given.
struct WorkedDay {
    Day day{};
    std::optional<size_t> arrival = {};
    std::optional<size_t> departure = {};
    bool confirmed = false; ///< the arrival, by a punch that is not the stored card's own
};

struct Pairing {
    std::vector<WorkedDay> days;        ///< each day once, in order of their first punch
    std::vector<PunchOutcome> outcomes; ///< of each punch given
};

/// Tells arrivals and departures of one employee, whose punches come in order of time, a stored arrival
/// before the punch of the same second. An arrival may come four hours before its shift, a departure up to
/// sixteen hours after its arrival. A day's first arrival and last departure count. `rosterOf` gives the
/// roster's code of a day, "" when it says nothing.
Pairing PairPunches(const std::vector<Punch>& punches, const std::function<QString(Day)>& rosterOf,
                    const PairingRules& rules);
