#include "timecard/clock_recording.h"

#include "core/query_values.h"
#include "database/recordset.h"
#include "database/statement.h"
#include "timecard/sheet_identifier.h"

using namespace Qt::StringLiterals;

namespace {

bool HasHeader(Connection& connection, const QString& card) {
    Cursor rows = connection.Query(u"select * from TimeCardHeader where TCID="_s + Quoted(card));
    return rows.Next();
}

/// A day row whose time is null or the empty time has no arrival.
bool HasArrival(Connection& connection, const QString& card) {
    const QString timeIn = b_stored_procedure::GetFirstValue(
        connection, u"select TimeIn from TimeCardDetail where TCID="_s + Quoted(card));
    return !timeIn.isEmpty() && ReadStored(timeIn) != EmptyTime;
}

std::optional<Refusal> RecordingCheck(Connection& connection, const ClockEntry& entry, const QString& card) {
    if (!entry.IsClockIn())
        return HasHeader(connection, card) ? std::nullopt : std::optional(Refusal::NotClockedIn);
    // An arrival counts even where the card's header is missing: it must not be overwritten.
    return HasArrival(connection, card) ? std::optional(Refusal::AlreadyClockedIn) : std::nullopt;
}

void RecordArrival(Connection& connection, const ClockEntry& entry, const QString& nip, const QString& card) {
    Recordset header(connection, u"select * from TimeCardHeader where tcid="_s + Quoted(card));
    if (header.AtEnd())
        header.AddNew();
    header.Set(u"TCID"_s, card);
    header.Set(u"NIP"_s, nip);
    header.Set(u"Status"_s, u"IN"_s);
    header.Update();

    Recordset detail(connection, u"select * from TimeCardDetail where tcid="_s + Quoted(card));
    if (detail.AtEnd())
        detail.AddNew();
    detail.Set(u"TCID"_s, card);
    detail.Set(u"Tanggal"_s, entry.sheetDate);
    detail.Set(u"TimeIN"_s, entry.Moment());
    detail.Set(u"BeriUangMakan"_s, true);
    detail.Update();
}

void RecordDeparture(Connection& connection, const ClockEntry& entry, const QString& card) {
    const int dayRows =
        connection.Execute(u"update TimeCardDetail set TimeOUT="_s + Quoted(StoredTime(entry.Moment()))
                           + u" where TCID="_s + Quoted(card));
    if (dayRows == 0) {
        // Somebody removed the card's day after the arrival: the departure must not get lost with it.
        Recordset detail(connection, u"select * from TimeCardDetail where tcid="_s + Quoted(card));
        detail.AddNew();
        detail.Set(u"TCID"_s, card);
        detail.Set(u"Tanggal"_s, entry.sheetDate);
        detail.Set(u"TimeOUT"_s, entry.Moment());
        detail.Update();
    }
    connection.Execute(u"update TimeCardHeader set Status='OUT' where TCID="_s + Quoted(card));
}

} // namespace

QString RefusalText(Refusal refusal) {
    switch (refusal) {
    case Refusal::NotClockedIn:
        return u"Belum isi absen masuk.\nAtau beda lembaran.\nHubungi petugas absen sekarang.!!!"_s;
    case Refusal::AlreadyClockedIn:
        return u"Tidak bisa absen dua kali."_s;
    }
    return {};
}

std::optional<QString> LoadStoredPassword(Connection& connection, const QString& nip) {
    const Recordset user(connection, u"select * from `user` where UserId="_s + Quoted(nip));
    if (user.AtEnd())
        return std::nullopt;
    return user.Field(u"Password"_s).Text();
}

bool PasswordMatches(const QString& typed, const QString& stored) {
    return !typed.isEmpty() && typed.toUpper() == stored.toUpper();
}

std::optional<Refusal> RecordClockEntry(Connection& connection, const ClockEntry& entry, const QString& nip) {
    const QString card = CardIdentifier(entry.sheet, nip);
    Transaction transaction(connection);
    if (const std::optional<Refusal> refusal = RecordingCheck(connection, entry, card))
        return refusal;
    if (entry.IsClockIn())
        RecordArrival(connection, entry, nip, card);
    else
        RecordDeparture(connection, entry, card);
    transaction.Commit();
    return std::nullopt;
}
