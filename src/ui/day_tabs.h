#pragma once

#include "database/wall_time.h"

#include <QTabBar>

/// One tab for each day of a month, today's marked. A day is chosen by mouse or keys; choosing the day that
/// is shown already counts as well.
class DayTabs : public QTabBar {
    Q_OBJECT
public:
    explicit DayTabs(QWidget* parent = nullptr);

    /// Makes the tabs of today's month.
    void ShowMonthOf(Day today);

    /// Marks a day of the month as the one that is shown; a number that the month lacks marks none.
    void ShowDay(int day);

Q_SIGNALS:
    void DayChosen(int day);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void ShowMarked(bool marked);
};
