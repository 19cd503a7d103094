#include "shifts/roster_model.h"

#include "database/recordset.h"
#include "database/statement.h"
#include "shifts/roster_store.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString WeekdayLetter(Day day) {
    constexpr QStringView fromSunday = u"MSSRKJS";
    return fromSunday.at(static_cast<qsizetype>(std::chrono::weekday{day}.c_encoding()));
}

std::vector<TableColumn> Columns() {
    std::vector<TableColumn> columns{{u"Sr.No"_s, Qt::AlignRight}, {u"NIP"_s}, {u"Nama"_s}};
    for (int day = 1; day <= RosterModel::DayColumns; ++day)
        columns.push_back({QString::number(day), Qt::AlignHCenter});
    return columns;
}

bool HasWord(const RosterEmployee& employee, const QString& word) {
    return std::ranges::any_of(
        std::array{&employee.nip, &employee.nama, &employee.dept, &employee.divisi},
        [&word](const QString* text) { return text->contains(word, Qt::CaseInsensitive); });
}

} // namespace

RosterModel::RosterModel(const Clock& clock, QObject* parent)
    : TableModel(Columns(), parent), clock_(clock) {}

bool RosterModel::LoadEmployees(Connection& connection, const Progress& progress) {
    RosterMonth read = month_;
    if (!read.ReadEmployees(connection, progress))
        return false;
    beginResetModel();
    month_ = std::move(read);
    shown_ = Found({});
    SetDayLooks();
    endResetModel();
    Q_EMIT CountsChanged();
    return true;
}

bool RosterModel::LoadRoster(Connection& connection, const QString& period, const Progress& progress) {
    if (!month_.ReadMonth(connection, period, progress))
        return false;
    std::vector<int> found = Found({});
    const bool othersShown = found != shown_;
    if (othersShown)
        beginResetModel();
    shown_ = std::move(found);
    SetDayLooks();
    if (othersShown)
        endResetModel();
    NotifyDays();
    Q_EMIT headerDataChanged(Qt::Horizontal, FirstDay, ColumnCount - 1);
    return true;
}

void RosterModel::NotifyDays() {
    NotifyColumns(FirstDay, ColumnCount - 1);
    Q_EMIT CountsChanged();
}

std::vector<int> RosterModel::Found(const QSet<int>& keptEmployees) const {
    std::vector<int> found = month_.Staff();
    std::erase_if(found, [&](int place) {
        const RosterEmployee& employee = month_.Employees()[static_cast<size_t>(place)];
        return !keptEmployees.contains(place)
               && !std::ranges::all_of(filter_, [&](const QString& word) { return HasWord(employee, word); });
    });
    return found;
}

/// Rows that stay keep their marks and the cursor.
void RosterModel::Filter(const QString& words, const QSet<int>& keptEmployees) {
    filter_ = words.split(u' ', Qt::SkipEmptyParts);
    std::vector<int> found = Found(keptEmployees);
    if (found == shown_)
        return;
    // The columns stay as they are: their headers need not look after them.
    constexpr LayoutChangeHint rowsOnly = VerticalSortHint;
    Q_EMIT layoutAboutToBeChanged({}, rowsOnly);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& cell : before) {
        const auto place = std::ranges::lower_bound(found, EmployeeOf(cell.row()));
        const bool stays = place != found.end() && *place == EmployeeOf(cell.row());
        after << (stays ? createIndex(static_cast<int>(place - found.begin()), cell.column())
                        : QModelIndex());
    }
    shown_ = std::move(found);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, rowsOnly);
}

void RosterModel::SaveCell(Connection& connection, const QModelIndex& cell) const {
    const std::optional<Day> day = DayOfCell(cell);
    if (!day)
        throw StatementError(u"Tanggal %1 tidak ada dalam bulan ini. Tidak ada yang disimpan."_s.arg(
            DayNumber(cell.column())));
    const QString& nip = EmployeeIn(cell.row()).nip;
    Recordset shift(connection, u"select * from ShiftEmployee Where NIP="_s + Quoted(nip) + u" and Tgl=#"_s
                                    + StoredDay(*day) + u'#');
    if (shift.AtEnd())
        shift.AddNew();
    shift.Set(u"NIP"_s, nip);
    shift.Set(u"Tgl"_s, *day);
    const QString& code = CodeOf(cell.row(), cell.column());
    shift.Set(u"ShiftCode"_s, code.isNull() ? u""_s : code);
    shift.Update();
}

