#pragma once

#include "database/connection.h"

#include <QString>

#include <optional>

/// The card of the evening before that a night worker's departure belongs to.
struct OpenNight {
    QString sheet;
    Day day{};
    WallTime arrival{};

    /// "Keluar untuk lembar 18-Nov, masuk 22:50"
    QString Text() const;
    bool operator==(const OpenNight&) const = default;
};

/// Where a departure goes when its employee has no card on the shown sheet, whose day is `shownDay`: to the
/// card of the day before that holds an arrival and no departure, if its shift ends after midnight and the
/// arrival lies no further back than anyone works. Throws DatabaseError.
std::optional<OpenNight> FindOpenNight(Connection& connection, const QString& nip, Day shownDay,
                                       WallTime departure);
