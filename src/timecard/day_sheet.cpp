#include "timecard/day_sheet.h"

#include "core/time_text.h"
#include "database/statement.h"
#include "timecard/sheet_identifier.h"

#include <QSet>

using namespace Qt::StringLiterals;

QString HoursText(const SheetEntry& entry, WallTime now) {
    const bool stillIn = entry.status == QStringView(u"IN");
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

std::vector<SheetEmployee> ReadEmployees(Connection& connection, const QString& orderBy) {
    Cursor rows = connection.Query(u"select * from employee "_s + orderBy);
    const int dept = rows.ColumnOf(u"Dept"_s);
    const int divisi = rows.ColumnOf(u"Divisi"_s);
    const int nip = rows.ColumnOf(u"NIP"_s);
    const int nama = rows.ColumnOf(u"Nama"_s);
    std::vector<SheetEmployee> employees;
    while (rows.Next())
        employees.push_back({rows.Text(dept) + u'/' + rows.Text(divisi), rows.Text(nip), rows.Text(nama)});
    return employees;
}

std::vector<SheetCard> ReadSheetCards(Connection& connection, const QString& sheet) {
    if (sheet.size() < DayIdentifierLength)
        return {}; // it would begin the identifiers of a month's cards, or of all there are
    // The last character there is ends the range of identifiers that begin with the sheet's.
    const QString first = sheet.toUpper();
    const QString last = first + QString::fromUcs4(U"\U0010FFFF");
    Cursor rows =
        connection.Query(u"select d.TCID, h.Status, d.TimeIN, d.TimeOUT, d.TimeINOT, d.TimeOutOT "
                         "from TimeCardDetail d left join TimeCardHeader h on h.TCID=d.TCID "
                         "where d.TCID between "_s
                         + Quoted(first) + u" and "_s + Quoted(last) + u" order by d.TCID, d.Tanggal"_s);
    QSet<QString> statuses; // thousands of cards share a few codes, and so each code's text
    std::vector<SheetCard> cards;
    while (rows.Next()) {
        QString tcid = rows.Text(0);
        if (!cards.empty() && cards.back().tcid == tcid)
            continue; // the card's first day is the one that the sheet shows
        const QString found = rows.Text(1);
        const QString& status = *statuses.insert(found.isEmpty() ? AbsentStatus.toString() : found);
        cards.push_back({std::move(tcid),
                         {status, TimeIfSet(rows.Time(2)), TimeIfSet(rows.Time(3)), TimeIfSet(rows.Time(4)),
                          TimeIfSet(rows.Time(5))}});
    }
    return cards;
}