RosterChange RosterModel::RosterChangeOf(const CellChange& change) const {
    const auto month = MonthOfKey(change.rowKey);
    const std::chrono::day day{DayNumber(change.column)};
    if (!month || !(*month / day).ok())
        throw StatementError(u"Tanggal %1 tidak ada dalam bulan ini."_s.arg(static_cast<unsigned>(day)));
    return {NipOfKey(change.rowKey), Day{*month / day},
            change.text.isNull() ? QString() : month_.Shifts().CodeTyped(change.text), change.expected};
}

void RosterModel::Show(const CellChange& change, const QString& code) {
    const int employee = month_.EmployeeOf(NipOfKey(change.rowKey));
    if (employee >= 0 && MonthOfKey(change.rowKey) == Month())
        month_.Put(employee, DayNumber(change.column), code);
}

CellsOutcome RosterModel::WriteCells(Connection& connection, const std::vector<CellChange>& changes) {
    CellsOutcome outcome;
    std::vector<RosterChange> roster;
    for (const CellChange& change : changes) {
        try {
            roster.push_back(RosterChangeOf(change));
        } catch (const ProgramError& error) {
            outcome.refused.push_back({change, error.Description()});
        }
    }
    if (!outcome.refused.empty())
        return outcome;
    const RosterSaved saved = RosterStore::Save(connection, roster);
    for (const size_t i : saved.conflicts) {
        outcome.refused.push_back({changes[i], ConflictText(changes[i], saved.before[i])});
        Show(changes[i], saved.before[i]);
    }
    for (size_t i = 0; saved.conflicts.empty() && i < changes.size(); ++i) {
        outcome.takeBack.push_back({changes[i].rowKey, changes[i].column, saved.before[i], roster[i].code});
        Show(changes[i], roster[i].code);
    }
    NotifyDays();
    return outcome;
}

/// The grid names the row, where it is shown.
QString RosterModel::ConflictText(const CellChange& change, const QString& stands) const {
    const auto named = [](const QString& code) { return code.isEmpty() ? u"kosong"_s : code; };
    const int employee = month_.EmployeeOf(NipOfKey(change.rowKey));
    const QString who = employee < 0 || RowOfKey(change.rowKey) >= 0
                            ? QString()
                            : month_.Employees()[static_cast<size_t>(employee)].nama + u", "_s;
    return who + u"sekarang %1 (dari meja lain), tadi %2."_s.arg(named(stands), named(*change.expected));
}

QString RosterModel::KeyOf(int employee) const {
    return (Month() ? PeriodOf(*Month()) : u"000000"_s) + u'/'
           + month_.Employees()[static_cast<size_t>(employee)].nip;
}

QString RosterModel::RowKey(int row) const {
    return KeyOf(EmployeeOf(row));
}

int RosterModel::RowOfKey(const QString& key) const {
    const int employee = MonthOfKey(key) == Month() ? month_.EmployeeOf(NipOfKey(key)) : -1;
    const auto place = std::ranges::lower_bound(shown_, employee);
    return place != shown_.end() && *place == employee ? static_cast<int>(place - shown_.begin()) : -1;
}

std::optional<std::chrono::year_month> RosterModel::MonthOfKey(const QString& key) {
    const std::chrono::year_month month =
        std::chrono::year{key.first(4).toInt()} / std::chrono::month{key.sliced(4, 2).toUInt()};
    return month.ok() ? std::optional(month) : std::nullopt;
}

RosterMonth::Previewed RosterModel::Preview(const std::vector<PlannedCell>& cells,
                                            RosterMonth::Standing standing) {
    const RosterMonth::Previewed previewed = month_.Preview(cells, standing);
    NotifyDays();
    return previewed;
}

void RosterModel::EndPreview() {
    month_.EndPreview();
    NotifyDays();
}

