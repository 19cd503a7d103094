#include "cards/time_card.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void CardHeader::AddRemark(const QString& remark) {
    if (!keterangan.contains(remark))
        keterangan = keterangan.isEmpty() ? remark : keterangan + u"; "_s + remark;
}

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
