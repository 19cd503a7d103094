#include "exchange/punch_cards.h"

#include "cards/card_store.h"
#include "cards/sheet_identifier.h"
#include "core/status_codes.h"
#include "timecard/sheet_lifecycle.h"

#include <algorithm>

namespace {

/// A card that says so was not made by working: sick, on leave.
bool MayHoldTimes(const QString& status) {
    static const QSet<QString> working{QString(),
                                       CardStatus::Absent.toString(),
                                       CardStatus::In.toString(),
                                       CardStatus::Out.toString(),
                                       CardStatus::OutShort.toString(),
                                       CardStatus::LeftEarly.toString(),
                                       CardStatus::OnBreak.toString(),
                                       CardStatus::OnDuty.toString()};
    return working.contains(status);
}

QString StatusAfter(const QString& status, bool hasLeft) {
    if (hasLeft)
        return status == CardStatus::OutShort || status == CardStatus::LeftEarly ? status
                                                                                 : CardStatus::Out.toString();
    return status.isEmpty() || status == CardStatus::Absent ? CardStatus::In.toString() : status;
}

} // namespace

void PunchCards::Read(Connection& connection, DayRange days, const QSet<QString>& nips) {
    const auto take = [&](const PeriodCard& card) {
        if (card.nip.isEmpty())
            withoutHeader_ << card.tcid;
        else if (nips.contains(card.nip))
            cards_[card.nip].push_back(card);
    };
    EachPeriodCard(connection, days, {}, take);
    std::ranges::for_each(CardsWithoutDay(connection, days, {}), take);
    EachRosterDay(connection, days, [&](const QString& nip, Day day, const QString& code) {
        roster_.insert({nip, day.time_since_epoch().count()}, code);
    });
    closed_ += ClosedSheets(connection, days.first, days.last);
}

std::vector<Punch> PunchCards::StoredArrivals(const QString& nip) const {
    std::vector<Punch> arrivals;
    const auto found = cards_.constFind(nip);
    if (found == cards_.cend())
        return arrivals;
    for (const PeriodCard& card : *found) {
        if (card.timeIn)
            arrivals.push_back({*card.timeIn, PunchDirection::In, card.day});
    }
    return arrivals;
}

const PeriodCard* PunchCards::CardOf(const QString& nip, Day day) const {
    const auto found = cards_.constFind(nip);
    if (found == cards_.cend())
        return nullptr;
    const QString plain = CardIdentifier(SheetIdentifierOf(day), nip);
    const PeriodCard* any = nullptr;
    for (const PeriodCard& card : *found) {
        if (card.day == day && (!any || card.tcid == plain))
            any = &card;
    }
    return any;
}

bool PunchCards::IsNear(const std::optional<WallTime>& a, WallTime b) const {
    return a && std::chrono::abs(*a - b) <= doubles_;
}

bool PunchCards::Place(PunchLine* punch, const PeriodCard* card, const std::optional<WallTime>& stored,
                       bool open) const {
    if (!punch)
        return false;
    if (IsNear(stored, punch->reading->moment))
        punch->outcome = PunchOutcome::Stored;
    else if (stored || (card && !MayHoldTimes(card->status)))
        punch->outcome = PunchOutcome::Contradicts;
    else if (!open)
        punch->outcome = PunchOutcome::SheetClosed;
    else
        return true;
    return false;
}

void PunchCards::Bring(const QString& nip, Day day, PunchLine* arrival, PunchLine* departure) {
    const PeriodCard* card = CardOf(nip, day);
    const QString tcid = card ? card->tcid : CardIdentifier(SheetIdentifierOf(day), nip);
    for (PunchLine* punch : {arrival, departure}) {
        if (punch)
            punch->tcid = tcid;
    }
    if (withoutHeader_.contains(tcid)) {
        for (PunchLine* punch : {arrival, departure}) {
            if (punch)
                punch->outcome = PunchOutcome::Contradicts;
        }
        return;
    }
    const bool open = !closed_.contains(tcid.chopped(nip.size()));
    const std::optional<WallTime> none;
    Change change{tcid, nip, day, {}, {}};
    if (Place(arrival, card, card ? card->timeIn : none, open))
        change.timeIn = arrival->reading->moment;
    if (Place(departure, card, card ? card->timeOut : none, open))
        change.timeOut = departure->reading->moment;
    // What is written must not make the card run backwards.
    if (card && change.timeIn && card->timeOut && *card->timeOut < *change.timeIn) {
        arrival->outcome = PunchOutcome::Contradicts;
        change.timeIn.reset();
    }
    if (card && change.timeOut && card->timeIn && *change.timeOut < *card->timeIn) {
        departure->outcome = PunchOutcome::Contradicts;
        change.timeOut.reset();
    }
    if (change.timeIn || change.timeOut)
        (card ? changes_ : added_).push_back(change);
}

void PunchCards::Write(Connection& connection) const {
    const CardStore store(connection);
    std::vector<TimeCard> cards;
    cards.reserve(added_.size());
    const auto fill = [](TimeCard& card, const Change& change) {
        CardHeader& header = card.HeaderOf(change.tcid, change.nip);
        CardDay* known = card.DayOn(change.day);
        CardDay& day = known ? *known : card.FirstDay(change.day);
        if (change.timeIn) {
            day.timeIn = change.timeIn;
            day.beriUangMakan = true; // as an arrival at a desk does
        }
        if (change.timeOut)
            day.timeOut = change.timeOut;
        header.status = StatusAfter(header.status, TimeIfSet(day.timeOut).has_value());
    };
    for (const Change& change : added_)
        fill(cards.emplace_back(), change);
    store.Insert(cards);
    for (const Change& change : changes_)
        store.Change(change.tcid, [&](TimeCard& card) { fill(card, change); });
}
