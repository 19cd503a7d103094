#include "tools/demo_attendance.h"

#include "cards/sheet_identifier.h"
#include "core/status_codes.h"
#include "tools/demo_random.h"

#include <array>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

enum ShiftIndex { Default, DayOff, Morning, Afternoon, Night, CrewDayOff };
constexpr std::array<DemoShift, 6> Shifts{{
    {ShiftCode::Default, 8h, 17h},
    {ShiftCode::DayOff, 0h, 0h},
    {u"PAGI", 6h, 14h},
    {u"SIANG", 14h, 22h},
    {u"MALAM", 22h, 30h},
    {u"OFF", 0h, 0h},
}};

/// Out of a thousand working days, how many an employee spends otherwise than at work from beginning to end.
struct Outcome {
    int perMille;
    QStringView status;
    /// What the remarks may say; "" for none.
    std::array<QStringView, 3> remarks;
};
constexpr std::array<Outcome, 7> Outcomes{{
    {20, CardStatus::Sick, {u"Surat dokter", u"Demam", u"Rawat inap"}},
    {12, CardStatus::Excused, {u"Urusan keluarga", u"Mengurus SIM", u"Anak sakit"}},
    {18, CardStatus::OnLeave, {u"Cuti tahunan", u"Cuti tahunan", u"Cuti menikah"}},
    {16, CardStatus::LeftEarly, {u"Sakit kepala", u"Urusan keluarga", u"Ijin atasan"}},
    {16, CardStatus::OnDuty, {u"Ke cabang Bekasi", u"Kirim barang ke pelabuhan", u"Rapat di kantor pusat"}},
    {10, CardStatus::Absent, {u"", u"Tanpa kabar", u""}},
    {4, CardStatus::In, {u"", u"", u""}}, // forgot to clock out
}};
/// Days without a card at all.
constexpr int AwayPerMille = 8;

constexpr int OvertimePerMille = 120;
constexpr int CalledBackPerMille = 8;
constexpr int SaturdayWorkPerMille = 30;

std::uint64_t SeedOf(int employee, Day day) {
    const auto dayNumber = static_cast<std::uint64_t>(day.time_since_epoch().count() + 1'000'000);
    return (static_cast<std::uint64_t>(employee) << 32) ^ dayNumber;
}

bool IsHoliday(Day day) {
    const year_month_day date{day};
    const month_day holiday{date.month(), date.day()};
    return holiday == January / 1 || holiday == May / 1 || holiday == June / 1 || holiday == August / 17
           || holiday == December / 25;
}

/// Counts weeks from Monday to Sunday.
int WeekOf(Day day) {
    constexpr Day someMonday{2000y / January / 3};
    return static_cast<int>(floor<weeks>(day - someMonday).count());
}

Seconds SomeMinutes(DemoRandom& random, int least, int most) {
    return Seconds{random.Between(least * 60, most * 60 + 59)};
}

Seconds ArrivalOf(const DemoEmployee& employee, const DemoShift& shift, DemoRandom& random) {
    // The warehouse opens its gate at the hour.
    if (employee.plan == WorkPlan::Warehouse)
        return shift.start + SomeMinutes(random, 0, 9);
    if (random.Chance(50))
        return shift.start + SomeMinutes(random, 11, 55);
    if (random.Chance(100))
        return shift.start + SomeMinutes(random, 0, 10);
    return shift.start - SomeMinutes(random, 0, 24);
}

class CardMaker {
public:
    CardMaker(const DemoEmployee& employee, Day day, const DemoShift& shift)
        : employee_(employee), day_(day), shift_(shift), random_(SeedOf(employee.number, day)) {}

