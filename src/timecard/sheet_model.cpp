#include "timecard/sheet_model.h"

#include "cards/sheet_identifier.h"
#include "core/status_codes.h"
#include "timecard/sheet_lifecycle.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

SheetEntry Absent() {
    return {CardStatus::Absent.toString(), {}, {}, {}, {}};
}

QString TimeCell(const std::optional<WallTime>& time) {
    return time ? ShownTime(*time) : QString();
}

} // namespace

SheetModel::SheetModel(const Clock& clock, QObject* parent)
    : TableModel({{u"Status"_s},
                  {u"Dept"_s},
                  {u"NIP"_s},
                  {u"Nama"_s},
                  {u"Time In"_s, Qt::AlignRight},
                  {u"Time Out"_s, Qt::AlignRight},
                  {u"Hours"_s, Qt::AlignRight},
                  {u"OT In"_s, Qt::AlignRight},
                  {u"OT Out"_s, Qt::AlignRight},
                  {u"OT Hours"_s, Qt::AlignRight}},
                 parent),
      clock_(clock) {}

QString SheetModel::FirstOrder() {
    return u" ORDER BY NAMA"_s;
}

QString SheetModel::OrderBy(int column) const {
    return u" ORDER BY ["_s + headerData(column, Qt::Horizontal).toString() + u']';
}

void SheetModel::LoadEmployees(Connection& connection, const QString& orderBy) {
    const ChangeStamp changes = connection.Changes();
    const Day day = employeesOf_.value_or(clock_.Today());
    TakeEmployees(ReadEmployees(connection, day, orderBy));
    orderBy_ = orderBy;
    employeesRead_ = changes;
    employeesOf_ = day;
}

/// What is shown stays with its employees: the cards of a closed sheet are not read again.
void SheetModel::TakeEmployees(std::vector<SheetEmployee> employees) {
    QHash<QString, SheetEntry> shown;
    for (size_t row = 0; row < employees_.size(); ++row)
        shown.insert(employees_[row].nip, entries_[row]);
    std::vector<SheetEntry> entries;
    entries.reserve(employees.size());
    for (const SheetEmployee& employee : employees)
        entries.push_back(shown.value(employee.nip, Absent()));
    beginResetModel();
    employees_ = std::move(employees);
    entries_ = std::move(entries);
    rowsByCard_.clear();
    lastRead_ = {};
    endResetModel();
}

void SheetModel::Refresh(Connection& connection, const QString& sheet) {
    const WallTime now = clock_.Now();
    // Taken before reading: what is committed meanwhile is found by the next refresh.
    const RefreshKey key{connection.Changes(), sheet, DayOf(now)};
    if (key != lastRead_)
        Read(connection, key);
    if (closed_)
        return;
    now_ = now;
    NotifyColumns(Hours, Hours);
}

void SheetModel::Read(Connection& connection, const RefreshKey& key) {
    const Day dayOfSheet = DayOfIdentifier(key.sheet).value_or(key.today);
    if (key.changes != employeesRead_ || dayOfSheet != employeesOf_) {
        std::vector<SheetEmployee> employees = ReadEmployees(connection, dayOfSheet, orderBy_);
        if (employees != employees_)
            TakeEmployees(std::move(employees));
        employeesRead_ = key.changes;
        employeesOf_ = dayOfSheet;
    }
    const bool closed = IsSheetClosed(connection, key.sheet);
    if (!closed) {
        const Day day = SheetDate(connection, key.sheet, key.today);
        roster_ = ReadDayRoster(connection, day);
        TakeCards(ReadSheetCards(connection, key.sheet), key.sheet);
        sheetDay_ = day;
    } else if (sheetOfCards_ != key.sheet) {
        ForgetCards();
    }
    closed_ = closed;
    lastRead_ = key;
}

