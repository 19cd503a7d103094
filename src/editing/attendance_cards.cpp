#include "editing/attendance_cards.h"

#include "cards/card_conflict.h"
#include "cards/card_store.h"
#include "cards/sheet_identifier.h"
#include "core/error_words.h"

#include <algorithm>

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

/// The days of these statuses as they are stored.
class StoredDays {
public:
    StoredDays(Connection& connection, const std::vector<DayStatus>& statuses) {
        const auto [first, last] = std::ranges::minmax(statuses, {}, &DayStatus::day);
        const AttendanceCriteria criteria{{}, {}, {}, DayRange{first.day, last.day}};
        attendance_ = *RefreshAttendance(connection, criteria, first.day, {});
        for (const ListedEmployee& employee : attendance_.employees)
            places_.insert(employee.nip, static_cast<size_t>(places_.size()));
    }

    bool Knows(const QString& nip) const { return places_.contains(nip); }
    std::optional<AttendanceRecord> On(const DayStatus& status) const {
        const auto place = places_.constFind(status.nip);
        const AttendanceRecord* record =
            place == places_.cend() ? nullptr : attendance_.Find(status.day, *place);
        return record ? std::optional(*record) : std::nullopt;
    }

private:
    Attendance attendance_;
    QHash<QString, size_t> places_;
};

/// Why the status cannot be written; nothing when the card has it now.
QString Refusal(TimeCard& card, const QString& tcid, const DayStatus& wanted,
                const std::optional<AttendanceRecord>& stored) {
    const QString& has = stored ? stored->status : QString();
    if (stored.has_value() == wanted.shown.isNull() || (has != wanted.shown && has != wanted.status))
        return u"di komputer lain sudah menjadi %1. Muat ulang, lalu ulangi."_s.arg(
            stored ? (has.isEmpty() ? u"kartu tanpa status"_s : has) : u"hari tanpa kartu"_s);
    if (wanted.status.isNull()) {
        const bool bare = card.days.size() <= 1 && HiddenOn(card, {wanted.nip, wanted.day, stored}).isEmpty();
        if (!bare || stored->timeIn || stored->timeOut)
            return u"kartunya sudah berisi jam."_s;
        card.days.clear();
        return {};
    }
    if (!stored)
        MakeCard(card, {wanted.nip, wanted.day, {}}, tcid);
    card.header->status = wanted.status;
    return {};
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

DayStatusesSaved SaveDayStatuses(Connection& connection, const std::vector<DayStatus>& statuses) {
    DayStatusesSaved saved;
    if (statuses.empty())
        return saved;
    connection.InTransaction([&] {
        saved = {};
        const StoredDays stored(connection, statuses);
        QStringList tcids;
        for (const DayStatus& status : statuses) {
            const auto record = stored.On(status);
            tcids << (record ? record->tcid : CardIdentifier(SheetIdentifierOf(status.day), status.nip));
        }
        CardStore(connection).ChangeAll(tcids, [&](QHash<QString, TimeCard>& cards) {
            QHash<QString, TimeCard> changed = cards;
            for (size_t i = 0; i < statuses.size(); ++i) {
                const QString& tcid = tcids[static_cast<qsizetype>(i)];
                QString refusal = u"karyawan ini tidak ada lagi."_s;
                try {
                    if (stored.Knows(statuses[i].nip))
                        refusal = Refusal(changed[tcid], tcid, statuses[i], stored.On(statuses[i]));
                } catch (const ProgramError& error) {
                    refusal = UserText(error);
                }
                if (!refusal.isEmpty())
                    saved.refused.emplace_back(i, refusal);
            }
            if (saved.refused.empty())
                cards = changed;
            for (size_t i = 0; i < statuses.size(); ++i) {
                const DayStatus& status = statuses[i];
                saved.now.push_back(saved.refused.empty() ? RecordOn(cards[tcids[static_cast<qsizetype>(i)]],
                                                                     {status.nip, status.day, {}})
                                                          : stored.On(status));
            }
        });
    });
    return saved;
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
