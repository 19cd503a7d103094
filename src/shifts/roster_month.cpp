#include "shifts/roster_month.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

bool RosterMonth::ReadEmployees(Connection& connection, const Progress& progress) {
    std::vector<RosterEmployee> employees;
    QHash<QString, int> rowsByNip;
    Cursor rows = connection.Query(u"Select * from employee"_s);
    const int nip = rows.ColumnOf(u"NIP"_s);
    const int nama = rows.ColumnOf(u"Nama"_s);
    const int dept = rows.ColumnOf(u"Dept"_s);
    const int divisi = rows.ColumnOf(u"Divisi"_s);
    const int masuk = rows.ColumnOf(u"Masuk"_s);
    const int keluar = rows.ColumnOf(u"Keluar"_s);
    const auto dayIn = [&rows](int column) {
        const auto time = rows.Time(column);
        return time ? std::optional(DayOf(*time)) : std::nullopt;
    };
    while (rows.Next()) {
        rowsByNip.insert(rows.Text(nip), static_cast<int>(employees.size()));
        employees.push_back({rows.Text(nip), rows.Text(nama), rows.Text(dept), rows.Text(divisi),
                             dayIn(masuk), dayIn(keluar)});
        if (!ShouldContinue(progress, static_cast<qsizetype>(employees.size()), 0))
            return false;
    }
    employees_ = std::move(employees);
    rowsByNip_ = std::move(rowsByNip);
    roster_.assign(employees_.size(), Days{});
    standing_.reset();
    month_.reset();
    CountAll();
    return true;
}

bool RosterMonth::ReadMonth(Connection& connection, const QString& period, const Progress& progress) {
    const RosterPeriod read = ReadPeriod(period);
    KnownShifts shifts;
    shifts.Read(connection);
    std::vector<Days> roster(employees_.size());
    Cursor rows = connection.Query(u"select * from ShiftEmployee where year(Tgl)="_s + read.year
                                   + u" and Month(Tgl)="_s + read.month);
    const int nip = rows.ColumnOf(u"NIP"_s);
    const int tgl = rows.ColumnOf(u"Tgl"_s);
    const int shiftCode = rows.ColumnOf(u"ShiftCode"_s);
    const qsizetype most = MostDays * static_cast<qsizetype>(employees_.size());
    lastEmployee_ = -1;
    for (qsizetype done = 1; rows.Next(); ++done) {
        if (const auto time = rows.Time(tgl))
            PlaceShift(roster, rows.Text(nip), DayOf(*time), rows.Text(shiftCode));
        if (!ShouldContinue(progress, done, qMax(most, done)))
            return false;
    }
    shifts_ = std::move(shifts);
    roster_ = std::move(roster);
    standing_.reset();
    month_ = read.value;
    CountAll();
    return true;
}

/// A shift of someone who is no employee any more has no place, nor one of someone who had left before.
void RosterMonth::PlaceShift(std::vector<Days>& roster, const QString& nip, Day day,
                             const QString& shiftCode) {
    if (lastEmployee_ < 0 || employees_[static_cast<size_t>(lastEmployee_)].nip != nip)
        lastEmployee_ = EmployeeOf(nip);
    const std::chrono::year_month_day date{day};
    if (lastEmployee_ < 0 || HadLeft(lastEmployee_, date.year() / date.month()))
        return;
    roster[static_cast<size_t>(lastEmployee_)][static_cast<unsigned>(date.day()) - 1] = NumberOf(shiftCode);
}

bool RosterMonth::HadLeft(int employee, std::chrono::year_month month) const {
    const auto& keluar = employees_[static_cast<size_t>(employee)].keluar;
    return keluar && *keluar < Day{month / 1};
}

std::vector<int> RosterMonth::Staff() const {
    std::vector<int> staff(employees_.size());
    std::iota(staff.begin(), staff.end(), 0);
    std::erase_if(staff, [this](int employee) { return month_ && HadLeft(employee, *month_); });
    return staff;
}

