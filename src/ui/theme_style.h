#pragma once

#include <QProxyStyle>

/// What no style sheet can say: the program's own pictures in place of the toolkit's, the rings of the focus
/// on coloured ground, and the boxes that are ticked.
class ThemeStyle : public QProxyStyle {
    Q_OBJECT
public:
    ThemeStyle();

    using QProxyStyle::polish;
    /// Gives buttons and menu entries the picture that their property "picture" names.
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
};
