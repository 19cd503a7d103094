#include "compute/time_card_computation.h"

#include "compute/shift_resolution.h"
#include "compute/time_card_rules.h"
#include "core/query_values.h"
#include "database/recordset.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;

namespace {

PayData ReadPay(Connection& connection, const QString& nip) {
    const Recordset employee(connection, u"select * from Employee where NIP="_s + Quoted(nip));
    if (employee.AtEnd())
        return {};
    return {Money::FromField(employee.Field(u"GP"_s)), HourlyRate::FromField(employee.Field(u"RateOT"_s)),
            Money::FromField(employee.Field(u"TMakan"_s)), employee.Field(u"EmpType"_s).Text()};
}

CardData ReadCard(Connection& connection, const Recordset& header, const Recordset& detail) {
    const QString nip = header.Field(u"NIP"_s).Text();
    const FieldValue timeIn = detail.Field(u"TimeIN"_s);
    CardData card;
    card.status = header.Field(u"Status"_s).Text();
    card.timeIn = timeIn.Time();
    card.timeOut = detail.Field(u"TimeOUT"_s).Time();
    card.mealGranted = detail.Field(u"BeriUangMakan"_s).Flag();
    card.pay = ReadPay(connection, nip);
    const Day day = DayOf(detail.Field(u"Tanggal"_s).Time().value_or(EmptyTime));
    card.shiftCode = modAbsen::ResolveShift(connection, nip, day, timeIn.Text());
    modGeneral::QueryValues(connection,
                            u"select TimeIN,TimeOut From Shift Where Code="_s + Quoted(card.shiftCode),
                            card.shift.start, card.shift.end);
    return card;
}

void WriteDay(Recordset& detail, const DayResult& day) {
    detail.Set(u"TimeINOT"_s, day.overtimeIn);
    detail.Set(u"TimeOutOT"_s, day.overtimeOut);
    detail.Set(u"ShiftCode"_s, day.shiftCode);
    detail.Update();
}

void WriteHeader(Recordset& header, const CardResult& result) {
    header.Set(u"NormalHours"_s, result.normalHours.Field());
    header.Set(u"OTHours"_s, result.overtimeHours.Field());
    header.Set(u"NormalAmount"_s, result.normalAmount.Field());
    header.Set(u"OTAmount"_s, result.overtimeAmount.Field());
    header.Set(u"TotalUangMakan"_s, result.mealTotal.Field());
    header.Update();
}

/// False when the card has no data.
bool ComputeStoredCard(Connection& connection, const QString& tcid) {
    Transaction transaction(connection);
    Recordset header(connection, u"select * from TimeCardHeader Where TCID="_s + Quoted(tcid));
    Recordset detail(connection, u"select * from TimeCardDetail Where TCID="_s + Quoted(tcid));
    if (header.AtEnd() || detail.AtEnd())
        return false;
    const CardResult result = ComputeCard(ReadCard(connection, header, detail));
    if (result.day)
        WriteDay(detail, *result.day);
    WriteHeader(header, result);
    transaction.Commit();
    return true;
}

} // namespace

void modAbsen::CalculateTimeCard(Connection& connection, Dialogs& dialogs, const QString& tcid) {
    if (tcid.isEmpty())
        return;
    // The transaction is over before the message waits for the user: no other desk waits with it.
    if (!ComputeStoredCard(connection, tcid))
        dialogs.Warn(u"No Data found TCID="_s + tcid);
}
