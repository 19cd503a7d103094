#include "company/usual_codes.h"

#include "core/status_codes.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

CodeName Named(QStringView code, const QString& name) {
    return {code.toString(), name};
}

} // namespace

std::vector<CodeName> UsualCodes::Statuses() {
    return {
        Named(CardStatus::In, u"Masuk"_s),           Named(CardStatus::Out, u"Keluar"_s),
        Named(CardStatus::Absent, u"Tidak hadir"_s), Named(CardStatus::Sick, u"Sakit"_s),
        Named(CardStatus::Excused, u"Izin"_s),       Named(CardStatus::OnLeave, u"Cuti"_s),
        Named(CardStatus::Holiday, u"Libur"_s),      Named(CardStatus::LeftEarly, u"Pulang cepat"_s),
        Named(CardStatus::OnDuty, u"Tugas luar"_s),  Named(CardStatus::OnBreak, u"Keluar istirahat"_s),
    };
}

std::vector<CodeName> UsualCodes::AbsenceTypes() {
    return {Named(CardStatus::Absent, u"Alpa"_s), Named(CardStatus::OnLeave, u"Cuti"_s),
            Named(CardStatus::Excused, u"Izin"_s), Named(CardStatus::Holiday, u"Libur"_s),
            Named(CardStatus::Sick, u"Sakit"_s)};
}

std::vector<ShiftRow> UsualCodes::Shifts() {
    return {{ShiftCode::Default.toString(), DayZero + 8h, DayZero + 17h},
            {u"PAGI"_s, DayZero + 7h, DayZero + 15h},
            {u"SIANG"_s, DayZero + 15h, DayZero + 23h},
            {u"MALAM"_s, DayZero + 23h, DayZero + 31h},
            {ShiftCode::DayOff.toString(), EmptyTime, EmptyTime}};
}
