#include "editing/search_row.h"

#include "compute/money.h"

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

QString TimeCell(const std::optional<WallTime>& time, Day cardDay) {
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

QString DayCellText(const CardDay& day, int column) {
    switch (column) {
    case Tanggal:
        return ShownDay(day.tanggal);
    case TimeIn:
        return TimeCell(day.timeIn, day.tanggal);
    case TimeOut:
        return TimeCell(day.timeOut, day.tanggal);
    case TimeInOt:
        return TimeCell(day.timeInOt, day.tanggal);
    case TimeOutOt:
        return TimeCell(day.timeOutOt, day.tanggal);
    case BeriUangMakan:
        return FlagCell(day.beriUangMakan);
    default:
        return {};
    }
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

QString SearchCellText(const FoundDay& row, int column) {
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
        return row.day ? DayCellText(*row.day, column) : QString();
    }
}

QStringList SearchRowElements(const FoundDay& row) {
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
