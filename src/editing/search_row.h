#pragma once

#include "cards/card_search.h"

#include <QString>
#include <QStringList>

#include <optional>

/// A row of the search grid.
struct SearchRow {
    /// The grid's columns. After the serial number they are those of qry_TimeCardAll in its order.
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
};

/// The column's heading, which is its field's name in the database, too.
QString SearchColumnName(int column);

/// True when the save of a row writes what is typed into this column.
bool IsWrittenColumn(int column);
/// Why it does not, for the user.
QString WhyNotWritten(int column);

/// How a time of the day after the card's is written: with its sign, or with its date as on paper.
enum class NextDay { Signed, Dated };

/// The text of a cell; of all columns but the serial number. A time of the card's own day is shown without
/// it, one of the next day with its sign, any other with its date: what is shown reads back as the same
/// moment.
QString SearchCellText(const FoundDay& row, int column, NextDay nextDay = NextDay::Signed);

/// The texts of a whole row: element k is column k + 1.
QStringList SearchRowElements(const FoundDay& row, NextDay nextDay = NextDay::Signed);

/// The day of a row, which the card's identifier tells of a row that shows none. Nothing when neither does.
std::optional<Day> DayOfRow(const QStringList& elements);

/// A time as it is typed, of the card's day or, with its sign, the next; or a day and a time. Nothing when
/// the text is neither.
std::optional<WallTime> ReadTimeCell(const QString& text, Day cardDay);

/// What a typed text becomes in its cell when it is entered into a row: the flag, number, day or time that
/// will be stored, a time that lies before the arrival being of the next day. A text that is none stays as it
/// is.
QString EnteredText(const QStringList& elements, int column, const QString& typed);