    std::vector<DemoCard> Make() {
        if (shift_.IsDayOff()) {
            WorkOnDayOff();
            return std::move(cards_);
        }
        int draw = random_.Between(0, 999);
        for (const Outcome& outcome : Outcomes) {
            if (draw < outcome.perMille) {
                SpendOtherwise(outcome);
                return std::move(cards_);
            }
            draw -= outcome.perMille;
        }
        if (draw >= AwayPerMille)
            WorkAsPlanned();
        return std::move(cards_);
    }

private:
    DemoCard& Add(QStringView status, const QString& remarks, const QString& extension = {}) {
        const QString sheet = SheetIdentifierOf(day_);
        cards_.push_back({extension.isEmpty() ? sheet : sheet + u'-' + extension, employee_.nip, day_,
                          status.toString(), remarks});
        return cards_.back();
    }

    void WorkOnDayOff() {
        const bool isSaturday = weekday{day_} == Saturday;
        if (employee_.plan != WorkPlan::Office || !isSaturday || !random_.Chance(SaturdayWorkPerMille))
            return;
        DemoCard& card = Add(CardStatus::Out, u"Lembur hari Sabtu"_s);
        card.timeIn = day_ + 8h + SomeMinutes(random_, 0, 20);
        card.timeOut = day_ + 12h + SomeMinutes(random_, 0, 90);
    }

    void SpendOtherwise(const Outcome& outcome) {
        const auto remark = static_cast<size_t>(random_.Between(0, 2));
        DemoCard& card = Add(outcome.status, outcome.remarks[remark].toString());
        const Seconds arrival = ArrivalOf(employee_, shift_, random_);
        if (outcome.status == CardStatus::In) {
            card.timeIn = day_ + arrival;
        } else if (outcome.status == CardStatus::LeftEarly) {
            card.timeIn = day_ + arrival;
            card.timeOut = day_ + shift_.end - SomeMinutes(random_, 60, 200);
        } else if (outcome.status == CardStatus::OnDuty && random_.Chance(500)) {
            card.timeIn = day_ + arrival;
            card.timeOut = day_ + shift_.end - SomeMinutes(random_, 0, 30);
        }
    }

    void WorkAsPlanned() {
        DemoCard& card = Add(CardStatus::Out, {});
        card.timeIn = day_ + ArrivalOf(employee_, shift_, random_);
        // Who works until ten in the evening is not kept into the night.
        if (shift_.code != Shifts[Afternoon].code && random_.Chance(OvertimePerMille)) {
            card.timeOut = day_ + shift_.end + SomeMinutes(random_, 60, 180);
            card.overtimeIn = day_ + shift_.end;
            card.overtimeOut = card.timeOut;
            card.shiftCode = shift_.code.toString();
            return;
        }
        card.timeOut = day_ + shift_.end + SomeMinutes(random_, 0, 14);
        if (shift_.code == Shifts[Default].code && random_.Chance(CalledBackPerMille))
            ComeBackInTheEvening();
    }

    void ComeBackInTheEvening() {
        DemoCard& card = Add(CardStatus::Out, u"Dipanggil kembali"_s, u"1"_s);
        card.timeIn = day_ + 19h + SomeMinutes(random_, 0, 30);
        card.timeOut = day_ + 21h + SomeMinutes(random_, 0, 90);
    }

    const DemoEmployee& employee_;
    Day day_;
    const DemoShift& shift_;
    DemoRandom random_;
    std::vector<DemoCard> cards_;
};

} // namespace

std::span<const DemoShift> DemoShifts() {
    return Shifts;
}

const DemoShift& PlannedShift(const DemoEmployee& employee, Day day) {
    constexpr std::array<ShiftIndex, 3> turns{Morning, Afternoon, Night};
    const weekday today{day};
    const bool officeCloses = employee.plan == WorkPlan::Office && today == Saturday;
    if (today == Sunday || officeCloses || IsHoliday(day))
        return Shifts[employee.plan == WorkPlan::Crew ? CrewDayOff : DayOff];
    if (employee.plan != WorkPlan::Crew)
        return Shifts[Default];
    const int turn = ((WeekOf(day) + employee.crew) % 3 + 3) % 3;
    return Shifts[turns[static_cast<size_t>(turn)]];
}

std::vector<DemoCard> CardsOf(const DemoEmployee& employee, Day day) {
    return CardMaker(employee, day, PlannedShift(employee, day)).Make();
}
