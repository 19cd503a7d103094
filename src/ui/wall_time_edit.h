#pragma once

#include "database/wall_time.h"

#include <QDateTimeEdit>

/// A box for a moment, typed section by section: day, month, year, hour, minute. What it holds is a reading
/// of the wall clock: no hour of it is skipped or doubled by daylight saving. Seconds are not shown: those
/// that were set are kept as long as hour and minute stay, a typed hour or minute has none.
class WallTimeEdit : public QDateTimeEdit {
    Q_OBJECT
public:
    explicit WallTimeEdit(QWidget* parent = nullptr);

    void SetValue(WallTime time);
    /// Shows a time where there is none: a start for typing one.
    void Suggest(WallTime time);
    /// True until a time is set or another one typed.
    bool HoldsSuggestion() const;
    WallTime Value() const;

private:
    WallTime set_ = EmptyTime;
    bool suggested_ = false;
};
