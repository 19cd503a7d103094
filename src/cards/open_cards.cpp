#include "cards/open_cards.h"

#include "cards/sheet_identifier.h"

using namespace Qt::StringLiterals;

std::vector<OpenCard> OpenCardsOf(Connection& connection, const QString& nip, Day day) {
    const auto [first, last] = CardRange(SheetIdentifierOf(day));
    Cursor rows = connection.Query(u"select h.TCID, d.TimeIN, d.TimeOUT, r.ShiftCode from TimeCardHeader h "
                                   "inner join TimeCardDetail d on d.TCID=h.TCID "
                                   "left join ShiftEmployee r on r.NIP=h.NIP and r.Tgl=d.Tanggal "
                                   "where h.NIP=? and h.TCID between ? and ? order by d.TimeIN desc"_s,
                                   {nip, first, last});
    std::vector<OpenCard> cards;
    while (rows.Next()) {
        const std::optional<WallTime> arrival = TimeIfSet(rows.Time(1));
        if (arrival && !TimeIfSet(rows.Time(2)))
            cards.push_back({rows.Text(0), *arrival, rows.Text(3)});
    }
    return cards;
}
