#include "compute/time_card_computation.h"
#include "compute/time_card_rules.h"
#include "database/statement.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// Large enough that a transaction's own cost does not show, small enough that other desks hardly wait.
constexpr qsizetype BatchSize = 500;

/// A card as it stands in the database; its day row is the one of that stored day.
struct StoredCard {
    QString tcid;
    QString storedDay;
    CardData data;
};

enum CardColumn {
    Tcid,
    Tanggal,
    Nip,
    Status,
    TimeIn,
    TimeOut,
    MealGranted,
    Roster,
    Gp,
    RateOt,
    TMakan,
    EmpType
};

/// In the order of CardColumn. An employee without a record or a roster entry leaves their columns null.
QString CardQuery(const QStringList& tcids) {
    QStringList quoted;
    for (const QString& tcid : tcids)
        quoted << Quoted(tcid);
    return u"select h.TCID, d.Tanggal, h.NIP, h.Status, d.TimeIN, d.TimeOUT, d.BeriUangMakan, r.ShiftCode, "
           "e.GP, e.RateOT, e.TMakan, e.EmpType "
           "from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID "
           "left join Employee e on e.NIP=h.NIP "
           "left join ShiftEmployee r on r.NIP=h.NIP and r.Tgl=d.Tanggal where h.TCID in ("_s
           + quoted.join(u',') + u") order by h.TCID, d.Tanggal"_s;
}

std::vector<ShiftRow> ReadShifts(Connection& connection) {
    Cursor rows = connection.Query(u"select Code,TimeIn,TimeOut from Shift"_s);
    std::vector<ShiftRow> shifts;
    while (rows.Next())
        shifts.push_back({rows.Text(0), rows.Time(1), rows.Time(2)});
    return shifts;
}

QString ShiftCodeOf(const Cursor& rows, const std::optional<WallTime>& timeIn,
                    const std::vector<ShiftRow>& shifts) {
    QString code = rows.Text(Roster);
    if (code.isEmpty() && timeIn)
        code = ShiftAround(shifts, TimeOfDay(*timeIn));
    return code.isEmpty() ? DefaultShift.toString() : code;
}

CardData CardOf(const Cursor& rows, const std::vector<ShiftRow>& shifts) {
    CardData card;
    card.status = rows.Text(Status);
    card.timeIn = rows.Time(TimeIn);
    card.timeOut = rows.Time(TimeOut);
    card.mealGranted = rows.Value(MealGranted).Flag();
    card.shiftCode = ShiftCodeOf(rows, card.timeIn, shifts);
    card.shift = HoursOfShift(shifts, card.shiftCode);
    card.pay = {Money::FromField(rows.Value(Gp)), HourlyRate::FromField(rows.Value(RateOt)),
                Money::FromField(rows.Value(TMakan)), rows.Text(EmpType)};
    return card;
}

std::vector<StoredCard> ReadCards(Connection& connection, const QStringList& tcids) {
    const std::vector<ShiftRow> shifts = ReadShifts(connection);
    Cursor rows = connection.Query(CardQuery(tcids));
    std::vector<StoredCard> cards;
    while (rows.Next()) {
        QString tcid = rows.Text(Tcid);
        if (!cards.empty() && cards.back().tcid == tcid)
            continue; // the card's first day is the one that counts
        cards.push_back({std::move(tcid), rows.Text(Tanggal), CardOf(rows, shifts)});
        // Computed alone, the card would be refused for these: no statement can look them up.
        Quoted(rows.Text(Nip));
        Quoted(cards.back().data.shiftCode);
    }
    return cards;
}

void WriteResults(Connection& connection, const std::vector<StoredCard>& cards) {
    QList<QVariantList> headers;
    QList<QVariantList> days;
    for (const StoredCard& card : cards) {
        const CardResult result = ComputeCard(card.data);
        headers.push_back({result.normalHours.Field().Stored(), result.overtimeHours.Field().Stored(),
                           result.normalAmount.Field().Stored(), result.overtimeAmount.Field().Stored(),
                           result.mealTotal.Field().Stored(), card.tcid});
        if (result.day)
            days.push_back({StoredTime(result.day->overtimeIn), StoredTime(result.day->overtimeOut),
                            result.day->shiftCode, card.tcid, card.storedDay});
    }
    connection.ExecuteMany(u"update TimeCardDetail set TimeINOT=?, TimeOutOT=?, ShiftCode=? "
                           "where TCID=? and Tanggal=?"_s,
                           days);
    connection.ExecuteMany(u"update TimeCardHeader set NormalHours=?, OTHours=?, NormalAmount=?, OTAmount=?, "
                           "TotalUangMakan=? where TCID=?"_s,
                           headers);
}

void ComputeBatch(Connection& connection, const QStringList& tcids, modAbsen::ComputationReport& report) {
    Transaction transaction(connection);
    const std::vector<StoredCard> cards = ReadCards(connection, tcids);
    WriteResults(connection, cards);
    transaction.Commit();

    report.computed += static_cast<int>(cards.size());
    QSet<QString> found;
    for (const StoredCard& card : cards)
        found << card.tcid;
    for (const QString& tcid : tcids) {
        if (!found.contains(tcid))
            report.withoutData << tcid;
    }
}

} // namespace

modAbsen::ComputationReport modAbsen::CalculateTimeCards(Connection& connection, const QStringList& tcids,
                                                         const Progress& progress) {
    QStringList cards = tcids;
    cards.removeAll(QString());
    cards.removeDuplicates();
    ComputationReport report;
    for (qsizetype start = 0; start < cards.size(); start += BatchSize) {
        const QStringList batch = cards.mid(start, BatchSize);
        ComputeBatch(connection, batch, report);
        const qsizetype done = start + batch.size();
        if (progress && !progress(done, cards.size())) {
            report.cancelled = done < cards.size();
            break;
        }
    }
    return report;
}
