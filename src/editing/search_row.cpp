#include "editing/search_row.h"

#include "compute/money.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

std::optional<double> NumberOf(const FieldValue& value) {
    return value.IsNull() ? std::nullopt : std::optional(value.Number());
}

/// In digits only: the text is read again when the row is saved. A number that is too large for an amount has
/// got into the database from elsewhere; it is shown so that it can be corrected.
QString NumberCell(const std::optional<double>& number) {
    constexpr double TooLarge = 1e14;
    if (!number)
        return {};
    return std::abs(*number) < TooLarge ? Money::FromField(FieldValue(*number)).Text()
                                        : QString::number(*number, 'f', QLocale::FloatingPointShortest);
}

QString TimeCell(const std::optional<WallTime>& time, const std::optional<Day>& cardDay) {
    if (!TimeIfSet(time))
        return {};
    const QString clock = ShownTime(*time);
    return DayOf(*time) == cardDay ? clock : ShownDay(DayOf(*time)) + u' ' + clock;
}

QString FlagCell(const std::optional<bool>& flag) {
    if (!flag)
        return {};
    return *flag ? u"True"_s : u"False"_s;
}

/// Month by its name, as days are shown.
std::optional<Day> ReadShownDay(const QString& text) {
    static const QStringList months{u"jan"_s, u"feb"_s, u"mar"_s, u"apr"_s, u"may"_s, u"jun"_s,
                                    u"jul"_s, u"aug"_s, u"sep"_s, u"oct"_s, u"nov"_s, u"dec"_s};
    const QStringList parts = text.split(u'-');
    const qsizetype month = parts.size() == 3 ? months.indexOf(parts[1].toLower()) : -1;
    if (month < 0 || parts[2].size() != 4)
        return std::nullopt;
    const auto read = ReadDateText(u"%1-%2-%3"_s.arg(parts[2]).arg(month + 1).arg(parts[0]));
    return read ? std::optional(DayOf(read->time)) : std::nullopt;
}

} // namespace

QString SearchColumnName(int column) {
    static const QStringList names{
        u"Sr.No"_s,     u"Status"_s,        u"NIP"_s,         u"Nama"_s,    u"Keterangan"_s,   u"Dept"_s,
        u"TCID"_s,      u"Divisi"_s,        u"Tanggal"_s,     u"TimeIN"_s,  u"TimeOUT"_s,      u"TimeINOT"_s,
        u"TimeOutOT"_s, u"BeriUangMakan"_s, u"NormalHours"_s, u"OTHours"_s, u"NormalAmount"_s, u"OTAmount"_s};
    return names.value(column);
}

void TakeHeader(SearchRow& row, const ValueOfColumn& value) {
    row.status = value(Status).Text();
    row.nip = value(Nip).Text();
    row.keterangan = value(Keterangan).Text();
    row.normalHours = NumberOf(value(NormalHours));
    row.otHours = NumberOf(value(OtHours));
    row.normalAmount = NumberOf(value(NormalAmount));
    row.otAmount = NumberOf(value(OtAmount));
}

void TakeDay(SearchRow& row, const ValueOfColumn& value) {
    const std::optional<WallTime> tanggal = value(Tanggal).Time();
    row.tanggal = tanggal ? std::optional(DayOf(*tanggal)) : std::nullopt;
    row.timeIn = value(TimeIn).Time();
    row.timeOut = value(TimeOut).Time();
    row.timeInOt = value(TimeInOt).Time();
    row.timeOutOt = value(TimeOutOt).Time();
    const FieldValue flag = value(BeriUangMakan);
    row.beriUangMakan = flag.IsNull() ? std::nullopt : std::optional(flag.Flag());
}

void TakeEmployee(SearchRow& row, const ValueOfColumn& value) {
    row.nama = value(Nama).Text();
    row.dept = value(Dept).Text();
    row.divisi = value(Divisi).Text();
}

QString SearchCellText(const SearchRow& row, int column) {
    switch (column) {
    case Status:
        return row.status;
    case Nip:
        return row.nip;
    case Nama:
        return row.nama;
    case Keterangan:
        return row.keterangan;
    case Dept:
        return row.dept;
    case Tcid:
        return row.tcid;
    case Divisi:
        return row.divisi;
    case Tanggal:
        return row.tanggal ? ShownDay(*row.tanggal) : QString();
    case TimeIn:
        return TimeCell(row.timeIn, row.tanggal);
    case TimeOut:
        return TimeCell(row.timeOut, row.tanggal);
    case TimeInOt:
        return TimeCell(row.timeInOt, row.tanggal);
    case TimeOutOt:
        return TimeCell(row.timeOutOt, row.tanggal);
    case BeriUangMakan:
        return FlagCell(row.beriUangMakan);
    case NormalHours:
        return NumberCell(row.normalHours);
    case OtHours:
        return NumberCell(row.otHours);
    case NormalAmount:
        return NumberCell(row.normalAmount);
    case OtAmount:
        return NumberCell(row.otAmount);
    default:
        return {};
    }
}

QStringList SearchRowElements(const SearchRow& row) {
    QStringList elements;
    for (int column = SerialNo + 1; column < SearchRow::ColumnCount; ++column)
        elements << SearchCellText(row, column);
    return elements;
}

std::optional<Day> ReadDayCell(const QString& text) {
    const QString day = text.trimmed();
    // A day that begins with two digits and goes on in digits is refused: it may be meant either way round.
    if (day.indexOf(u'-') != 4)
        return ReadShownDay(day);
    const auto read = ReadDateText(day);
    return read && !read->hasTime ? std::optional(DayOf(read->time)) : std::nullopt;
}

std::optional<WallTime> ReadTimeCell(const QString& text, Day cardDay) {
    const QString typed = text.trimmed();
    const qsizetype gap = typed.indexOf(u' ');
    const std::optional<Day> day = gap < 0 ? cardDay : ReadDayCell(typed.first(gap));
    if (!day)
        return std::nullopt;
    const auto read = ReadDateText(StoredDay(*day) + u' ' + typed.sliced(gap + 1).trimmed());
    return read && read->hasTime ? std::optional(read->time) : std::nullopt;
}
