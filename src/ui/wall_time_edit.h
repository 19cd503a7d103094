#pragma once

#include "database/wall_time.h"

#include <QDateTimeEdit>

/// A box for a moment, typed section by section: day, month, year, hour, minute. What it holds is a reading
/// of the wall clock: no hour of it is skipped or doubled by daylight saving. Seconds are kept as they were
/// set.
class WallTimeEdit : public QDateTimeEdit {
    Q_OBJECT
public:
    explicit WallTimeEdit(QWidget* parent = nullptr);

    void SetValue(WallTime time);
    WallTime Value() const;
};
