#include "ui/card_button.h"

#include "ui/icons.h"
#include "ui/theme.h"

#include <QStyleOptionButton>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int Margin = 12;
/// Of one of the two lines of words, in characters.
constexpr int LineLength = 38;

} // namespace

CardButton::CardButton(const QString& picture, const QString& caption, const QString& line, QWidget* parent)
    : QPushButton(caption, parent) {
    setProperty("look", u"card"_s);
    setAccessibleDescription(line);
    setIcon(Icon(picture, Theme::Tone(u"accent")));
    setAutoDefault(false);
    ensurePolished();
}

QFont CardButton::TitleFont() const {
    QFont title = font();
    title.setWeight(QFont::DemiBold);
    return title;
}

QSize CardButton::sizeHint() const {
    const int lines =
        QFontMetrics(TitleFont()).height() + Theme::FieldGap + 2 * fontMetrics().lineSpacing() + 2;
    return {3 * Margin + lines / 2 + LineLength * fontMetrics().averageCharWidth(), 2 * Margin + lines};
}

void CardButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    QRect room = rect().adjusted(Margin, Margin, -Margin, -Margin);
    const int side = room.height() / 2;
    icon().paint(&painter, QRect(room.left(), room.center().y() - side / 2, side, side), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    room.setLeft(room.left() + side + Margin);
    const QString tone = isEnabled() ? u"text"_s : u"disabled-text"_s;
    painter.setPen(Theme::Tone(tone));
    painter.setFont(TitleFont());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, text());
    painter.setPen(Theme::Tone(isEnabled() ? u"quiet"_s : tone));
    painter.setFont(font());
    room.setTop(room.top() + QFontMetrics(TitleFont()).height() + Theme::FieldGap);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, accessibleDescription());
}
