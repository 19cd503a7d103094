#include "editing/problem_search.h"

#include "compute/working_times.h"
#include "core/status_codes.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using enum ProblemKind;

namespace {

bool SaysWorked(const QString& status) {
    return status == CardStatus::In || status == CardStatus::Out || status == CardStatus::OutShort
           || status == CardStatus::LeftEarly;
}

size_t DayCount(DayRange days) {
    return static_cast<size_t>(days.Days());
}

} // namespace

ProblemSearch::ProblemSearch(DayRange days, WallTime now, std::vector<ShiftRow> shifts,
                             std::vector<PeriodEmployee> employees, bool onlyThese)
    : days_(days), now_(now), shifts_(std::move(shifts)), employees_(std::move(employees)),
      onlyThese_(onlyThese), calendar_(employees_.size() * DayCount(days)) {
    for (size_t i = 0; i < employees_.size(); ++i)
        places_.insert(employees_[i].nip, i);
}

ProblemSearch::EmployeeDay* ProblemSearch::DayOfEmployee(const QString& nip, Day day) {
    const auto place = places_.constFind(nip);
    if (place == places_.cend() || day < days_.first || day > days_.last)
        return nullptr;
    return &calendar_[*place * DayCount(days_) + static_cast<size_t>((day - days_.first).count())];
}

const PeriodEmployee* ProblemSearch::EmployeeOf(const QString& nip) const {
    const auto place = places_.constFind(nip);
    return place == places_.cend() ? nullptr : &employees_[*place];
}

void ProblemSearch::TakeRosterDay(const QString& nip, Day day, const QString& code) {
    EmployeeDay* of = DayOfEmployee(nip, day);
    if (!of)
        return;
    qsizetype number = codes_.indexOf(code); // a company has few codes
    if (number < 0) {
        number = codes_.size();
        codes_ << code;
    }
    of->roster = static_cast<quint16>(number);
}

std::optional<WallTime> ProblemSearch::EndOfShift(const QString& code, Day day) const {
    const auto shift = modAbsen::HoursOfShift(shifts_, code);
    return shift && !WorkingTimes::IsDayOff(code, shifts_)
               ? std::optional(WorkingTimes::ShiftOn(*shift, day).end)
               : std::nullopt;
}

CardProblem& ProblemSearch::Add(ProblemKind kind, const PeriodCard& card, const QString& shift) {
    const PeriodEmployee* employee = EmployeeOf(card.nip);
    return problems_.emplace_back(CardProblem{kind,
                                              card.tcid,
                                              card.nip,
                                              employee ? employee->nama : QString(),
                                              employee ? employee->dept : QString(),
                                              card.day,
                                              card.timeIn,
                                              card.timeOut,
                                              card.status,
                                              shift,
                                              {}});
}

void ProblemSearch::TakeCard(const PeriodCard& card) {
    if (card.nip.isEmpty() || !IsWanted(card.nip))
        return;
    EmployeeDay* day = DayOfEmployee(card.nip, card.day);
    const QString roster = day ? codes_[day->roster] : QString();
    const bool worked = card.timeIn || card.timeOut;
    if (day && (worked || !card.status.isEmpty()))
        day->accounted = true;
    const QString code = worked ? modAbsen::ResolveShift(roster, card.timeIn, shifts_) : roster;
    CheckTimes(card, code);
    if (worked && WorkingTimes::IsDayOff(roster, shifts_))
        Add(WorkOnDayOff, card, roster);
    const QString& computedBy = card.shiftCode.isEmpty() ? code : card.shiftCode;
    if (worked && computedBy != ShiftCode::DayOff && !modAbsen::HoursOfShift(shifts_, computedBy))
        Add(UnknownShift, card, computedBy);
}

void ProblemSearch::CheckTimes(const PeriodCard& card, const QString& code) {
    if (!card.timeIn) {
        if (card.timeOut || SaysWorked(card.status))
            Add(NoArrival, card, code);
    } else if (!card.timeOut) {
        CheckDeparture(card, code);
    } else if (*card.timeOut < *card.timeIn) {
        Add(Reversed, card, code);
    } else if (*card.timeOut - *card.timeIn > WorkingTimes::Longest) {
        Add(TooLong, card, code);
    } else if (!card.hasHours && SaysWorked(card.status) && card.status != CardStatus::In) {
        Add(NotComputed, card, code);
    }
}

void ProblemSearch::CheckDeparture(const PeriodCard& card, const QString& code) {
    std::optional<WallTime> end = EndOfShift(code, card.day);
    if (end && (*end <= *card.timeIn || *end - *card.timeIn > WorkingTimes::Longest))
        end.reset(); // the arrival does not belong to that shift
    if (now_ > (end ? *end + WorkingTimes::AfterEnd : *card.timeIn + WorkingTimes::Longest))
        Add(NoDeparture, card, code).proposedOut = end;
}

void ProblemSearch::TakeCardWithoutDay(const PeriodCard& card) {
    if (!IsWanted(card.nip))
        return;
    if (EmployeeDay* day = DayOfEmployee(card.nip, card.day))
        day->accounted = true;
    Add(NoDay, card, {});
}

std::vector<CardProblem> ProblemSearch::Finish() {
    const size_t days = DayCount(days_);
    for (size_t i = 0; i < calendar_.size(); ++i) {
        const QString& code = codes_[calendar_[i].roster];
        if (calendar_[i].accounted || code.isEmpty() || WorkingTimes::IsDayOff(code, shifts_))
            continue;
        const PeriodEmployee& employee = employees_[i / days];
        PeriodCard none;
        none.nip = employee.nip;
        none.day = days_.first + std::chrono::days{i % days};
        const WallTime end = EndOfShift(code, none.day).value_or(none.day + std::chrono::days{1});
        if (now_ > end + WorkingTimes::AfterEnd && (!employee.joined || *employee.joined <= none.day)
            && (!employee.left || none.day <= *employee.left))
            Add(NoCard, none, code);
    }
    std::ranges::stable_sort(problems_, [](const CardProblem& a, const CardProblem& b) {
        return std::tuple(a.kind == NotComputed, a.day, a.nip)
               < std::tuple(b.kind == NotComputed, b.day, b.nip);
    });
    return std::move(problems_);
}
