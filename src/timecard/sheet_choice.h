#pragma once

#include "database/wall_time.h"

#include <QString>

#include <optional>

/// Which sheet is chosen, and what may be changed about it. The month of a sheet that is composed is always
/// today's; only its day and its extension can be chosen.
class SheetChoice {
public:
    const QString& Sheet() const { return sheet_; }
    /// The day as its field shows it, in two digits.
    const QString& DayText() const { return dayText_; }

    /// Takes an identifier as it stands. One with an extension leaves the day's text as it is.
    void SetSheet(Day today, const QString& sheet);
    /// Takes the day and the extension as they were typed; without a day the sheet stays, its day is shown
    /// again.
    void Compose(Day today, const QString& day, const QString& extension);

    /// Whether the fields may be typed into.
    bool IsUnlocked() const { return unlocked_; }
    void SetUnlocked(bool unlocked) { unlocked_ = unlocked; }
    /// Only a supervisor may switch a locked sheet to another day; back to today everybody may.
    bool NeedsSupervisor(Day today, const QString& day) const;

    /// Whether the sheet is one of this day of today's month.
    bool IsOfDay(Day today, const QString& day) const;
    bool IsOfToday(Day today) const;
    /// Whether the day has changed over a sheet that was simply the present day's: nobody has chosen it for
    /// another day.
    bool IsLeftOver(Day today) const;
    /// The day of today's month whose tab is marked; 0 for a sheet of another month.
    int MarkedDay(Day today) const;

    /// The typed day some days on; nothing beyond 1 and 31, the bounds in every month.
    static std::optional<QString> Step(const QString& day, int days);

private:
    QString sheet_;
    QString dayText_;
    bool unlocked_ = false;
    bool wasOfItsDay_ = false;
};
