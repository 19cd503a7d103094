#include "cards/period_cards.h"

#include "cards/sheet_identifier.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;

namespace {

QString OfNumber(const std::optional<QString>& nip) {
    return nip ? u" and h.NIP="_s + Quoted(*nip) : QString();
}

} // namespace

void EachPeriodCard(Connection& connection, DayRange days, const std::optional<QString>& nip,
                    const std::function<void(const PeriodCard&)>& visit) {
    Cursor rows = connection.Query(
        u"select d.TCID, h.NIP, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT, d.ShiftCode, h.NormalHours "
        "from TimeCardDetail d left join TimeCardHeader h on h.TCID=d.TCID "
        "where d.Tanggal between ? and ?"_s
            + OfNumber(nip) + u" order by d.Tanggal, d.TCID"_s,
        {StoredDay(days.first), StoredDay(days.last)});
    while (rows.Next()) {
        const std::optional<WallTime> day = rows.Time(3);
        if (day)
            visit({rows.Text(0), rows.Text(1), rows.Text(2), DayOf(*day), TimeIfSet(rows.Time(4)),
                   TimeIfSet(rows.Time(5)), rows.Text(6), !rows.Value(7).IsNull()});
    }
}

std::vector<PeriodCard> CardsWithoutDay(Connection& connection, DayRange days,
                                        const std::optional<QString>& nip) {
    Cursor rows = connection.Query(
        u"select h.TCID, h.NIP, h.Status from TimeCardHeader h where h.TCID between ? and ?"_s + OfNumber(nip)
            + u" and not exists (select 1 from TimeCardDetail d where d.TCID=h.TCID) order by h.TCID"_s,
        {SheetIdentifierOf(days.first), CardRange(SheetIdentifierOf(days.last)).second});
    std::vector<PeriodCard> cards;
    while (rows.Next()) {
        PeriodCard card;
        card.tcid = rows.Text(0);
        card.nip = rows.Text(1);
        card.status = rows.Text(2);
        card.day = DayOfIdentifier(card.tcid).value_or(days.first);
        cards.push_back(card);
    }
    return cards;
}

std::vector<PeriodEmployee> PeriodEmployees(Connection& connection, const CardFilter& filter) {
    QStringList conditions{u"NIP is not null"_s};
    if (filter.nip)
        conditions << u"NIP="_s + Quoted(*filter.nip);
    if (filter.dept)
        conditions << u"Dept="_s + Quoted(*filter.dept);
    Cursor rows = connection.Query(u"select NIP, Nama, Dept, Masuk, Keluar from Employee where "_s
                                   + conditions.join(u" and "_s));
    std::vector<PeriodEmployee> employees;
    while (rows.Next())
        employees.push_back({rows.Text(0), rows.Text(1), rows.Text(2), rows.Time(3), rows.Time(4)});
    return employees;
}

void EachRosterDay(Connection& connection, DayRange days,
                   const std::function<void(const QString& nip, Day day, const QString& code)>& visit) {
    // The numbers lead the roster's key: an inner join would read the roster of all times.
    Cursor rows = connection.Query(u"select e.NIP, s.Tgl, s.ShiftCode from Employee e "
                                   "left join ShiftEmployee s on s.NIP=e.NIP and s.Tgl between ? and ?"_s,
                                   {StoredDay(days.first), StoredDay(days.last)});
    while (rows.Next()) {
        if (const std::optional<WallTime> day = rows.Time(1))
            visit(rows.Text(0), DayOf(*day), rows.Text(2));
    }
}