std::vector<CellChange> RosterModel::PreviewedChanges() const {
    std::vector<CellChange> changes;
    for (int employee = 0; employee < static_cast<int>(month_.Employees().size()); ++employee) {
        const QString key = KeyOf(employee);
        for (int column = FirstDay; column < ColumnCount; ++column) {
            const unsigned day = DayNumber(column);
            if (!month_.IsPreviewed(employee, day))
                continue;
            const QString& code = month_.CodeOn(employee, day);
            changes.push_back({key, column, code.isNull() ? u""_s : code, month_.StandingOn(employee, day)});
        }
    }
    return changes;
}

std::optional<Day> RosterModel::DayOfColumn(int column) const {
    return column < FirstDay ? std::nullopt : month_.DateOf(DayNumber(column));
}

void RosterModel::SetDayLooks() {
    const Day today = clock_.Today();
    for (int column = FirstDay; column < ColumnCount; ++column) {
        const std::optional<Day> day = DayOfColumn(column);
        CellLook look = CellLook::Plain;
        if (!day)
            look = CellLook::Hatched;
        else if (*day == today)
            look = CellLook::Marked;
        else if (std::chrono::weekday{*day} == std::chrono::Sunday)
            look = CellLook::Tinted;
        dayLooks_[static_cast<size_t>(column - FirstDay)] = look;
    }
}

CellLook RosterModel::LookOf(int row, int column) const {
    if (column < FirstDay)
        return CellLook::Plain;
    const QString& code = CodeOf(row, column);
    const CellLook look = LookOfDay(column);
    if (!code.isEmpty() && !month_.Shifts().Has(code) && look != CellLook::Hatched)
        return CellLook::Doubtful;
    return month_.IsPreviewed(EmployeeOf(row), DayNumber(column)) ? CellLook::Quiet : look;
}

QString RosterModel::DescribeCell(const QModelIndex& cell) const {
    if (cell.column() < FirstDay)
        return {};
    const RosterEmployee& employee = EmployeeIn(cell.row());
    if (!Month())
        return u"Jadwal bulan ini belum terbaca. Tekan Refresh untuk membacanya."_s;
    const std::optional<Day> day = DayOfCell(cell);
    QString told = u"%1 %2 · "_s.arg(employee.nip, employee.nama);
    if (!day)
        return told + u"tanggal %1 tidak ada dalam bulan ini"_s.arg(DayNumber(cell.column()));
    told += ShownDay(*day);
    const QString& code = CodeOf(cell.row(), cell.column());
    if (code.isEmpty())
        return told;
    told += u" · "_s + code;
    if (!month_.Shifts().Has(code))
        return told + u" - kode ini tidak ada di Shift"_s;
    const QString hours = month_.Shifts().HoursOf(code);
    return hours.isEmpty() ? told : told + u' ' + hours;
}

QString RosterModel::Text(int row, int column) const {
    if (column == SrNo)
        return QString::number(row + 1);
    if (column >= FirstDay)
        return CodeOf(row, column);
    const RosterEmployee& employee = EmployeeIn(row);
    return column == Nip ? employee.nip : employee.nama;
}

QVariant RosterModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const bool isDay = index.column() >= FirstDay;
    if (role == Qt::ToolTipRole)
        return isDay ? DescribeCell(index) : Text(index.row(), Nama);
    if (role == CellTintRole)
        return isDay ? CodeOf(index.row(), index.column()) : QVariant();
    return TableModel::data(index, role);
}

QVariant RosterModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const std::optional<Day> day = orientation == Qt::Horizontal ? DayOfColumn(section) : std::nullopt;
    switch (role) {
    case Qt::ToolTipRole:
        return day ? ShownDay(*day) : QVariant();
    case HeaderNoteRole:
        return day ? WeekdayLetter(*day) : QVariant();
    case CellLookRole:
        return day ? QVariant(static_cast<int>(LookOfDay(section))) : QVariant();
    default:
        return TableModel::headerData(section, orientation, role);
    }
}

bool RosterModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (index.column() < FirstDay || role != Qt::EditRole)
        return false;
    month_.Put(EmployeeOf(index.row()), DayNumber(index.column()), value.toString());
    Q_EMIT dataChanged(index, index);
    Q_EMIT CountsChanged();
    return true;
}
