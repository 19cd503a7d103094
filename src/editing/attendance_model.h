#pragma once

#include "editing/attendance_refresh.h"

#include <QAbstractTableModel>

/// One row for every employee on every day, days outermost, whether or not there is a card. It holds
/// employees, days and cards; a cell's text is made when the cell is shown.
class AttendanceModel : public QAbstractTableModel {
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
    enum Role { StatusRole = Qt::UserRole };

    /// Whose day a row is.
    struct RowKey {
        QString nip;
        Day day{};
    };

    using QAbstractTableModel::QAbstractTableModel;

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

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Place {
        size_t employee;
        Day day;
    };

    Place PlaceOf(int row) const;
    const ListedEmployee& EmployeeAt(int row) const;
    QString Text(int row, int column) const;

    Attendance attendance_;
};
