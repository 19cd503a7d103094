#include "editing/grid_row.h"

#include "cards/card_conflict.h"
#include "cards/card_store.h"
#include "cards/listed_employees.h"
#include "compute/money.h"

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

constexpr qsizetype TooFewElements = 6;
constexpr int NoTimeNumber = 13;
constexpr int UnknownEmployeeNumber = 3201;

TimeCard AsCard(const FoundDay& row) {
    return {row.header, row.day ? std::vector{*row.day} : std::vector<CardDay>()};
}

/// A header that is gone is written anew, whole: there is nothing of it that could be lost.
void RequireUnchanged(const TimeCard& card, const FoundDay& shown, const FoundDay& wanted) {
    FoundDay stored = AsFound(card, shown.day);
    if (!card.header)
        stored.header = shown.header;
    if (stored.header != shown.header || stored.day != shown.day)
        throw CardConflict(shown.header.tcid, shown.header.nip, AsCard(shown), AsCard(stored),
                           AsCard(wanted));
}

/// The texts of a row, and which of them were typed over what was shown.
class TypedRow {
public:
    TypedRow(const FoundDay& shown, const QStringList& elements,
             EmptyElements empty = EmptyElements::LeaveStored)
        : shown_(shown), elements_(elements), empty_(empty) {}

    void WriteTo(CardHeader& header) const {
        header.nip = Element(Nip);
        for (const auto& [column, member] : {std::pair{NormalHours, &CardHeader::normalHours},
                                             {OtHours, &CardHeader::otHours},
                                             {NormalAmount, &CardHeader::normalAmount},
                                             {OtAmount, &CardHeader::otAmount}}) {
            if (Clears(column))
                (header.*member).reset();
            else if (IsTyped(column) || !(header.*member))
                header.*member = Money::FromText(Element(column)).Field().Number();
        }
        for (const auto& [column, member] :
             {std::pair{Status, &CardHeader::status}, {Keterangan, &CardHeader::keterangan}}) {
            if (!Element(column).isEmpty() || !(header.*member).isNull())
                header.*member = Element(column);
        }
    }

    void WriteTo(CardDay& day) const {
        day.tanggal = TypedDay();
        for (const auto& [column, member] : {std::pair{TimeIn, &CardDay::timeIn},
                                             {TimeOut, &CardDay::timeOut},
                                             {TimeInOt, &CardDay::timeInOt},
                                             {TimeOutOt, &CardDay::timeOutOt}}) {
            if (Clears(column))
                (day.*member).reset();
            else if (!Element(column).isEmpty() && IsTyped(column))
                day.*member = TypedTime(column, day.tanggal);
        }
        day.beriUangMakan = Element(BeriUangMakan) == u"True"_s;
        if (Clears(BeriUangMakan))
            day.beriUangMakan.reset();
    }

    /// The row as it will stand.
    FoundDay Row() const {
        FoundDay row = shown_;
        WriteTo(row.header);
        WriteTo(row.day ? *row.day : row.day.emplace());
        return row;
    }

    /// The departures that lie before their arrivals, as far as one of the two was typed.
    QStringList Reversed() const {
        CardDay day = shown_.day.value_or(CardDay());
        WriteTo(day);
        QStringList reversed;
        for (const auto& [from, to, in, out] :
             {std::tuple{TimeIn, TimeOut, TimeIfSet(day.timeIn), TimeIfSet(day.timeOut)},
              {TimeInOt, TimeOutOt, TimeIfSet(day.timeInOt), TimeIfSet(day.timeOutOt)}}) {
            if (in && out && *out < *in && (IsTyped(from) || IsTyped(to)))
                reversed << u"%1 %2 mendahului %3 %4."_s.arg(SearchColumnName(to), Element(to),
                                                             SearchColumnName(from), Element(from));
        }
        return reversed;
    }

private:
    const QString& Element(SearchRow::Column column) const { return elements_[column - 1]; }
    bool IsTyped(SearchRow::Column column) const { return Element(column) != SearchCellText(shown_, column); }

    /// An element that is left empty is cleared as little as one that is not typed.
    bool Clears(SearchRow::Column column) const {
        return empty_ == EmptyElements::Clear && Element(column).isEmpty();
    }

    Day TypedDay() const {
        const std::optional<Day> day = DayOfRow(elements_);
        if (!day)
            throw ProgramError(
                NoTimeNumber,
                u"Tanggal \"%1\" tidak dapat dibaca. Tulis seperti 22-Nov-2026 atau 22/11/2026.\n"
                "Baris belum disimpan."_s.arg(Element(Tanggal)));
        return *day;
    }

    WallTime TypedTime(SearchRow::Column column, Day day) const {
        const std::optional<WallTime> time = ReadTimeCell(Element(column), day);
        if (!time)
            throw ProgramError(
                NoTimeNumber,
                u"%1: \"%2\" bukan jam. Tulis seperti 07:45, atau dengan tanggal seperti "
                "22-Nov-2026 07:45.\nBaris belum disimpan."_s.arg(SearchColumnName(column), Element(column)));
        return *time;
    }

    const FoundDay& shown_;
    const QStringList& elements_;
    EmptyElements empty_;
};

} // namespace

bool SaveGridRow(Connection& connection, const FoundDay& shown, const QStringList& elements) {
    if (elements.size() <= TooFewElements)
        return false;
    TypedRow(shown, elements).Row(); // what cannot be read is told before another desk's change
    CardStore(connection).Change(shown.header.tcid, [&](TimeCard& card) {
        WriteRow(card, shown, elements, EmptyElements::LeaveStored);
        RequireEmployee(connection, elements[Nip - 1]);
    });
    return true;
}

void RequireEmployee(Connection& connection, const QString& nip) {
    if (ReadListedEmployees(connection, {.nip = nip}, {}).empty())
        throw ProgramError(UnknownEmployeeNumber,
                           u"NIP \"%1\" tidak ada dalam data karyawan.\nBaris belum disimpan."_s.arg(nip));
}

void WriteRow(TimeCard& card, const FoundDay& shown, const QStringList& elements, EmptyElements empty) {
    const TypedRow typed(shown, elements, empty);
    RequireUnchanged(card, shown, typed.Row());
    typed.WriteTo(card.HeaderOf(shown.header.tcid, elements[Nip - 1]));
    CardDay* day = shown.day ? card.DayOn(shown.day->tanggal) : nullptr;
    typed.WriteTo(day ? *day : card.days.emplace_back());
}

QString SearchRowKey(const FoundDay& row) {
    return row.header.tcid + u' ' + (row.day ? StoredDay(row.day->tanggal) : QString());
}

std::vector<CellChange> TakeBackOf(const FoundDay& before, const FoundDay& after) {
    std::vector<CellChange> changes;
    for (int column = SerialNo + 1; column < ColumnCount; ++column) {
        const QString text = SearchCellText(before, column);
        const QString now = SearchCellText(after, column);
        if (IsWrittenColumn(column) && text != now)
            changes.push_back({SearchRowKey(after), column, text, now});
    }
    return changes;
}

QStringList ReversedTimes(const FoundDay& shown, const QStringList& elements) {
    return elements.size() <= TooFewElements ? QStringList() : TypedRow(shown, elements).Reversed();
}

void DeleteRowsDay(Connection& connection, const FoundDay& shown) {
    if (shown.header.tcid.isEmpty() || !shown.day)
        return;
    CardStore(connection)
        .DeleteDays(
            shown.header.tcid, [&](const TimeCard& card) { RequireUnchanged(card, shown, shown); },
            shown.day->tanggal);
}
