#include "cards/sheet_cards.h"

#include "cards/sheet_identifier.h"
#include "core/query_values.h"
#include "core/shared_texts.h"
#include "core/status_codes.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;

std::vector<SheetCard> ReadSheetCards(Connection& connection, const QString& sheet) {
    if (sheet.size() < DayIdentifierLength)
        return {}; // it would begin the identifiers of a month's cards, or of all there are
    const auto [first, last] = CardRange(sheet);
    Cursor rows =
        connection.Query(u"select d.TCID, h.Status, d.TimeIN, d.TimeOUT, d.TimeINOT, d.TimeOutOT "
                         "from TimeCardDetail d left join TimeCardHeader h on h.TCID=d.TCID "
                         "where d.TCID between "_s
                         + Quoted(first) + u" and "_s + Quoted(last) + u" order by d.TCID, d.Tanggal"_s);
    const QString absent = CardStatus::Absent.toString();
    SharedTexts statuses;
    std::vector<SheetCard> cards;
    while (rows.Next()) {
        QString tcid = rows.Text(0);
        if (!cards.empty() && cards.back().tcid == tcid)
            continue; // the card's first day is the one that the sheet shows
        const QString status = statuses.Of(rows.Text(1));
        cards.push_back({std::move(tcid),
                         {status.isEmpty() ? absent : status, TimeIfSet(rows.Time(2)),
                          TimeIfSet(rows.Time(3)), TimeIfSet(rows.Time(4)), TimeIfSet(rows.Time(5))}});
    }
    return cards;
}

Day SheetDate(Connection& connection, const QString& sheet, Day today) {
    const QString prefix = sheet.contains(u'-') ? u"Left(TCID,11)="_s : u"Left(TCID,9)="_s;
    // Cards are named in upper case, whatever extension was typed.
    const auto date = ReadStored(b_stored_procedure::GetFirstValue(
        connection, u"select Tanggal from TimeCardDetail where "_s + prefix + Quoted(sheet.toUpper())));
    return date ? DayOf(*date) : today;
}
