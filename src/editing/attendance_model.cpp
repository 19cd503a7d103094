#include "editing/attendance_model.h"

#include "core/status_codes.h"
#include "core/typed_date.h"

using namespace Qt::StringLiterals;

namespace {

/// More are not sorted: the texts to sort them by would fill the memory.
constexpr qint64 MostSortedRows = 1'000'000;

QString CardText(const AttendanceRecord& record, Day day, int column) {
    const auto minute = [day](const auto& time) {
        const bool nextDay = time && DayOf(*time) == day + std::chrono::days{1};
        return time ? ShownMinute(*time) + (nextDay ? NextDaySign.toString() : QString()) : QString();
    };
    switch (column) {
    case AttendanceModel::TimeIn:
        return minute(record.timeIn);
    case AttendanceModel::TimeOut:
        return minute(record.timeOut);
    case AttendanceModel::Status:
        return record.status.isNull() ? u""_s : record.status;
    case AttendanceModel::Keterangan:
        return record.keterangan;
    case AttendanceModel::Tcid:
        return record.tcid;
    default:
        return {};
    }
}

} // namespace

AttendanceModel::AttendanceModel(QObject* parent)
    : TableModel({{u"Sr.No"_s, Qt::AlignRight},
                  {u"NIP"_s},
                  {u"Nama"_s},
                  {u"Dept"_s},
                  {u"Divisi"_s},
                  {u"Tanggal"_s},
                  {u"TimeIN"_s, Qt::AlignRight},
                  {u"TimeOUT"_s, Qt::AlignRight},
                  {u"Status"_s},
                  {u"Keterangan"_s},
                  {u"TCID"_s}},
                 parent) {}

void AttendanceModel::Show(Attendance attendance) {
    beginResetModel();
    attendance_ = std::move(attendance);
    employeesByNip_.clear();
    for (const ListedEmployee& employee : attendance_.employees)
        employeesByNip_.insert(employee.nip, static_cast<int>(employeesByNip_.size()));
    Sort();
    endResetModel();
}

void AttendanceModel::sort(int column, Qt::SortOrder order) {
    sortColumn_ = column;
    sortOrder_ = order;
    Reorder(order_, [this] { Sort(); });
}

void AttendanceModel::Sort() {
    if (sortColumn_ <= SerialNumber || attendance_.RowCount() > MostSortedRows)
        return order_.ShowAsHeld();
    order_.Sort(
        RowCount(),
        [this](int held) {
            const Place place = PlaceOfHeld(held);
            return sortColumn_ == Tanggal ? StoredDay(place.day) : TextAt(place, sortColumn_);
        },
        sortOrder_);
}

AttendanceModel::Place AttendanceModel::PlaceOfHeld(int row) const {
    const int employees = static_cast<int>(attendance_.employees.size());
    return {static_cast<size_t>(row % employees),
            attendance_.range.first + std::chrono::days{row / employees}};
}

const ListedEmployee& AttendanceModel::EmployeeAt(int row) const {
    return attendance_.employees.at(PlaceOf(row).employee);
}

AttendanceModel::DayKey AttendanceModel::KeyOf(int row) const {
    return {EmployeeAt(row).nip, PlaceOf(row).day};
}

QString AttendanceModel::RowKey(int row) const {
    const auto [nip, day] = KeyOf(row);
    return StoredDay(day) + u' ' + nip;
}

AttendanceModel::DayKey AttendanceModel::ReadRowKey(const QString& key) {
    const auto time = ReadStored(key.section(u' ', 0, 0));
    return {key.section(u' ', 1), time ? DayOf(*time) : DayZero};
}

int AttendanceModel::RowOf(const DayKey& key) const {
    const int employee = employeesByNip_.value(key.nip, -1);
    if (employee < 0 || key.day < attendance_.range.first || key.day > attendance_.range.last)
        return -1;
    const auto days = static_cast<qsizetype>((key.day - attendance_.range.first).count());
    return order_.Shown(static_cast<int>(days * std::ssize(attendance_.employees)) + employee);
}

std::optional<AttendanceRecord> AttendanceModel::RecordAt(int row) const {
    const Place place = PlaceOf(row);
    const AttendanceRecord* record = attendance_.Find(place.day, place.employee);
    return record ? std::optional(*record) : std::nullopt;
}

void AttendanceModel::SetRecord(int row, std::optional<AttendanceRecord> record) {
    const Place place = PlaceOf(row);
    if (record)
        attendance_.Put(place.day, place.employee, *std::move(record));
    else
        attendance_.Remove(place.day, place.employee);
    Q_EMIT dataChanged(index(row, TimeIn), index(row, Tcid));
}

CellLook AttendanceModel::LookOf(int row, int column) const {
    return column == Status ? LookOfStatus(Text(row, column)) : CellLook::Plain;
}

QString AttendanceModel::Text(int row, int column) const {
    return column == SerialNumber ? QString::number(row + 1) : TextAt(PlaceOf(row), column);
}

/// A day without a card has no status; a card has one, be it an empty text.
QString AttendanceModel::TextAt(const Place& place, int column) const {
    const ListedEmployee& employee = attendance_.employees[place.employee];
    switch (column) {
    case Nip:
        return employee.nip;
    case Nama:
        return employee.nama;
    case Dept:
        return employee.dept;
    case Divisi:
        return employee.divisi;
    case Tanggal:
        return ShownDay(place.day);
    default:
        break;
    }
    const AttendanceRecord* record = attendance_.Find(place.day, place.employee);
    return record ? CardText(*record, place.day, column) : QString();
}
