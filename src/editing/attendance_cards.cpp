#include "editing/attendance_cards.h"

#include "cards/card_conflict.h"
#include "cards/card_store.h"
#include "cards/sheet_identifier.h"

using namespace Qt::StringLiterals;

namespace {

/// The number of the error "duplicate value in an index".
constexpr int CardElsewhereError = 3022;

/// What the card says of the employee's day; nothing when header or day is missing, or when the card is
/// another employee's now.
std::optional<AttendanceRecord> RecordOn(const TimeCard& card, const ShownDayRow& row) {
    const CardDay* day = card.DayOn(row.day);
    if (!day || !card.header || card.header->nip != row.nip)
        return std::nullopt;
    return AttendanceRecord{card.header->tcid, TimeIfSet(day->timeIn), TimeIfSet(day->timeOut),
                            card.header->status, card.header->keterangan};
}

/// A card that has a day already cannot serve for this one, too. A header without a day is what a deleted
/// card left: it is taken up again, but not what was computed for the day that is gone.
void MakeCard(TimeCard& card, const ShownDayRow& row, const QString& tcid) {
    if (!card.days.empty()) {
        const QString used = ShownDay(card.days.front().tanggal);
        throw ProgramError(ErrorKind::CardInUse, CardElsewhereError,
                           u"card %1 is in use for %2"_s.arg(tcid, used), {tcid, used});
    }
    CardHeader& header = card.HeaderOf(tcid, row.nip);
    if (!header.nip.isEmpty() && header.nip != row.nip)
        throw ProgramError(ErrorKind::CardOfOther, CardElsewhereError,
                           u"card %1 is a card of employee %2"_s.arg(tcid, header.nip), {tcid, header.nip});
    header = CardHeader{tcid, row.nip, {}, header.keterangan};
    card.days.push_back({row.day});
}

/// Of a card that the row did not show yet, the status was none.
ConflictError StatusConflict(const TimeCard& stored, const ShownDayRow& row, const QString& tcid,
                             const QString& newStatus) {
    TimeCard read = stored;
    if (read.header) {
        read.header->nip = row.nip;
        read.header->status = row.record ? row.record->status : QString();
    }
    if (!read.DayOn(row.day))
        read.days = {{row.day}};
    TimeCard wanted = read;
    if (wanted.header)
        wanted.header->status = newStatus;
    return CardConflict(tcid, row.nip, read, stored, wanted);
}

void RequireShown(const TimeCard& card, const ShownDayRow& row, const QString& newStatus) {
    const std::optional<AttendanceRecord> stored = RecordOn(card, row);
    if (!stored || (stored->status != row.record->status && stored->status != newStatus))
        throw StatusConflict(card, row, row.record->tcid, newStatus);
}

QString Span(QStringView what, const std::optional<WallTime>& from, const std::optional<WallTime>& to) {
    const auto shown = [](const std::optional<WallTime>& time) {
        return TimeIfSet(time) ? ShownMinute(*time) : QString();
    };
    if (shown(from).isEmpty() && shown(to).isEmpty())
        return {};
    return u" %1 %2-%3"_s.arg(what, shown(from), shown(to));
}

QStringList HiddenOn(const TimeCard& card, const ShownDayRow& row) {
    QStringList hidden;
    for (const CardDay& day : card.days) {
        const QString overtime = Span(u"lembur", day.timeInOt, day.timeOutOt);
        if (day.tanggal != row.day)
            hidden << ShownDay(day.tanggal) + Span(u"jam", day.timeIn, day.timeOut) + overtime;
        else if (!overtime.isEmpty())
            hidden << ShownDay(day.tanggal) + overtime;
    }
    return hidden;
}

} // namespace

AttendanceRecord SaveDayStatus(Connection& connection, const ShownDayRow& row, const QString& status) {
    const QString tcid = row.record ? row.record->tcid : CardIdentifier(SheetIdentifierOf(row.day), row.nip);
    const TimeCard saved = CardStore(connection).Change(tcid, [&](TimeCard& card) {
        if (row.record)
            RequireShown(card, row, status);
        else if (const auto made = AttendanceOn(connection, row.nip, row.day)) // perhaps on an extended sheet
            throw StatusConflict(CardStore(connection).Read(made->tcid), row, made->tcid, status);
        else
            MakeCard(card, row, tcid);
        card.header->status = status;
    });
    return RecordOn(saved, row).value();
}

QStringList HiddenOnCard(Connection& connection, const ShownDayRow& row) {
    return row.record ? HiddenOn(CardStore(connection).Read(row.record->tcid), row) : QStringList();
}

void DeleteCardDays(Connection& connection, const ShownDayRow& row, const QStringList& told) {
    if (!row.record)
        return;
    CardStore(connection).DeleteDays(row.record->tcid, [&](const TimeCard& card) {
        if (RecordOn(card, row) != row.record || HiddenOn(card, row) != told)
            throw CardConflict(row.record->tcid, row.nip, card, card, card);
    });
}

std::optional<AttendanceRecord> LoadRow(Connection& connection, const ShownDayRow& row) {
    if (row.record) {
        if (auto stored = RecordOn(CardStore(connection).Read(row.record->tcid), row))
            return stored;
    }
    return AttendanceOn(connection, row.nip, row.day);
}
