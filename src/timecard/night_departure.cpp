#include "timecard/night_departure.h"

#include "cards/open_cards.h"
#include "compute/working_times.h"

using namespace Qt::StringLiterals;

QString OpenNight::Text() const {
    return u"Keluar untuk lembar %1, masuk %2"_s.arg(ShownDay(day).first(6), ShownMinute(arrival));
}

std::optional<OpenNight> FindOpenNight(Connection& connection, const QString& nip, Day shownDay,
                                       WallTime departure) {
    const Day day = shownDay - std::chrono::days{1};
    const std::vector<OpenCard> cards = OpenCardsOf(connection, nip, day);
    if (cards.empty())
        return std::nullopt;
    const std::vector<ShiftRow> shifts = CodeLists::Shifts(connection);
    for (const auto& [tcid, arrival, rosterCode] : cards) {
        const auto shift = WorkingTimes::ShiftWorked(rosterCode, arrival, shifts);
        if (shift && WorkingTimes::EndsAfterMidnight(*shift) && arrival <= departure
            && departure - arrival <= WorkingTimes::Longest)
            return OpenNight{tcid.chopped(nip.size()), day, arrival};
    }
    return std::nullopt;
}
