#pragma once

#include "database/wall_time.h"

#include <QString>

#include <optional>
#include <vector>

/// What messages call a time card.
inline constexpr QStringView CardThing = u"kartu absen";

/// What a time card says as a whole. A null text and an absent number were never stored. Hours are in
/// hours-dot-minutes notation, amounts in the currency.
struct CardHeader {
    QString tcid;
    QString nip;
    QString status;
    QString keterangan;
    std::optional<double> normalHours = {};
    std::optional<double> otHours = {};
    std::optional<double> normalAmount = {};
    std::optional<double> otAmount = {};
    std::optional<double> totalUangMakan = {};

    /// Adds to what is remarked, unless it is remarked already.
    void AddRemark(const QString& remark);

    bool operator==(const CardHeader&) const = default;
};

/// What a time card says of one day. A time may be absent or, as well, the empty time (TimeIfSet).
struct CardDay {
    Day tanggal{};
    std::optional<WallTime> timeIn = {};
    std::optional<WallTime> timeOut = {};
    std::optional<WallTime> timeInOt = {};
    std::optional<WallTime> timeOutOt = {};
    QString shiftCode = {};
    std::optional<bool> beriUangMakan = {};

    bool operator==(const CardDay&) const = default;
};

/// A time card: its header and its days, in the order of the days. Either may be missing in the database.
struct TimeCard {
    std::optional<CardHeader> header;
    std::vector<CardDay> days;

    bool operator==(const TimeCard&) const = default;

    /// The day of that date; null when the card has none.
    const CardDay* DayOn(Day date) const;
    CardDay* DayOn(Day date);
    /// The header, made for the card and its employee when there is none.
    CardHeader& HeaderOf(const QString& tcid, const QString& nip);
    /// The card's first day, made when there is none.
    CardDay& FirstDay(Day ifNone);
};

/// Hands each column of a row to the visitor: its name in the database and its member. What reads, compares
/// and writes cards goes through here, so the columns are named once.
template<class Visitor>
void EachHeaderColumn(Visitor visit) {
    visit(u"TCID", &CardHeader::tcid);
    visit(u"NIP", &CardHeader::nip);
    visit(u"Status", &CardHeader::status);
    visit(u"Keterangan", &CardHeader::keterangan);
    visit(u"NormalHours", &CardHeader::normalHours);
    visit(u"OTHours", &CardHeader::otHours);
    visit(u"NormalAmount", &CardHeader::normalAmount);
    visit(u"OTAmount", &CardHeader::otAmount);
    visit(u"TotalUangMakan", &CardHeader::totalUangMakan);
}

template<class Visitor>
void EachDayColumn(Visitor visit) {
    visit(u"Tanggal", &CardDay::tanggal);
    visit(u"TimeIN", &CardDay::timeIn);
    visit(u"TimeOUT", &CardDay::timeOut);
    visit(u"TimeINOT", &CardDay::timeInOt);
    visit(u"TimeOutOT", &CardDay::timeOutOt);
    visit(u"ShiftCode", &CardDay::shiftCode);
    visit(u"BeriUangMakan", &CardDay::beriUangMakan);
}
