#include "editing/edited_card.h"

#include "cards/card_conflict.h"
#include "cards/card_store.h"
#include "cards/sheet_identifier.h"
#include "compute/dotted_hours.h"
#include "compute/money.h"

using namespace Qt::StringLiterals;

namespace {

/// An empty text leaves a null as it is.
void SetText(QString& stored, const QString& text) {
    if (!text.isEmpty() || !stored.isNull())
        stored = text;
}

double HoursBetween(const std::optional<WallTime>& from, const std::optional<WallTime>& to) {
    return from && to ? static_cast<double>(WholeHoursBetween(*from, *to)) : 0;
}

void FillDay(CardDay& day, const CardFields& fields) {
    day.tanggal = fields.tanggal;
    if (fields.normalGiven) {
        day.timeIn = fields.timeIn;
        day.timeOut = fields.timeOut;
    }
    if (fields.overtimeGiven) {
        day.timeInOt = fields.overtimeIn;
        day.timeOutOt = fields.overtimeOut;
    }
    day.beriUangMakan = fields.mealAllowance;
}

} // namespace

EditedCard::EditedCard(Connection& connection, const QString& tcid, const QString& nip)
    : connection_(connection), tcid_(tcid), nip_(nip), read_(CardStore(connection).Read(tcid)) {}

CardFields EditedCard::Fields(Day today) const {
    CardFields fields;
    fields.tanggal = DayOfIdentifier(tcid_).value_or(today);
    if (!read_.days.empty()) {
        const CardDay& day = read_.days.front();
        fields.tanggal = day.tanggal;
        fields.timeIn = TimeIfSet(day.timeIn);
        fields.timeOut = TimeIfSet(day.timeOut);
        fields.overtimeIn = TimeIfSet(day.timeInOt);
        fields.overtimeOut = TimeIfSet(day.timeOutOt);
        fields.mealAllowance = day.beriUangMakan.value_or(false);
    }
    fields.normalGiven = fields.timeIn && fields.timeOut;
    fields.overtimeGiven = fields.overtimeIn && fields.overtimeOut;
    if (read_.header) {
        fields.status = read_.header->status;
        fields.keterangan = read_.header->keterangan;
    }
    fields.normalAmount = Digits(&CardHeader::normalAmount);
    fields.otAmount = Digits(&CardHeader::otAmount);
    return fields;
}

QString EditedCard::Digits(std::optional<double> CardHeader::*number) const {
    return read_.header ? DigitsOf(*read_.header.*number) : QString();
}

bool EditedCard::Save(const CardFields& fields) {
    if (tcid_.isEmpty() || nip_.isEmpty())
        return false;
    read_ = CardStore(connection_).Change(tcid_, [&](TimeCard& card) {
        if (card != read_)
            throw ConflictWith(card, fields);
        Fill(card, fields);
    });
    return true;
}

/// Hours are never typed: they are told of only as far as another desk changed them.
ConflictError EditedCard::ConflictWith(const TimeCard& stored, const CardFields& fields) const {
    TimeCard wanted = read_;
    Fill(wanted, fields);
    if (read_.header) {
        wanted.header->normalHours = read_.header->normalHours;
        wanted.header->otHours = read_.header->otHours;
    }
    return CardConflict(tcid_, nip_, read_, stored, wanted);
}

void EditedCard::Fill(TimeCard& card, const CardFields& fields) const {
    FillHeader(card.HeaderOf(tcid_, nip_), fields);
    FillDay(card.FirstDay(fields.tanggal), fields);
}

void EditedCard::FillHeader(CardHeader& header, const CardFields& fields) const {
    header.nip = nip_;
    if (fields.normalGiven)
        header.normalHours = HoursBetween(fields.timeIn, fields.timeOut);
    if (fields.overtimeGiven)
        header.otHours = HoursBetween(fields.overtimeIn, fields.overtimeOut);
    // An amount that nobody touched stays what it is, even where its digits do not tell all of it.
    for (const auto& [text, member] : {std::pair{&fields.normalAmount, &CardHeader::normalAmount},
                                       {&fields.otAmount, &CardHeader::otAmount}}) {
        if (!(header.*member) || *text != DigitsOf(header.*member))
            header.*member = Money::FromText(*text).Field().Number();
    }
    SetText(header.status, fields.status);
    SetText(header.keterangan, fields.keterangan);
}