int RosterMonth::NumberOf(const QString& code) {
    if (code.isEmpty())
        return 0;
    if (const auto known = numbersByCode_.constFind(code); known != numbersByCode_.constEnd())
        return *known;
    codes_.push_back(code);
    counts_.push_back(Days{});
    const int number = static_cast<int>(codes_.size()) - 1;
    numbersByCode_.insert(code, number);
    return number;
}

void RosterMonth::CountAll() {
    counts_.assign(codes_.size(), Days{});
    for (const Days& days : roster_) {
        for (size_t day = 0; day < MostDays; ++day)
            ++counts_[static_cast<size_t>(days[day])][day];
    }
}

std::optional<Day> RosterMonth::DateOf(unsigned day) const {
    if (!month_)
        return std::nullopt;
    return MakeDay(static_cast<int>(month_->year()), static_cast<int>(static_cast<unsigned>(month_->month())),
                   static_cast<int>(day));
}

const QString& RosterMonth::CodeOn(int employee, unsigned day) const {
    return codes_[static_cast<size_t>(roster_[static_cast<size_t>(employee)][day - 1])];
}

void RosterMonth::Put(int employee, unsigned day, const QString& code) {
    const int number = NumberOf(code);
    int& present = roster_[static_cast<size_t>(employee)][day - 1];
    --counts_[static_cast<size_t>(present)][day - 1];
    ++counts_[static_cast<size_t>(number)][day - 1];
    present = number;
}

QStringList RosterMonth::CodesInUse() const {
    QStringList used;
    for (size_t number = 1; number < codes_.size(); ++number) {
        if (std::ranges::any_of(counts_[number], [](int count) { return count > 0; }))
            used << codes_[number];
    }
    const auto place = [this](const QString& code) {
        const qsizetype listed = shifts_.Codes().indexOf(code);
        return std::pair(listed < 0 ? shifts_.Codes().size() : listed, code);
    };
    std::ranges::sort(used, {}, place);
    return used;
}

int RosterMonth::Count(const QString& code, unsigned day) const {
    return counts_[static_cast<size_t>(numbersByCode_.value(code))][day - 1];
}

int RosterMonth::CountUnlisted() const {
    int unlisted = 0;
    for (size_t number = 1; number < codes_.size(); ++number) {
        if (!shifts_.Has(codes_[number]))
            unlisted = std::accumulate(counts_[number].begin(), counts_[number].end(), unlisted);
    }
    return unlisted;
}

RosterMonth::Previewed RosterMonth::Preview(const std::vector<PlannedCell>& cells, Standing standing) {
    EndPreview();
    standing_ = roster_;
    Previewed previewed;
    for (const auto& [employee, day, code] : cells) {
        const QString& stands = CodeOn(employee, day);
        const std::optional<Day> date = DateOf(day);
        if (!date || !employees_[static_cast<size_t>(employee)].WorksOn(*date) || stands == code)
            continue;
        const bool kept = standing == Standing::Kept && !stands.isEmpty();
        ++(kept ? previewed.kept : previewed.filled);
        if (!kept)
            Put(employee, day, code);
    }
    return previewed;
}

bool RosterMonth::IsPreviewed(int employee, unsigned day) const {
    return standing_
           && (*standing_)[static_cast<size_t>(employee)][day - 1]
                  != roster_[static_cast<size_t>(employee)][day - 1];
}

const QString& RosterMonth::StandingOn(int employee, unsigned day) const {
    const std::vector<Days>& stands = standing_ ? *standing_ : roster_;
    return codes_[static_cast<size_t>(stands[static_cast<size_t>(employee)][day - 1])];
}

void RosterMonth::EndPreview() {
    if (!standing_)
        return;
    roster_ = *std::exchange(standing_, std::nullopt);
    CountAll();
}
