#pragma once

#include "database/connection.h"

#include <QHash>
#include <QString>

#include <functional>
#include <optional>

struct DayRange {
    Day first{};
    Day last{};

    /// 0 when the range ends before it begins.
    qint64 Days() const { return qMax<qint64>(0, (last - first).count() + 1); }
    bool operator==(const DayRange&) const = default;
};

/// Whose cards are asked for, and of which days. What is absent does not filter.
struct CardFilter {
    std::optional<DayRange> days = {};
    std::optional<QString> nip = {};
    std::optional<QString> dept = {};   ///< code of the employee's department
    std::optional<QString> divisi = {}; ///< code of the employee's division
};

/// What lists and reports show of one day of a card. Times that were never set are absent.
struct CardLine {
    QString tcid; ///< only when it was asked for
    QString nip;
    Day day{};
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    QString status;
    QString keterangan;
};

enum class WithIdentifier { No, Yes };

/// Hands out the lines one by one, ordered by day and, within a day, by card, in one statement. The same line
/// is filled anew each time. Returns false when the visitor stopped it by answering false. Throws
/// DatabaseError.
bool EachCardLine(Connection& connection, const CardFilter& filter, WithIdentifier with,
                  const std::function<bool(const CardLine&)>& visit);

struct StatusCount {
    QString nip;
    QString status;
    qint64 lines;
};
/// How many lines each employee has of each status; cards without a status are left out. Throws
/// DatabaseError.
std::vector<StatusCount> CountStatuses(Connection& connection, const CardFilter& filter);
