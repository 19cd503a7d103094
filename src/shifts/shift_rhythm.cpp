#include "shifts/shift_rhythm.h"

#include <QMap>

namespace {

constexpr size_t LeastRepeats = 2;        ///< days that must have come round as they were
constexpr size_t RoundsForExceptions = 3; ///< so that the exception is outvoted
constexpr size_t DaysPerException = 10;

/// What a cycle's day most often was, and on how many days it was something else.
struct Vote {
    QString code;
    int others = 0;
    int days = 0;
};

Vote VoteOn(const std::vector<QString>& days, size_t first, size_t length) {
    QMap<QString, int> counts;
    Vote vote;
    for (size_t day = first; day < days.size(); day += length) {
        if (days[day].isEmpty())
            continue;
        ++vote.days;
        if (const int count = ++counts[days[day]]; count > counts.value(vote.code))
            vote.code = days[day];
    }
    vote.others = vote.days - counts.value(vote.code);
    return vote;
}

/// The cycle of that length; nothing where one of its days was never seen, or too few came round.
std::optional<ShiftRhythm> RhythmOf(const std::vector<QString>& days, size_t length) {
    ShiftRhythm rhythm;
    size_t repeats = 0;
    for (size_t first = 0; first < length; ++first) {
        const Vote vote = VoteOn(days, first, length);
        if (vote.days == 0)
            return std::nullopt;
        rhythm.cycle.codes << vote.code;
        rhythm.exceptions += vote.others;
        repeats += static_cast<size_t>(vote.days - 1 - vote.others);
    }
    return repeats >= std::max(LeastRepeats, (length + 2) / 3) ? std::optional(rhythm) : std::nullopt;
}

} // namespace

std::optional<ShiftRhythm> RecogniseRhythm(const std::vector<QString>& days) {
    std::optional<ShiftRhythm> nearly;
    std::optional<ShiftRhythm> onceRound;
    for (size_t length = 1; length < days.size(); ++length) {
        const std::optional<ShiftRhythm> rhythm = RhythmOf(days, length);
        if (!rhythm)
            continue;
        if (rhythm->exceptions == 0 && length * 2 <= days.size())
            return rhythm;
        if (rhythm->exceptions == 0 && !onceRound)
            onceRound = rhythm;
        const bool few = static_cast<size_t>(rhythm->exceptions) * DaysPerException <= days.size();
        if (!nearly && few && length * RoundsForExceptions <= days.size())
            nearly = rhythm;
    }
    return nearly ? nearly : onceRound;
}

unsigned DaysIn(std::chrono::year_month month) {
    return static_cast<unsigned>((month / std::chrono::last).day());
}

std::optional<unsigned> SameDate(Day day, std::chrono::year_month from) {
    const auto date = static_cast<unsigned>(std::chrono::year_month_day{day}.day());
    return date <= DaysIn(from) ? std::optional(date) : std::nullopt;
}

std::optional<unsigned> SameWeekday(Day day, std::chrono::year_month from) {
    for (const int weeks : {4, 5}) {
        const std::chrono::year_month_day source{day - std::chrono::weeks{weeks}};
        if (source.year() / source.month() == from)
            return static_cast<unsigned>(source.day());
    }
    return std::nullopt;
}
