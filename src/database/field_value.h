#pragma once

#include "database/wall_time.h"

#include <QString>
#include <QVariant>

#include <optional>

/// The value of one field of a row, as it is read or written: null, a text, a number, a flag, a day or a
/// moment.
class FieldValue {
public:
    FieldValue() = default; ///< null
    explicit FieldValue(QVariant stored) : stored_(std::move(stored)) {}
    /// A null text is null, an empty one is a text.
    FieldValue(const QString& text) : stored_(text.isNull() ? QVariant() : QVariant(text)) {}
    FieldValue(int number) : stored_(number) {}
    FieldValue(double number) : stored_(number) {}
    FieldValue(bool flag) : stored_(flag ? 1 : 0) {}
    FieldValue(Day day) : stored_(StoredDay(day)) {}
    FieldValue(WallTime time) : stored_(StoredTime(time)) {}

    bool IsNull() const { return stored_.isNull(); }
    /// "" for null; numbers with the digits that were stored.
    QString Text() const { return stored_.toString(); }
    /// 0 for null and for what is no number.
    double Number() const { return stored_.toDouble(); }
    bool Flag() const { return stored_.toInt() != 0; }
    /// Nothing for null and for what is no date.
    std::optional<WallTime> Time() const { return ReadStored(stored_.toString()); }

    const QVariant& Stored() const { return stored_; }

private:
    QVariant stored_;
};
