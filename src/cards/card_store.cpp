#include "cards/card_store.h"

#include "cards/card_fields.h"
#include "cards/employee_pay.h"
#include "database/recordset.h"
#include "database/statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Recordset OpenHeader(Connection& connection, const QString& tcid) {
    return Recordset(connection, u"select * from TimeCardHeader where TCID="_s + Quoted(tcid));
}

Recordset OpenTimeCardDetail(Connection& connection, const QString& tcid) {
    return Recordset(connection,
                     u"select * from TimeCardDetail where tcid="_s + Quoted(tcid) + u" order by Tanggal"_s);
}

template<class Row, class Each>
Row CurrentRow(const Recordset& rows, Each each) {
    return RowOf<Row>(each, [&rows](QStringView name) { return rows.Field(name.toString()); });
}

TimeCard CardIn(const Recordset& header, Recordset days) {
    TimeCard card;
    if (!header.AtEnd())
        card.header = CurrentRow<CardHeader>(header, HeaderColumns);
    for (; !days.AtEnd(); days.MoveNext())
        card.days.push_back(CurrentRow<CardDay>(days, DayColumns));
    return card;
}

/// Sets what differs between what was read and what is to stand there. True when there is anything to write.
template<class Each, class Row>
bool SetWhatDiffers(Recordset& row, const Row& read, const Row& wanted, Each each) {
    bool differs = false;
    each([&](QStringView name, auto member) {
        if (!Differs(read.*member, wanted.*member))
            return;
        row.Set(name.toString(), Stored(wanted.*member));
        differs = true;
    });
    return differs;
}

void WriteHeader(Recordset& row, const std::optional<CardHeader>& read, const CardHeader& wanted) {
    if (!read)
        row.AddNew();
    if (SetWhatDiffers(row, read.value_or(CardHeader()), wanted, HeaderColumns))
        row.Update();
}

void WriteDays(Recordset& rows, const QString& tcid, const std::vector<CardDay>& read,
               const std::vector<CardDay>& wanted) {
    for (size_t i = 0; i < wanted.size(); ++i) {
        rows.MoveTo(static_cast<int>(i));
        const bool isNew = i >= read.size();
        if (isNew) {
            rows.AddNew();
            rows.Set(u"TCID"_s, tcid);
            rows.Set(u"Tanggal"_s, wanted[i].tanggal);
        }
        if (SetWhatDiffers(rows, isNew ? CardDay{wanted[i].tanggal} : read[i], wanted[i], DayColumns)
            || isNew)
            rows.Update();
    }
}

/// How many rows there are whose column holds one of the texts.
int CountIn(Connection& connection, const QString& tableAndColumn, const QStringList& texts) {
    Cursor rows =
        connection.Query(u"select count(1) from %1 in (%2)"_s.arg(tableAndColumn, Marks(texts.size())),
                         QVariantList(texts.cbegin(), texts.cend()));
    return rows.Next() ? static_cast<int>(rows.Value(0).Number()) : 0;
}

/// In the order of the columns of the statement below.
enum ComputableColumn {
    Tcid,
    Tanggal,
    Nip,
    Status,
    TimeIn,
    TimeOut,
    MealGranted,
    RosterCode,
    EmployeeType,
    BasicPay,
    OvertimeRate,
    MealAllowance
};

/// An employee without a record or a roster entry leaves their columns null.
QString ComputableCardsStatement(qsizetype count) {
    return u"select h.TCID, d.Tanggal, h.NIP, h.Status, d.TimeIN, d.TimeOUT, d.BeriUangMakan, r.ShiftCode, "
           u"%1 "
           "from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID "
           "left join Employee e on e.NIP=h.NIP %2 "
           "left join ShiftEmployee r on r.NIP=h.NIP and r.Tgl=d.Tanggal where h.TCID in (%3) "
           "order by h.TCID, d.Tanggal"_s.arg(PayInForce::Columns(), PayInForce::Join(u"d.Tanggal"_s),
                                              Marks(count));
}

} // namespace

TimeCard CardStore::Read(const QString& tcid) const {
    return CardIn(OpenHeader(connection_, tcid), OpenTimeCardDetail(connection_, tcid));
}

TimeCard CardStore::Change(const QString& tcid, const std::function<void(TimeCard&)>& change) const {
    return connection_.InTransaction([&] {
        Recordset header = OpenHeader(connection_, tcid);
        Recordset days = OpenTimeCardDetail(connection_, tcid);
        const TimeCard read = CardIn(header, days);
        TimeCard card = read;
        change(card);
        if (card.header)
            WriteHeader(header, read.header, *card.header);
        WriteDays(days, tcid, read.days, card.days);
        std::ranges::sort(card.days, {}, &CardDay::tanggal); // as they will be read again
        return card;
    });
}

