#include "editing/attendance_cards.h"

#include "core/query_values.h"
#include "database/database_error.h"
#include "database/recordset.h"
#include "database/statement.h"
#include "timecard/sheet_identifier.h"

using namespace Qt::StringLiterals;

namespace {

/// The number of the error "duplicate value in an index".
constexpr int CardElsewhereError = 3022;
const QString Cards = u"kartu absen"_s;

Recordset OpenHeader(Connection& connection, const QString& tcid) {
    return Recordset(connection, u"select * from TimeCardHeader Where TCID="_s + Quoted(tcid));
}

FieldValue OrNull(const std::optional<WallTime>& time) {
    return time ? FieldValue(*time) : FieldValue();
}

/// The card's row of the employee's day as it is stored; nothing when header or day is missing, or when the
/// card is another employee's now.
std::optional<AttendanceRecord> StoredRecord(Connection& connection, const QString& tcid,
                                             const ShownDayRow& row) {
    Cursor days = connection.Query(u"sp_TimeCardDetail "_s + Quoted(tcid));
    bool found = false;
    AttendanceRecord record;
    record.tcid = tcid;
    while (!found && days.Next()) {
        found = days.Text(0) == StoredDay(row.day);
        record.timeIn = TimeIfSet(days.Time(1));
        record.timeOut = TimeIfSet(days.Time(2));
    }
    Cursor header = connection.Query(u"sp_sel_TimeCard "_s + Quoted(tcid));
    if (!found || !header.Next() || header.Text(header.ColumnOf(u"NIP"_s)) != row.nip)
        return std::nullopt;
    record.status = header.Text(header.ColumnOf(u"Status"_s));
    record.keterangan = header.Text(header.ColumnOf(u"Keterangan"_s));
    return record;
}

/// A card that has a day already cannot serve for this one, too.
void CheckHasNoDay(Connection& connection, const QString& tcid) {
    const Recordset days = b_stored_procedure::OpenTimeCardDetail(connection, tcid);
    if (days.AtEnd())
        return;
    const WallTime used = days.Field(u"Tanggal"_s).Time().value_or(EmptyTime);
    throw ProgramError(CardElsewhereError,
                       u"Kartu %1 sudah dipakai untuk tanggal %2. Tidak ada yang disimpan."_s.arg(
                           tcid, ShownDay(DayOf(used))));
}

/// A header without a day is what a deleted card left: it is taken up again, but not what was computed for
/// the day that is gone.
void WriteHeader(Connection& connection, const QString& tcid, const QString& nip, const QString& status) {
    Recordset header = OpenHeader(connection, tcid);
    const QString owner = header.AtEnd() ? QString() : header.Field(u"NIP"_s).Text();
    if (!owner.isEmpty() && owner != nip)
        throw ProgramError(CardElsewhereError,
                           u"Kartu %1 adalah kartu karyawan %2. Tidak ada yang disimpan."_s.arg(tcid, owner));
    if (header.AtEnd())
        header.AddNew();
    header.Set(u"TCID"_s, tcid);
    header.Set(u"NIP"_s, nip);
    header.Set(u"Status"_s, status);
    for (const QString& computed :
         {u"NormalHours"_s, u"OTHours"_s, u"NormalAmount"_s, u"OTAmount"_s, u"TotalUangMakan"_s})
        header.Set(computed, {});
    header.Update();
}

QString Span(QStringView what, const Recordset& days, const QString& from, const QString& to) {
    const auto shown = [&days](const QString& field) {
        const std::optional<WallTime> time = TimeIfSet(days.Field(field).Time());
        return time ? ShownMinute(*time) : QString();
    };
    if (shown(from).isEmpty() && shown(to).isEmpty())
        return {};
    return u" %1 %2-%3"_s.arg(what, shown(from), shown(to));
}

/// Returns the new card's identifier.
QString MakeCard(Connection& connection, const ShownDayRow& row, const QString& status) {
    QString tcid = CardIdentifier(SheetIdentifierOf(row.day), row.nip);
    if (ReadAttendance(connection, row.nip, row.day))
        throw ConflictError(Cards); // another desk was quicker, perhaps on an extended sheet
    CheckHasNoDay(connection, tcid);
    WriteHeader(connection, tcid, row.nip, status);
    connection.Execute(u"INSERT INTO [TimeCardDetail] (TCID, Tanggal) VALUES (?,?)"_s,
                       {tcid, StoredDay(row.day)});
    return tcid;
}

} // namespace

