#include "shifts/roster_model.h"

#include "core/code_lists.h"
#include "core/status_codes.h"
#include "database/recordset.h"
#include "database/statement.h"
#include "shifts/shift_time.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadCodeNumber = 13;

/// A period's year and month as they are typed: they go into a statement as they stand.
struct PeriodText {
    QString year;
    QString month;
    std::chrono::year_month value;
};

PeriodText ReadPeriod(const QString& period) {
    const bool sixDigits =
        period.size() == 6 && std::ranges::all_of(period, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (sixDigits) {
        PeriodText read{period.first(4), period.last(2),
                        std::chrono::year{period.first(4).toInt()}
                            / std::chrono::month{period.last(2).toUInt()}};
        if (read.value.ok())
            return read;
    }
    throw StatementError(
        u"Periode \"%1\" ditolak: ketik tahun dan bulan (01 sampai 12) dalam enam angka, misalnya "
        "202611."_s.arg(period));
}

std::vector<TableColumn> Columns() {
    std::vector<TableColumn> columns{{u"Sr.No"_s, Qt::AlignRight}, {u"NIP"_s}, {u"Nama"_s}};
    for (int day = 1; day <= RosterModel::DayColumns; ++day)
        columns.push_back({QString::number(day), Qt::AlignHCenter});
    return columns;
}

} // namespace

RosterModel::RosterModel(const Clock& clock, QObject* parent)
    : TableModel(Columns(), parent), clock_(clock), codes_(1) {}

bool RosterModel::LoadEmployees(Connection& connection, const Progress& progress) {
    std::vector<RosterEmployee> employees;
    QHash<QString, int> placesByNip;
    Cursor rows = connection.Query(u"Select * from employee"_s);
    const int nip = rows.ColumnOf(u"NIP"_s);
    const int nama = rows.ColumnOf(u"Nama"_s);
    const int keluar = rows.ColumnOf(u"Keluar"_s);
    while (rows.Next()) {
        placesByNip.insert(rows.Text(nip), static_cast<int>(employees.size()));
        const auto left = rows.Time(keluar);
        employees.push_back(
            {rows.Text(nip), rows.Text(nama), left ? std::optional(DayOf(*left)) : std::nullopt});
        if (!ShouldContinue(progress, static_cast<qsizetype>(employees.size()), 0))
            return false;
    }
    beginResetModel();
    employees_ = std::move(employees);
    placesByNip_ = std::move(placesByNip);
    roster_.assign(employees_.size(), Days{});
    rows_.resize(employees_.size());
    std::iota(rows_.begin(), rows_.end(), size_t{0});
    month_.reset();
    SetDayLooks();
    endResetModel();
    return true;
}

bool RosterModel::LoadRoster(Connection& connection, const QString& period, const Progress& progress) {
    const PeriodText read = ReadPeriod(period);
    ReadShiftCodes(connection);
    std::vector<Days> roster(employees_.size());
    Cursor rows = connection.Query(u"select * from ShiftEmployee where year(Tgl)="_s + read.year
                                   + u" and Month(Tgl)="_s + read.month);
    const int nip = rows.ColumnOf(u"NIP"_s);
    const int tgl = rows.ColumnOf(u"Tgl"_s);
    const int shiftCode = rows.ColumnOf(u"ShiftCode"_s);
    const qsizetype most = DayColumns * static_cast<qsizetype>(employees_.size());
    lastPlace_ = -1;
    for (qsizetype done = 1; rows.Next(); ++done) {
        if (const auto time = rows.Time(tgl))
            PlaceShift(roster, rows.Text(nip), DayOf(*time), rows.Text(shiftCode));
        if (!ShouldContinue(progress, done, qMax(most, done)))
            return false;
    }
    std::vector<size_t> shown = RowsOf(read.value);
    const bool othersShown = shown != rows_;
    if (othersShown)
        beginResetModel();
    rows_ = std::move(shown);
    roster_ = std::move(roster);
    month_ = read.value;
    SetDayLooks();
    if (othersShown)
        endResetModel();
    NotifyColumns(FirstDay, ColumnCount - 1);
    Q_EMIT headerDataChanged(Qt::Horizontal, FirstDay, ColumnCount - 1);
    return true;
}

std::vector<size_t> RosterModel::RowsOf(std::chrono::year_month month) const {
    const Day first{month / 1};
    std::vector<size_t> rows;
    for (size_t place = 0; place < employees_.size(); ++place) {
        const auto& keluar = employees_[place].keluar;
        if (!keluar || *keluar >= first)
            rows.push_back(place);
    }
    return rows;
}

/// The numbers that cells hold stay as they are; only what is known of their codes is read anew.
void RosterModel::ReadShiftCodes(Connection& connection) {
    const std::vector<ShiftRow> shifts = CodeLists::Shifts(connection);
    for (Code& code : codes_)
        code.listed = false;
    for (const auto& [name, start, end] : shifts) {
        Code& code = codes_[static_cast<size_t>(NumberOf(name))];
        code.listed = true;
        code.hours = start && end && *start != *end ? u"%1 - %2"_s.arg(ShownShiftTime(*start, DayOf(*start)),
                                                                       ShownShiftTime(*end, DayOf(*start)))
                                                    : QString();
    }
}

/// A shift of someone who is no employee any more has no place.
void RosterModel::PlaceShift(std::vector<Days>& roster, const QString& nip, Day day,
                             const QString& shiftCode) {
    if (lastPlace_ < 0 || employees_[static_cast<size_t>(lastPlace_)].nip != nip)
        lastPlace_ = placesByNip_.value(nip, -1);
    if (lastPlace_ < 0)
        return;
    const std::chrono::year_month_day date{day};
    roster[static_cast<size_t>(lastPlace_)][static_cast<unsigned>(date.day()) - 1] = NumberOf(shiftCode);
}

