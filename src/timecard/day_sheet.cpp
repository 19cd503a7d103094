#include "timecard/day_sheet.h"

#include "core/code_lists.h"
#include "core/status_codes.h"
#include "core/time_text.h"

using namespace Qt::StringLiterals;

QString HoursText(const SheetEntry& entry, WallTime now) {
    const bool stillIn = entry.status == CardStatus::In;
    const std::optional<WallTime> end = stillIn ? std::optional(now) : entry.timeOut;
    if (!entry.timeIn || !end)
        return {};
    return modGeneral::SecondsToTimeText(*end - *entry.timeIn);
}

QString OvertimeText(const SheetEntry& entry) {
    if (!entry.overtimeIn || !entry.overtimeOut)
        return {};
    return modGeneral::SecondsToTimeText(TimeOfDay(*entry.overtimeOut) - TimeOfDay(*entry.overtimeIn));
}

QHash<QString, QString> ReadDayRoster(Connection& connection, Day day) {
    // The employees' numbers lead the roster's key; an inner join would read the roster of all times.
    Cursor rows = connection.Query(u"select e.NIP, s.ShiftCode from Employee e left join ShiftEmployee s on "
                                   "s.NIP=e.NIP and s.Tgl=#"_s
                                   + StoredDay(day) + u'#');
    QHash<QString, QString> codes;
    while (rows.Next())
        codes.insert(rows.Text(0), rows.Text(1));
    return codes;
}

std::vector<SheetEmployee> ReadEmployees(Connection& connection, Day day, const QString& orderBy) {
    return connection
        .Query(u"select Dept, Divisi, NIP, Nama from employee where "_s + StillThere(day) + u' ' + orderBy)
        .All([](const Cursor& row) {
            return SheetEmployee{row.Text(0) + u'/' + row.Text(1), row.Text(2), row.Text(3)};
        });
}
