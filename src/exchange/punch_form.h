#pragma once

#include "database/wall_time.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Which way somebody went past a clock device, where it says so.
enum class PunchDirection { None, In, Out };

/// What a line of a device's file says.
struct PunchReading {
    QString number; ///< as the device knows the person
    WallTime moment{};
    PunchDirection direction = PunchDirection::None;

    bool operator==(const PunchReading&) const = default;
};

/// How the lines of a device's file are written: one punch a line, its fields parted by a separator or at
/// fixed places. People see and type a form as a text: the names of the fields in their order, parted as the
/// fields are ("nip,date,time,direction"), or each with its first and last character ("nip=1-8 date=9-16
/// time=17-20"). "tab" and "space" stand between names for what cannot be seen ("nip tab moment"), "-" for a
/// field that says nothing here. Dates are year or day first, in "usdate" and "usmoment" the month.
class PunchForm {
public:
    /// Nothing for a text that is no form, or lacks the number, the date or the time.
    static std::optional<PunchForm> FromText(const QString& text);
    /// The form that most of a file's first lines have; nothing when none fits. A column that says nothing of
    /// directions in words is none.
    static std::optional<PunchForm> Recognised(const QStringList& firstLines);

    QString Text() const;
    /// Nothing for a line that does not have the form.
    std::optional<PunchReading> Read(QStringView line) const;

private:
    enum class Field { Skipped, Number, Date, UsDate, Time, Moment, UsMoment, Direction };
    struct Place {
        Field field = Field::Skipped;
        qsizetype first = 0; ///< of a fixed place, its characters counted from 0
        qsizetype length = 0;
    };
    using FieldName = std::pair<QStringView, Field>;

    static const std::vector<FieldName>& FieldNames();
    static std::optional<Field> FieldOf(QStringView name);
    static std::optional<PunchForm> FixedFromText(const QStringList& names);
    static std::optional<PunchForm> RecognisedFixed(const QStringList& lines);
    static std::optional<PunchForm> RecognisedParted(const QStringList& lines, QChar separator);
    /// What stands in a column of all these texts; Skipped when it is nothing that is known.
    static Field KindOf(const QStringList& column);

    bool Has(Field field) const;
    bool IsWhole() const;
    /// How many of the lines have the form.
    qsizetype CountReadable(const QStringList& lines) const;
    std::vector<QStringView> PartsOf(QStringView line) const;

    QChar separator_; ///< null: fixed places
    std::vector<Place> places_;
};
