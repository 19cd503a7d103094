#pragma once

#include "core/table_model.h"
#include "editing/attendance_refresh.h"

/// One row for every employee on every day, days outermost, whether or not there is a card. It holds
/// employees, days and cards; a cell's text is made when the cell is shown.
class AttendanceModel : public TableModel {
    Q_OBJECT
public:
    enum Column {
        SerialNumber,
        Nip,
        Nama,
        Dept,
        Divisi,
        Tanggal,
        TimeIn,
        TimeOut,
        Status,
        Keterangan,
        Tcid,
        ColumnCount
    };

    /// Whose day a row is.
    struct RowKey {
        QString nip;
        Day day{};
    };

    explicit AttendanceModel(QObject* parent = nullptr);

    /// Shows these in place of the present rows.
    void Show(Attendance attendance);

    RowKey KeyOf(int row) const;
    /// -1 when the employee's day is not shown.
    int RowOf(const RowKey& key) const;
    const DayRange& Range() const { return attendance_.range; }

    /// What the row shows; nothing for a day without a card.
    std::optional<AttendanceRecord> RecordAt(int row) const;
    /// Nothing: the day has no card (any more).
    void SetRecord(int row, std::optional<AttendanceRecord> record);

private:
    struct Place {
        size_t employee;
        Day day;
    };

    Place PlaceOf(int row) const;
    const ListedEmployee& EmployeeAt(int row) const;
    int RowCount() const override { return static_cast<int>(attendance_.RowCount()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;

    Attendance attendance_;
};