AttendanceRecord SaveStatusCell(Connection& connection, const ShownDayRow& row, const QString& status) {
    Transaction transaction(connection);
    const QString tcid = row.record ? row.record->tcid : MakeCard(connection, row, status);
    if (row.record) {
        const std::optional<AttendanceRecord> stored = StoredRecord(connection, tcid, row);
        if (!stored || (stored->status != row.record->status && stored->status != status))
            throw ConflictError(Cards);
    }
    connection.Execute(u"UPDATE [TimeCardHeader] SET Status=? WHERE TCID=?"_s, {status, tcid});
    const std::optional<AttendanceRecord> saved = StoredRecord(connection, tcid, row);
    transaction.Commit();
    return saved.value();
}

std::optional<AttendanceRecord> SaveGridRow(Connection& connection, const ShownDayRow& row) {
    if (!row.record)
        return std::nullopt;
    const AttendanceRecord& shown = *row.record;
    Transaction transaction(connection);
    Recordset header = OpenHeader(connection, shown.tcid);
    if (header.AtEnd()) {
        header.AddNew();
        header.Set(u"TCID"_s, shown.tcid);
        header.Set(u"NIP"_s, row.nip);
        header.Set(u"Status"_s, shown.status);
        header.Set(u"Keterangan"_s, shown.keterangan);
        header.Update();
    }
    Recordset days = b_stored_procedure::OpenTimeCardDetail(connection, shown.tcid);
    // A card that was moved to another day or employee is not missing.
    if (days.AtEnd() && header.Field(u"NIP"_s).Text() == row.nip) {
        days.AddNew();
        days.Set(u"TCID"_s, shown.tcid);
        days.Set(u"Tanggal"_s, row.day);
        days.Set(u"TimeIN"_s, OrNull(shown.timeIn));
        days.Set(u"TimeOUT"_s, OrNull(shown.timeOut));
        days.Update();
    }
    transaction.Commit();
    return LoadRow(connection, row);
}

QStringList HiddenOnCard(Connection& connection, const ShownDayRow& row) {
    QStringList hidden;
    if (!row.record)
        return hidden;
    for (Recordset days = b_stored_procedure::OpenTimeCardDetail(connection, row.record->tcid); !days.AtEnd();
         days.MoveNext()) {
        const Day day = DayOf(days.Field(u"Tanggal"_s).Time().value_or(EmptyTime));
        const QString overtime = Span(u"lembur", days, u"TimeINOT"_s, u"TimeOutOT"_s);
        if (day != row.day)
            hidden << ShownDay(day) + Span(u"jam", days, u"TimeIN"_s, u"TimeOUT"_s) + overtime;
        else if (!overtime.isEmpty())
            hidden << ShownDay(day) + overtime;
    }
    return hidden;
}

void DeleteCardDays(Connection& connection, const ShownDayRow& row, const QStringList& told) {
    if (!row.record)
        return;
    Transaction transaction(connection);
    if (StoredRecord(connection, row.record->tcid, row) != row.record
        || HiddenOnCard(connection, row) != told)
        throw ConflictError(Cards);
    connection.Execute(u"Delete from [TimeCardDetail] where TCID="_s + Quoted(row.record->tcid));
    transaction.Commit();
}

std::optional<AttendanceRecord> LoadRow(Connection& connection, const ShownDayRow& row) {
    if (row.record) {
        if (auto stored = StoredRecord(connection, row.record->tcid, row))
            return stored;
    }
    return ReadAttendance(connection, row.nip, row.day);
}