void CardStore::DeleteDays(const QString& tcid, const std::function<void(const TimeCard&)>& check,
                           std::optional<Day> only) const {
    connection_.InTransaction([&] {
        check(Read(tcid));
        QString statement = u"Delete from [TimeCardDetail] where TCID="_s + Quoted(tcid);
        if (only)
            statement += u" and Tanggal="_s + Quoted(StoredDay(*only));
        connection_.Execute(statement);
    });
}

void CardStore::Insert(const std::vector<TimeCard>& cards) const {
    QList<QVariantList> headers;
    QList<QVariantList> days;
    for (const TimeCard& card : cards) {
        headers << ValuesOf(card.header.value(), HeaderColumns);
        for (const CardDay& day : card.days)
            days << QVariantList{card.header->tcid} + ValuesOf(day, DayColumns);
    }
    connection_.InTransaction([&] {
        connection_.ExecuteMany(InsertStatement(u"TimeCardHeader"_s, NamesOf(HeaderColumns)), headers);
        connection_.ExecuteMany(
            InsertStatement(u"TimeCardDetail"_s, QStringList{u"TCID"_s} + NamesOf(DayColumns)), days);
    });
}

std::vector<ComputableCard> CardStore::ReadForComputation(const QStringList& tcids) const {
    Cursor rows =
        connection_.Query(ComputableCardsStatement(tcids.size()), QVariantList(tcids.cbegin(), tcids.cend()));
    std::vector<ComputableCard> cards;
    while (rows.Next()) {
        QString tcid = rows.Text(Tcid);
        if (!cards.empty() && cards.back().tcid == tcid)
            continue; // the card's first day is the one that counts
        ComputableCard& card = cards.emplace_back();
        card.tcid = std::move(tcid);
        card.nip = rows.Text(Nip);
        card.status = rows.Text(Status);
        card.storedDay = rows.Text(Tanggal);
        card.timeIn = rows.Time(TimeIn);
        card.timeOut = rows.Time(TimeOut);
        card.mealGranted = rows.Value(MealGranted).Flag();
        card.rosterCode = rows.Text(RosterCode);
        card.basicPay = rows.Value(BasicPay);
        card.overtimeRate = rows.Value(OvertimeRate);
        card.mealAllowance = rows.Value(MealAllowance);
        card.employeeType = rows.Text(EmployeeType);
    }
    return cards;
}

void CardStore::WriteResults(const std::vector<ComputedCard>& cards) const {
    QList<QVariantList> headers;
    QList<QVariantList> days;
    for (const auto& [tcid, storedDay, result] : cards) {
        headers.push_back({result.normalHours.Field().Stored(), result.overtimeHours.Field().Stored(),
                           result.normalAmount.Field().Stored(), result.overtimeAmount.Field().Stored(),
                           result.mealTotal.Field().Stored(), tcid});
        if (result.day)
            days.push_back({StoredTime(result.day->overtimeIn), StoredTime(result.day->overtimeOut),
                            result.day->shiftCode, tcid, storedDay});
    }
    connection_.InTransaction([&] {
        connection_.ExecuteMany(u"update TimeCardDetail set TimeINOT=?, TimeOutOT=?, ShiftCode=? "
                                "where TCID=? and Tanggal=?"_s,
                                days);
        connection_.ExecuteMany(u"update TimeCardHeader set NormalHours=?, OTHours=?, NormalAmount=?, "
                                "OTAmount=?, TotalUangMakan=? where TCID=?"_s,
                                headers);
    });
}

int CardStore::CountDaysOfShift(const QStringList& codes) const {
    return CountIn(connection_, u"TimeCardDetail where ShiftCode"_s, codes);
}

int CardStore::CountCardsOfStatus(const QString& status) const {
    return CountIn(connection_, u"TimeCardHeader where Status"_s, {status});
}

QSet<QString> CardStore::WithCards(const QStringList& nips) const {
    Cursor rows = connection_.Query(
        u"select distinct NIP from TimeCardHeader where NIP in (%1)"_s.arg(Marks(nips.size())),
        QVariantList(nips.cbegin(), nips.cend()));
    QSet<QString> found;
    while (rows.Next())
        found << rows.Text(0);
    return found;
}

void CardStore::RenameStatus(const QString& from, const QString& to) const {
    connection_.Execute(u"update TimeCardHeader set Status=? where Status=?"_s, {to, from});
}
