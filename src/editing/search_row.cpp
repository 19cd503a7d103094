#include "editing/search_row.h"

#include "cards/sheet_identifier.h"
#include "compute/money.h"
#include "core/typed_date.h"
#include "database/database_error.h"

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

QString TimeCell(const std::optional<WallTime>& time, Day cardDay, NextDay nextDay = NextDay::Signed) {
    if (!TimeIfSet(time))
        return {};
    const QString clock = ShownTime(*time);
    if (nextDay == NextDay::Signed && DayOf(*time) == cardDay + std::chrono::days{1})
        return clock + NextDaySign.toString();
    return DayOf(*time) == cardDay ? clock : ShownDay(DayOf(*time)) + u' ' + clock;
}

QString FlagCell(const std::optional<bool>& flag) {
    if (!flag)
        return {};
    return *flag ? u"True"_s : u"False"_s;
}

QString DayCellText(const CardDay& day, int column, NextDay nextDay) {
    switch (column) {
    case Tanggal:
        return ShownDay(day.tanggal);
    case TimeIn:
        return TimeCell(day.timeIn, day.tanggal, nextDay);
    case TimeOut:
        return TimeCell(day.timeOut, day.tanggal, nextDay);
    case TimeInOt:
        return TimeCell(day.timeInOt, day.tanggal, nextDay);
    case TimeOutOt:
        return TimeCell(day.timeOutOt, day.tanggal, nextDay);
    case BeriUangMakan:
        return FlagCell(day.beriUangMakan);
    default:
        return {};
    }
}

/// The flag counts as given for the text "True" only: what else people write for it becomes one of the two at
/// once, before their eyes.
QString FlagText(const QString& typed) {
    static const QStringList yes{u"true"_s, u"t"_s, u"ya"_s, u"y"_s, u"1"_s};
    return yes.contains(typed.trimmed().toLower()) ? u"True"_s : u"False"_s;
}

/// A number that is too large stays, to be refused when it is saved.
QString NumberText(const QString& typed) {
    try {
        return Money::FromText(typed).Text();
    } catch (const ProgramError&) {
        return typed;
    }
}

QString TimeText(const QStringList& elements, Day day, int column, const QString& typed) {
    const auto alone = ReadTypedTime(typed);
    const auto arrival = column == TimeIn ? std::nullopt : ReadTimeCell(elements[TimeIn - 1], day);
    const auto time = alone ? std::optional(alone->On(day, arrival)) : ReadTimeCell(typed, day);
    return TimeIfSet(time) ? TimeCell(time, day) : typed;
}

} // namespace

QString SearchColumnName(int column) {
    static const QStringList names{
        u"Sr.No"_s,     u"Status"_s,        u"NIP"_s,         u"Nama"_s,    u"Keterangan"_s,   u"Dept"_s,
        u"TCID"_s,      u"Divisi"_s,        u"Tanggal"_s,     u"TimeIN"_s,  u"TimeOUT"_s,      u"TimeINOT"_s,
        u"TimeOutOT"_s, u"BeriUangMakan"_s, u"NormalHours"_s, u"OTHours"_s, u"NormalAmount"_s, u"OTAmount"_s};
    return names.value(column);
}

bool IsWrittenColumn(int column) {
    return column != SerialNo && column != Nama && column != Dept && column != Tcid && column != Divisi;
}

QString WhyNotWritten(int column) {
    return column == Tcid ? u"TCID adalah kunci kartu dan tidak dapat diubah."_s
                          : u"%1 diubah pada data karyawan, bukan di sini."_s.arg(SearchColumnName(column));
}

QString SearchCellText(const FoundDay& row, int column, NextDay nextDay) {
    switch (column) {
    case Status:
        return row.header.status;
    case Nip:
        return row.header.nip;
    case Nama:
        return row.nama;
    case Keterangan:
        return row.header.keterangan;
    case Dept:
        return row.dept;
    case Tcid:
        return row.header.tcid;
    case Divisi:
        return row.divisi;
    case NormalHours:
        return DigitsOf(row.header.normalHours);
    case OtHours:
        return DigitsOf(row.header.otHours);
    case NormalAmount:
        return DigitsOf(row.header.normalAmount);
    case OtAmount:
        return DigitsOf(row.header.otAmount);
    default:
        return row.day ? DayCellText(*row.day, column, nextDay) : QString();
    }
}

QStringList SearchRowElements(const FoundDay& row, NextDay nextDay) {
    QStringList elements;
    for (int column = SerialNo + 1; column < SearchRow::ColumnCount; ++column)
        elements << SearchCellText(row, column, nextDay);
    return elements;
}

std::optional<WallTime> ReadTimeCell(const QString& text, Day cardDay) {
    if (const auto alone = ReadTypedTime(text))
        return alone->On(cardDay);
    // A day alone is no time.
    return ReadTypedDate(text, cardDay, {}) ? std::nullopt : ReadTypedMoment(text, cardDay, {});
}

QString EnteredText(const QStringList& elements, int column, const QString& typed) {
    if (column == BeriUangMakan)
        return FlagText(typed);
    if (column >= NormalHours)
        return NumberText(typed);
    if (column < Tanggal)
        return typed;
    const auto day = DayOfRow(elements);
    if (column != Tanggal)
        return day ? TimeText(elements, *day, column, typed) : typed;
    const auto read = ReadTypedDate(typed, day.value_or(DayZero), {});
    return read ? ShownDay(*read) : typed;
}

std::optional<Day> DayOfRow(const QStringList& elements) {
    const QString& shown = elements[Tanggal - 1];
    const auto ofCard = DayOfIdentifier(elements[Tcid - 1]);
    return shown.isEmpty() ? ofCard : ReadTypedDate(shown, ofCard.value_or(DayZero), {});
}
