#include "cards/time_card.h"

#include <algorithm>

const CardDay* TimeCard::DayOn(Day date) const {
    const auto found = std::ranges::find(days, date, &CardDay::tanggal);
    return found == days.end() ? nullptr : &*found;
}

CardDay* TimeCard::DayOn(Day date) {
    const auto found = std::ranges::find(days, date, &CardDay::tanggal);
    return found == days.end() ? nullptr : &*found;
}

CardHeader& TimeCard::HeaderOf(const QString& tcid, const QString& nip) {
    return header ? *header : header.emplace(CardHeader{tcid, nip, {}, {}});
}

CardDay& TimeCard::FirstDay(Day ifNone) {
    return days.empty() ? days.emplace_back(CardDay{ifNone}) : days.front();
}
