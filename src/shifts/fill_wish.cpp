#include "shifts/fill_wish.h"

#include "database/database_error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadWishNumber = 17;
/// More names than these are counted only.
constexpr size_t NamesTold = 5;

int EmployeeNamed(const RosterMonth& month, const QString& nip) {
    const int employee = month.EmployeeOf(nip.trimmed());
    const std::vector<int> staff = month.Staff();
    if (std::ranges::binary_search(staff, employee))
        return employee;
    throw ProgramError(
        BadWishNumber,
        nip.trimmed().isEmpty()
            ? u"Ketik NIK karyawan, atau tekan F9 untuk memilih."_s
            : u"NIK %1 tidak ada di jadwal bulan ini. Tekan F9 untuk memilih."_s.arg(nip.trimmed()));
}

QString Named(const QString& what, const RosterMonth& month, const std::vector<int>& employees) {
    if (employees.empty())
        return {};
    QStringList names;
    for (size_t i = 0; i < std::min(NamesTold, employees.size()); ++i)
        names << month.Employees()[static_cast<size_t>(employees[i])].nama;
    if (employees.size() > NamesTold)
        names << u"..."_s;
    return u"%1: %2 karyawan (%3)."_s.arg(what).arg(employees.size()).arg(names.join(u", "_s));
}

FillPlan PlanPattern(const FillWish& wish, const RosterMonth& month) {
    const ShiftCycle cycle = ReadShiftCycle(wish.cycle, month.Shifts());
    const QStringList unlisted = cycle.Unlisted(month.Shifts());
    QString note = u"Siklus %1 hari."_s.arg(cycle.codes.size());
    if (!unlisted.isEmpty())
        note += u" Kode yang tidak ada di Shift: %1."_s.arg(unlisted.join(u", "_s));
    return {PlanCycle(cycle, wish.area, wish.start), note, unlisted};
}

FillPlan PlanMonth(const FillWish& wish, const RosterMonth& month, const RosterMonth& before) {
    const CopiedMonth copied =
        PlanCopy(wish.copy, *month.Month(), wish.area,
                 [&](int employee, unsigned day) { return before.CodeOn(employee, day); });
    const QString without =
        wish.copy == MonthCopy::Rhythm ? u"Irama tidak dikenali"_s : u"Tanpa jadwal di bulan sebelumnya"_s;
    QStringList notes{Named(without, month, copied.without),
                      Named(u"Irama dengan pengecualian"_s, month, copied.nearly)};
    notes.removeAll(QString());
    return {copied.cells, notes.join(u' ')};
}

} // namespace

FillPlan PlanFill(const FillWish& wish, const RosterMonth& month, const RosterMonth& before) {
    if (wish.area.firstDay > wish.area.lastDay)
        throw ProgramError(BadWishNumber, u"Tanggal mulai sesudah tanggal sampai."_s);
    const CodeOnDay stands = [&](int employee, unsigned day) { return month.StandingOn(employee, day); };
    FillArea area = wish.area;
    switch (wish.way) {
    case FillWay::Pattern:
        return PlanPattern(wish, month);
    case FillWay::CopyMonth:
        return PlanMonth(wish, month, before);
    case FillWay::SameAs:
        return {PlanSame(EmployeeNamed(month, wish.firstNip), area, stands)};
    case FillWay::Swap:
        area.employees = {EmployeeNamed(month, wish.firstNip), EmployeeNamed(month, wish.secondNip)};
        if (area.employees.front() == area.employees.back())
            throw ProgramError(BadWishNumber, u"Pilih dua karyawan yang berbeda untuk ditukar."_s);
        return {PlanSwap(area, stands)};
    }
    return {};
}
