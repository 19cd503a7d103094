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
    struct DayKey {
        QString nip;
        Day day{};
    };
    /// The same as it is told by the key of a row.
    static DayKey ReadRowKey(const QString& key);

    explicit AttendanceModel(QObject* parent = nullptr);

    /// Shows these in place of the present rows.
    void Show(Attendance attendance);

    DayKey KeyOf(int row) const;
    /// -1 when the employee's day is not shown.
    int RowOf(const DayKey& key) const;
    const DayRange& Range() const { return attendance_.range; }

    QString RowKey(int row) const override;
    int RowOfKey(const QString& key) const override { return RowOf(ReadRowKey(key)); }
    /// By days within a column's equal texts; a column below 0 puts the days outermost again. Rows that are
    /// shown later are sorted as well.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// What the row shows; nothing for a day without a card.
    std::optional<AttendanceRecord> RecordAt(int row) const;
    /// Nothing: the day has no card (any more).
    void SetRecord(int row, std::optional<AttendanceRecord> record);

private:
    struct Place {
        size_t employee;
        Day day;
    };

    /// Of a row as it is held.
    Place PlaceOfHeld(int row) const;
    Place PlaceOf(int row) const { return PlaceOfHeld(order_.Held(row)); }
    void Sort();
    QString TextAt(const Place& place, int column) const;
    const ListedEmployee& EmployeeAt(int row) const;
    int RowCount() const override { return static_cast<int>(attendance_.RowCount()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;

    Attendance attendance_;
    QHash<QString, int> employeesByNip_;
    RowOrder order_;
    int sortColumn_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};
