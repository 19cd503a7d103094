#pragma once

#include "database/field_value.h"
#include "database/wall_time.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// One row of the search as it was read: a time card, a day of it and the employee. All day fields are empty
/// when the card has no such day.
struct SearchRow {
    /// The columns of the search grid. After the serial number they are those of qry_TimeCardAll in its
    /// order.
    enum Column {
        SerialNo,
        Status,
        Nip,
        Nama,
        Keterangan,
        Dept,
        Tcid,
        Divisi,
        Tanggal,
        TimeIn,
        TimeOut,
        TimeInOt,
        TimeOutOt,
        BeriUangMakan,
        NormalHours,
        OtHours,
        NormalAmount,
        OtAmount,
        ColumnCount
    };

    QString status;
    QString nip;
    QString nama;
    QString keterangan;
    QString dept;
    QString tcid;
    QString divisi;
    std::optional<Day> tanggal;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    std::optional<WallTime> timeInOt;
    std::optional<WallTime> timeOutOt;
    std::optional<bool> beriUangMakan;
    std::optional<double> normalHours;
    std::optional<double> otHours;
    std::optional<double> normalAmount;
    std::optional<double> otAmount;

    bool operator==(const SearchRow&) const = default;
};

/// The column's heading, which is its field's name in the database, too.
QString SearchColumnName(int column);

/// Gives the value of a column, however it was read.
using ValueOfColumn = std::function<FieldValue(SearchRow::Column column)>;

void TakeHeader(SearchRow& row, const ValueOfColumn& value);
void TakeDay(SearchRow& row, const ValueOfColumn& value);
void TakeEmployee(SearchRow& row, const ValueOfColumn& value);

/// The text of a cell; of all columns but the serial number. A time of the card's own day is shown without
/// it, any other with its date: what is shown reads back as the same moment.
QString SearchCellText(const SearchRow& row, int column);

/// The texts of a whole row: element k is column k + 1.
QStringList SearchRowElements(const SearchRow& row);

/// A day as it is typed, "05-Mar-2004" or "2004-03-05"; nothing when the text is neither.
std::optional<Day> ReadDayCell(const QString& text);

/// A time as it is typed: "07:58" or "07:58:12" of the card's day, or a day and a time. Nothing when the text
/// is neither.
std::optional<WallTime> ReadTimeCell(const QString& text, Day cardDay);
