#include "timecard/clock_recording.h"

#include "cards/card_store.h"
#include "cards/sheet_identifier.h"
#include "core/query_values.h"
#include "core/status_codes.h"
#include "database/recordset.h"
#include "database/statement.h"
#include "timecard/sheet_lifecycle.h"

using namespace Qt::StringLiterals;

namespace {

/// The group of supervisors who clock in without being employees.
const QString MayClockIn = u"ABSEN"_s;

bool HasLeft(Connection& connection, const QString& nip, Day day) {
    return connection.Query(u"select NIP from Employee where NIP=? and Keluar<?"_s, {nip, StoredDay(day)})
        .Next();
}

std::optional<Refusal> RecordArrival(TimeCard& card, const ClockEntry& entry, const QString& tcid,
                                     const QString& nip) {
    // An arrival counts even where the card's header is missing: it must not be overwritten.
    if (!card.days.empty() && TimeIfSet(card.days.front().timeIn))
        return Refusal::AlreadyClockedIn;
    CardHeader& header = card.HeaderOf(tcid, nip);
    header.nip = nip;
    header.status = CardStatus::In.toString();
    CardDay& day = card.FirstDay(entry.sheetDate);
    day.tanggal = entry.sheetDate;
    day.timeIn = entry.Moment();
    day.beriUangMakan = true;
    return std::nullopt;
}

std::optional<Refusal> RecordDeparture(TimeCard& card, const ClockEntry& entry) {
    if (!card.header)
        return Refusal::NotClockedIn;
    card.header->status = CardStatus::Out.toString();
    // Where the card's day was removed after the arrival, the departure must not get lost with it.
    card.FirstDay(entry.sheetDate);
    for (CardDay& day : card.days)
        day.timeOut = entry.Moment();
    return std::nullopt;
}

} // namespace

QString RefusalText(Refusal refusal) {
    switch (refusal) {
    case Refusal::NotClockedIn:
        return u"Belum isi absen masuk.\nAtau beda lembaran.\nHubungi petugas absen sekarang.!!!"_s;
    case Refusal::AlreadyClockedIn:
        return u"Tidak bisa absen dua kali."_s;
    case Refusal::SheetClosed:
        return u"LEMBAR INI SUDAH DI TUTUP ANDA TIDAK DAPAT MEMBUAT ATAU MENAMBAH DATA ABSENSI INI"_s;
    case Refusal::HasLeft:
        return u"Karyawan ini tercatat sudah keluar sebelum tanggal lembar ini.\nHubungi petugas absen."_s;
    }
    return {};
}

bool IsSupervisorOnly(Connection& connection, const QString& userId) {
    Cursor groups = connection.Query(
        u"select GroupID from User_Job where UserID=? and UserID not in (select NIP from Employee)"_s,
        {userId});
    bool supervisor = false;
    while (groups.Next()) {
        if (groups.Text(0) == MayClockIn)
            return false;
        supervisor = supervisor || groups.Text(0) == u"SPV";
    }
    return supervisor;
}

void LetClockIn(Connection& connection, const QString& userId) {
    connection.Execute(u"insert into User_Job (UserID, GroupID) values (?,?)"_s, {userId, MayClockIn});
}

std::optional<QString> LoadStoredPassword(Connection& connection, const QString& nip) {
    const Recordset user(connection, u"select * from `user` where UserId="_s + Quoted(nip));
    if (user.AtEnd())
        return std::nullopt;
    return b_global::IfNull(user.Field(u"Password"_s), u""_s).Text();
}

std::optional<OpenNight> NightOfDeparture(Connection& connection, const ClockEntry& entry,
                                          const QString& nip) {
    if (entry.IsClockIn() || CardStore(connection).Read(CardIdentifier(entry.sheet, nip)).header)
        return std::nullopt;
    return FindOpenNight(connection, nip, entry.sheetDate, entry.Moment());
}

std::optional<Refusal> RecordClockEntry(Connection& connection, const ClockEntry& entry, const QString& nip) {
    const QString sheet = entry.night ? entry.night->sheet : entry.sheet;
    const QString tcid = CardIdentifier(sheet, nip);
    std::optional<Refusal> refusal;
    CardStore(connection).Change(tcid, [&](TimeCard& card) {
        const bool closed = entry.night
                                ? ClosedSheets(connection, entry.night->day, entry.night->day).contains(sheet)
                                : IsSheetClosed(connection, sheet);
        if (closed)
            refusal = Refusal::SheetClosed;
        else if (entry.IsClockIn() && HasLeft(connection, nip, entry.sheetDate))
            refusal = Refusal::HasLeft;
        else if (entry.IsClockIn())
            refusal = RecordArrival(card, entry, tcid, nip);
        else if (entry.night && NightOfDeparture(connection, entry, nip) != entry.night)
            refusal = Refusal::NotClockedIn;
        else
            refusal = RecordDeparture(card, entry);
        if (!refusal && entry.clockInDoubt)
            card.header->AddRemark(u"jam komputer berubah"_s);
    });
    return refusal;
}