int RosterModel::NumberOf(const QString& code) {
    if (code.isEmpty())
        return 0;
    if (const auto known = numbersByCode_.constFind(code); known != numbersByCode_.constEnd())
        return *known;
    codes_.push_back({code, false, {}});
    const int number = static_cast<int>(codes_.size()) - 1;
    numbersByCode_.insert(code, number);
    return number;
}

QString RosterModel::CodeTyped(const QString& typed) const {
    const QString code = typed.trimmed();
    if (code.contains(u'\''))
        throw ProgramError(BadCodeNumber,
                           u"Kode shift \"%1\" tidak disimpan: tanda kutip (') tidak boleh ada dalam kode. "
                           "Ketik kode lain, atau pilih dengan F9."_s.arg(code));
    if (codes_[static_cast<size_t>(numbersByCode_.value(code))].listed)
        return code;
    for (const Code& known : codes_) {
        if (known.listed && known.text.compare(code, Qt::CaseInsensitive) == 0)
            return known.text;
    }
    for (const QStringView known : {ShiftCode::Default, ShiftCode::DayOff}) {
        if (known.compare(code, Qt::CaseInsensitive) == 0)
            return known.toString();
    }
    return code;
}

void RosterModel::SaveCell(Connection& connection, const QModelIndex& cell) const {
    const std::optional<Day> day = DayOfCell(cell);
    if (!day)
        throw StatementError(u"Tanggal %1 tidak ada dalam bulan ini. Tidak ada yang disimpan."_s.arg(
            cell.column() - FirstDay + 1));
    const QString& nip = employees_[PlaceOf(cell.row())].nip;
    Recordset shift(connection, u"select * from ShiftEmployee Where NIP="_s + Quoted(nip) + u" and Tgl=#"_s
                                    + StoredDay(*day) + u'#');
    if (shift.AtEnd())
        shift.AddNew();
    shift.Set(u"NIP"_s, nip);
    shift.Set(u"Tgl"_s, *day);
    const QString& code = CodeOf(cell.row(), cell.column()).text;
    shift.Set(u"ShiftCode"_s, code.isNull() ? u""_s : code);
    shift.Update();
}

std::optional<Day> RosterModel::DayOfColumn(int column) const {
    if (!month_ || column < FirstDay)
        return std::nullopt;
    return MakeDay(static_cast<int>(month_->year()), static_cast<int>(static_cast<unsigned>(month_->month())),
                   column - FirstDay + 1);
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

const RosterModel::Code& RosterModel::CodeOf(int row, int column) const {
    const int number = roster_[PlaceOf(row)][static_cast<size_t>(column - FirstDay)];
    return codes_[static_cast<size_t>(number)];
}

CellLook RosterModel::LookOf(int row, int column) const {
    if (column < FirstDay)
        return CellLook::Plain;
    const Code& code = CodeOf(row, column);
    const CellLook look = dayLooks_[static_cast<size_t>(column - FirstDay)];
    return code.text.isEmpty() || code.listed || look == CellLook::Hatched ? look : CellLook::Doubtful;
}

QString RosterModel::DescribeCell(const QModelIndex& cell) const {
    if (cell.column() < FirstDay)
        return {};
    const RosterEmployee& employee = employees_[PlaceOf(cell.row())];
    if (!month_)
        return u"Jadwal bulan ini belum terbaca. Tekan Refresh untuk membacanya."_s;
    const std::optional<Day> day = DayOfCell(cell);
    QString told = u"%1 %2 · "_s.arg(employee.nip, employee.nama);
    if (!day)
        return told + u"tanggal %1 tidak ada dalam bulan ini"_s.arg(cell.column() - FirstDay + 1);
    told += ShownDay(*day);
    const Code& code = CodeOf(cell.row(), cell.column());
    if (code.text.isEmpty())
        return told;
    told += u" · "_s + code.text;
    if (!code.listed)
        return told + u" - kode ini tidak ada di Shift"_s;
    return code.hours.isEmpty() ? told : told + u' ' + code.hours;
}

int RosterModel::CountUnlisted() const {
    int count = 0;
    for (const Days& days : roster_)
        count += static_cast<int>(std::ranges::count_if(
            days, [this](int number) { return number > 0 && !codes_[static_cast<size_t>(number)].listed; }));
    return count;
}

QString RosterModel::Text(int row, int column) const {
    if (column == SrNo)
        return QString::number(row + 1);
    if (column >= FirstDay)
        return CodeOf(row, column).text;
    const RosterEmployee& employee = employees_[PlaceOf(row)];
    return column == Nip ? employee.nip : employee.nama;
}

QVariant RosterModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::ToolTipRole)
        return TableModel::data(index, role);
    return index.column() >= FirstDay ? DescribeCell(index) : Text(index.row(), Nama);
}

QVariant RosterModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::ToolTipRole)
        return TableModel::headerData(section, orientation, role);
    const std::optional<Day> day = DayOfColumn(section);
    return day ? ShownDay(*day) : QVariant();
}

bool RosterModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (index.column() < FirstDay || role != Qt::EditRole)
        return false;
    roster_[PlaceOf(index.row())][static_cast<size_t>(index.column() - FirstDay)] =
        NumberOf(value.toString());
    Q_EMIT dataChanged(index, index);
    return true;
}