void SheetModel::TakeCards(const std::vector<SheetCard>& cards, const QString& sheet) {
    if (sheetOfCards_ != sheet || rowsByCard_.empty()) {
        rowsByCard_.clear();
        rowsByCard_.reserve(employees_.size());
        for (size_t row = 0; row < employees_.size(); ++row)
            rowsByCard_.push_back({CardIdentifier(sheet, employees_[row].nip), row});
        std::ranges::sort(rowsByCard_, {}, &CardRow::tcid);
        sheetOfCards_ = sheet;
    }
    std::vector<SheetEntry> entries(employees_.size(), Absent());
    auto next = rowsByCard_.cbegin();
    for (const SheetCard& card : cards) {
        // The cards come in order, too: as a rule the row is the one after the last card's.
        if (next == rowsByCard_.cend() || next->tcid != card.tcid)
            next = std::ranges::lower_bound(rowsByCard_, card.tcid, {}, &CardRow::tcid);
        // Numbers that differ in letter case only share a card.
        for (; next != rowsByCard_.cend() && next->tcid == card.tcid; ++next)
            entries[next->row] = card.entry;
    }
    if (entries == entries_)
        return;
    entries_ = std::move(entries);
    NotifyColumns(Status, OvertimeHours);
}

/// A closed sheet is not read; the cards of the sheet before it must not stand in its place.
void SheetModel::ForgetCards() {
    entries_.assign(employees_.size(), SheetEntry{});
    rowsByCard_.clear();
    sheetOfCards_.clear();
    NotifyColumns(Status, OvertimeHours);
}

SheetModel::Counts SheetModel::Count() const {
    Counts counts;
    counts.employees = rowCount();
    for (const SheetEntry& entry : entries_) {
        counts.in += entry.status == CardStatus::In;
        counts.out += entry.status == CardStatus::Out;
        counts.absent += entry.status == CardStatus::Absent;
    }
    counts.others = counts.employees - counts.in - counts.out - counts.absent;
    return counts;
}

std::optional<WallTime> SheetModel::LatestArrival() const {
    std::optional<WallTime> latest;
    for (const SheetEntry& entry : entries_)
        latest = std::max(latest, entry.timeIn);
    return latest;
}

QString SheetModel::RosterText(int row) const {
    const SheetEmployee& employee = employees_.at(static_cast<size_t>(row));
    if (closed_ || entries_[static_cast<size_t>(row)] != Absent())
        return {};
    const QString shift = roster_.value(employee.nip);
    const QString day = ShownDay(sheetDay_);
    if (shift.isEmpty())
        return u"%1: tidak ada di jadwal shift %2"_s.arg(employee.nama, day);
    if (shift == ShiftCode::DayOff)
        return u"%1: libur menurut jadwal shift %2"_s.arg(employee.nama, day);
    return u"%1: belum hadir, jadwal %2 shift %3"_s.arg(employee.nama, day, shift);
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::StatusTipRole && index.isValid())
        return RosterText(index.row());
    return TableModel::data(index, role);
}

int SheetModel::RowOf(const QString& nip) const {
    const auto found = std::ranges::find(employees_, nip, &SheetEmployee::nip);
    return found == employees_.end() ? -1 : static_cast<int>(found - employees_.begin());
}

CellLook SheetModel::LookOf(int row, int column) const {
    return column == Status ? LookOfStatus(entries_[static_cast<size_t>(row)].status) : CellLook::Plain;
}

QString SheetModel::Text(int row, int column) const {
    const SheetEmployee& employee = employees_[static_cast<size_t>(row)];
    const SheetEntry& entry = entries_[static_cast<size_t>(row)];
    switch (column) {
    case Status:
        return entry.status;
    case Dept:
        return employee.dept;
    case Nip:
        return employee.nip;
    case Nama:
        return employee.nama;
    case TimeIn:
        return TimeCell(entry.timeIn);
    case TimeOut:
        return TimeCell(entry.timeOut);
    case Hours:
        return HoursText(entry, now_);
    case OvertimeIn:
        return TimeCell(entry.overtimeIn);
    case OvertimeOut:
        return TimeCell(entry.overtimeOut);
    case OvertimeHours:
        return OvertimeText(entry);
    default:
        return {};
    }
}
