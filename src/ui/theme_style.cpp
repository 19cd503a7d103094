#include "ui/theme_style.h"

#include "ui/icons.h"
#include "ui/theme.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal RingWidth = 2;
constexpr qreal Rounding = 3;
/// Between a button's picture and its text, besides what the style leaves.
constexpr int GapToText = 3;

QString LookOf(const QWidget& widget) {
    return widget.property("look").toString();
}

/// What the style sheet paints in a colour of its own also as the default button.
bool KeepsGround(const QPushButton& button) {
    return LookOf(button) == u"admin"_s || LookOf(button) == u"card"_s;
}

bool HasColouredGround(const QPushButton& button) {
    return (button.isDefault() && !KeepsGround(button)) || LookOf(button) == u"in"_s
           || LookOf(button) == u"out"_s;
}

/// A button that becomes the default one with the focus has the ground of one then.
QIcon ButtonIcon(const QAbstractButton& button, const QString& picture) {
    const auto* push = qobject_cast<const QPushButton*>(&button);
    const bool coloured = push && HasColouredGround(*push);
    const bool colouredInFocus = push && (coloured || (push->autoDefault() && !KeepsGround(*push)));
    const QColor plain = Theme::Tone(push && KeepsGround(*push) ? u"accent" : u"icon");
    return Icon(picture, coloured ? QColor(Qt::white) : plain, colouredInFocus ? QColor(Qt::white) : plain);
}

/// Small pictures stand a little over the text beside them.
int IconSide() {
    return QFontMetrics(QApplication::font()).height() + 2;
}

void DrawRing(QPainter& painter, const QRectF& around, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, RingWidth));
    painter.setBrush(Qt::NoBrush);
    const qreal half = RingWidth / 2;
    painter.drawRoundedRect(around.adjusted(half, half, -half, -half), Rounding, Rounding);
    painter.restore();
}

/// The ring within what has a colour of its own; elsewhere the style sheet's border is the ring.
void DrawFocus(QPainter& painter, const QWidget* widget) {
    constexpr int fromEdge = 3;
    const auto* button = qobject_cast<const QPushButton*>(widget);
    if (button && HasColouredGround(*button))
        DrawRing(painter, button->rect().adjusted(fromEdge, fromEdge, -fromEdge, -fromEdge), Qt::white);
    else if (const auto* tabs = qobject_cast<const QTabBar*>(widget))
        DrawRing(painter, tabs->tabRect(tabs->currentIndex()).adjusted(2, 2, -4, -2),
                 LookOf(*widget).isEmpty() ? Qt::white : Theme::Tone(u"accent"));
}

void DrawTickBox(QPainter& painter, const QStyleOption& option) {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool filled = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const QColor border = Theme::Tone(enabled ? u"outline" : u"disabled-line");
    const QColor fill = Theme::Tone(enabled ? u"accent" : u"disabled-text");
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(filled ? fill : border, 1));
    painter.setBrush(filled ? QBrush(fill) : QBrush(enabled ? QColor(Qt::white) : Theme::Tone(u"disabled")));
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(box, Rounding, Rounding);
    painter.setPen(QPen(Qt::white, RingWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    if (option.state.testFlag(QStyle::State_On))
        painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.3)});
    else if (filled)
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
    painter.restore();
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

void ThemeStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    const auto pictureOf = [](const QObject& object) { return object.property("picture").toString(); };
    if (auto* button = qobject_cast<QAbstractButton*>(widget); button && !pictureOf(*button).isEmpty()) {
        button->setIcon(ButtonIcon(*button, pictureOf(*button)));
        button->setIconSize(QSize(IconSide() + GapToText, IconSide()));
    }
    if (auto* menu = qobject_cast<QMenu*>(widget)) {
        for (QAction* entry : menu->actions()) {
            if (!pictureOf(*entry).isEmpty())
                entry->setIcon(Icon(pictureOf(*entry)));
        }
    }
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element == PE_FrameFocusRect)
        DrawFocus(*painter, widget);
    else if (element == PE_IndicatorCheckBox)
        DrawTickBox(*painter, *option);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
        return IconSide();
    case PM_MessageBoxIconSize:
        return 2 * IconSide();
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    return hint == SH_DialogButtonBox_ButtonsHaveIcons
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, returned);
}

QIcon ThemeStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (picture) {
    case SP_MessageBoxInformation:
        return Icon(u"note"_s, Theme::Tone(u"accent"));
    case SP_MessageBoxQuestion:
        return Icon(u"question"_s, Theme::Tone(u"accent"));
    case SP_MessageBoxWarning:
        return Icon(u"warning"_s, Theme::Tone(u"care"));
    case SP_MessageBoxCritical:
        return Icon(u"warning"_s, Theme::Tone(u"failed"));
    case SP_LineEditClearButton:
        return Icon(u"close"_s);
    default:
        return QProxyStyle::standardIcon(picture, option, widget);
    }
}
