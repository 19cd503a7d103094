#include "editing/edited_card.h"

#include "compute/dotted_hours.h"
#include "compute/money.h"
#include "core/query_values.h"
#include "database/statement.h"
#include "timecard/sheet_identifier.h"

using namespace Qt::StringLiterals;

namespace {

/// A time that was never set is no time.
/// An empty text leaves a null as it is.
void SetText(Recordset& row, const QString& field, const QString& text) {
    if (!text.isEmpty() || !row.Field(field).IsNull())
        row.Set(field, text);
}

FieldValue OrNull(const std::optional<WallTime>& time) {
    return time ? FieldValue(*time) : FieldValue();
}

int HoursBetween(const std::optional<WallTime>& from, const std::optional<WallTime>& to) {
    return from && to ? static_cast<int>(WholeHoursBetween(*from, *to)) : 0;
}

} // namespace

EditedCard::EditedCard(Connection& connection, const QString& tcid, const QString& nip)
    : connection_(connection), tcid_(tcid), nip_(nip),
      header_(std::in_place, connection, u"select * from TimeCardHeader where tcid="_s + Quoted(tcid)),
      day_(b_stored_procedure::OpenTimeCardDetail(connection, tcid)) {}

CardFields EditedCard::Fields(Day today) const {
    CardFields fields;
    fields.tanggal = DayOfIdentifier(tcid_).value_or(today);
    if (!day_->AtEnd()) {
        if (const auto tanggal = day_->Field(u"Tanggal"_s).Time())
            fields.tanggal = DayOf(*tanggal);
        fields.timeIn = TimeIfSet(day_->Field(u"TimeIN"_s).Time());
        fields.timeOut = TimeIfSet(day_->Field(u"TimeOUT"_s).Time());
        fields.overtimeIn = TimeIfSet(day_->Field(u"TimeINOT"_s).Time());
        fields.overtimeOut = TimeIfSet(day_->Field(u"TimeOutOT"_s).Time());
        fields.mealAllowance = day_->Field(u"BeriUangMakan"_s).Flag();
    }
    fields.normalGiven = fields.timeIn && fields.timeOut;
    fields.overtimeGiven = fields.overtimeIn && fields.overtimeOut;
    fields.status = HeaderText(u"Status");
    fields.keterangan = HeaderText(u"Keterangan");
    fields.normalAmount = AmountText(u"NormalAmount");
    fields.otAmount = AmountText(u"OTAmount");
    return fields;
}

QString EditedCard::HeaderText(QStringView field) const {
    return header_->AtEnd() ? QString() : header_->Field(field.toString()).Text();
}

/// In digits only: the text is read again when it is saved.
QString EditedCard::AmountText(QStringView field) const {
    const QString text = HeaderText(field);
    return text.isEmpty() ? text : Money::FromField(header_->Field(field.toString())).Text();
}

bool EditedCard::Save(const CardFields& fields) {
    if (tcid_.isEmpty() || nip_.isEmpty())
        return false;
    // Copies, so that a save that fails can be tried again from what was read.
    Recordset header = *header_;
    Recordset day = *day_;
    Transaction transaction(connection_);
    FillHeader(header, fields);
    FillDay(day, fields);
    transaction.Commit();
    header_.emplace(std::move(header));
    day_.emplace(std::move(day));
    return true;
}

void EditedCard::FillHeader(Recordset& header, const CardFields& fields) const {
    if (header.AtEnd())
        header.AddNew();
    header.Set(u"TCID"_s, tcid_);
    header.Set(u"NIP"_s, nip_);
    if (fields.normalGiven)
        header.Set(u"NormalHours"_s, HoursBetween(fields.timeIn, fields.timeOut));
    if (fields.overtimeGiven)
        header.Set(u"OTHours"_s, HoursBetween(fields.overtimeIn, fields.overtimeOut));
    header.Set(u"NormalAmount"_s, Money::FromText(fields.normalAmount).Field());
    header.Set(u"OTAmount"_s, Money::FromText(fields.otAmount).Field());
    SetText(header, u"Status"_s, fields.status);
    SetText(header, u"Keterangan"_s, fields.keterangan);
    header.Update();
}

void EditedCard::FillDay(Recordset& day, const CardFields& fields) const {
    if (day.AtEnd())
        day.AddNew();
    day.Set(u"TCID"_s, tcid_);
    day.Set(u"Tanggal"_s, fields.tanggal);
    if (fields.normalGiven) {
        day.Set(u"TimeIN"_s, OrNull(fields.timeIn));
        day.Set(u"TimeOUT"_s, OrNull(fields.timeOut));
    }
    if (fields.overtimeGiven) {
        day.Set(u"TimeINOT"_s, OrNull(fields.overtimeIn));
        day.Set(u"TimeOutOT"_s, OrNull(fields.overtimeOut));
    }
    day.Set(u"BeriUangMakan"_s, fields.mealAllowance);
    day.Update();
}
