#include "editing/attendance_model.h"

#include "core/status_codes.h"
#include "core/typed_date.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

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
        return record.status;
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
    endResetModel();
}

AttendanceModel::Place AttendanceModel::PlaceOf(int row) const {
    const int employees = static_cast<int>(attendance_.employees.size());
    return {static_cast<size_t>(row % employees),
            attendance_.range.first + std::chrono::days{row / employees}};
}

const ListedEmployee& AttendanceModel::EmployeeAt(int row) const {
    return attendance_.employees.at(PlaceOf(row).employee);
}

AttendanceModel::RowKey AttendanceModel::KeyOf(int row) const {
    return {EmployeeAt(row).nip, PlaceOf(row).day};
}

int AttendanceModel::RowOf(const RowKey& key) const {
    const auto& employees = attendance_.employees;
    const auto found = std::ranges::find(employees, key.nip, &ListedEmployee::nip);
    if (found == employees.end() || key.day < attendance_.range.first || key.day > attendance_.range.last)
        return -1;
    const auto days = static_cast<qsizetype>((key.day - attendance_.range.first).count());
    return static_cast<int>(days * std::ssize(employees) + (found - employees.begin()));
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
    const ListedEmployee& employee = EmployeeAt(row);
    switch (column) {
    case SerialNumber:
        return QString::number(row + 1);
    case Nip:
        return employee.nip;
    case Nama:
        return employee.nama;
    case Dept:
        return employee.dept;
    case Divisi:
        return employee.divisi;
    case Tanggal:
        return ShownDay(PlaceOf(row).day);
    default:
        break;
    }
    const Place place = PlaceOf(row);
    const AttendanceRecord* record = attendance_.Find(place.day, place.employee);
    return record ? CardText(*record, place.day, column) : QString();
}
