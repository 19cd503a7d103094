#include "ui/day_tabs.h"

#include "ui/typing.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

DayTabs::DayTabs(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setUsesScrollButtons(true);
    connect(this, &QTabBar::currentChanged, this, [this](int index) { Q_EMIT DayChosen(index + 1); });
}

void DayTabs::ShowMonthOf(Day today) {
    const QSignalBlocker quiet(this);
    while (count() > 0)
        removeTab(0);
    const QDate date = ToQDate(today);
    for (int day = 1; day <= date.daysInMonth(); ++day) {
        addTab(QString::number(day));
        setTabToolTip(day - 1, ShownDay(FromQDate(QDate(date.year(), date.month(), day))));
    }
    setTabText(date.day() - 1, u"•%1"_s.arg(date.day()));
    setTabToolTip(date.day() - 1, u"Hari ini, %1"_s.arg(ShownDay(today)));
}

void DayTabs::ShowDay(int day) {
    const QSignalBlocker quiet(this);
    const bool exists = day >= 1 && day <= count();
    if (exists)
        setCurrentIndex(day - 1);
    ShowMarked(exists);
}

/// A tab bar always has a current tab: when that is not the day shown, it must not look so.
void DayTabs::ShowMarked(bool marked) {
    const QString look = marked ? QString() : u"unmarked"_s;
    if (property("look").toString() == look)
        return;
    setProperty("look", look);
    style()->unpolish(this);
    style()->polish(this);
    update();
}

void DayTabs::mousePressEvent(QMouseEvent* event) {
    const int before = currentIndex();
    QTabBar::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && before >= 0 && tabAt(event->position().toPoint()) == before)
        Q_EMIT DayChosen(before + 1);
}

void DayTabs::keyPressEvent(QKeyEvent* event) {
    const bool choose = IsEnter(event->key()) || event->key() == Qt::Key_Space;
    if (choose && currentIndex() >= 0)
        Q_EMIT DayChosen(currentIndex() + 1);
    else
        QTabBar::keyPressEvent(event);
}

/// Another day is never chosen in passing.
void DayTabs::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
