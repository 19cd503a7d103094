#pragma once

#include "cards/time_card.h"
#include "database/connection.h"
#include "database/database_error.h"

#include <QString>

/// One time card and its day, as a form shows it and gives it back.
struct CardFields {
    Day tanggal{};
    QString status;
    QString keterangan;
    bool mealAllowance = false;
    /// The normal times, and whether they are to be written.
    bool normalGiven = false;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    /// The overtime times, and whether they are to be written.
    bool overtimeGiven = false;
    std::optional<WallTime> overtimeIn;
    std::optional<WallTime> overtimeOut;
    /// As typed; the number at the start of the text counts.
    QString normalAmount;
    QString otAmount;

    bool operator==(const CardFields&) const = default;
};

/// A time card that was read to be corrected. It remembers what was read: another desk's change between
/// reading and saving is never overwritten.
class EditedCard {
public:
    /// Reads the card's header and days. Throws DatabaseError.
    EditedCard(Connection& connection, const QString& tcid, const QString& nip);

    /// What was read. A card without a day row is of the day that its identifier names, `today` if none.
    CardFields Fields(Day today) const;
    /// For showing only: hours in hours-dot-minutes, the meal allowance as an amount; "" where nothing is
    /// stored.
    QString NormalHours() const { return Digits(&CardHeader::normalHours); }
    QString OvertimeHours() const { return Digits(&CardHeader::otHours); }
    QString MealAllowance() const { return Digits(&CardHeader::totalUangMakan); }

    /// Writes header and day row in one transaction, adding what is missing; hours are whole hours between
    /// the given times. Writes nothing and returns false when the card has no identifier or no employee
    /// number. Throws ConflictError when another desk changed any of it since it was read or last saved,
    /// ProgramError for an amount that is too large, DatabaseError otherwise; nothing is written then.
    bool Save(const CardFields& fields);

private:
    QString Digits(std::optional<double> CardHeader::*number) const;
    void Fill(TimeCard& card, const CardFields& fields) const;
    void FillHeader(CardHeader& header, const CardFields& fields) const;
    ConflictError ConflictWith(const TimeCard& stored, const CardFields& fields) const;

    Connection& connection_;
    QString tcid_;
    QString nip_;
    TimeCard read_;
};
