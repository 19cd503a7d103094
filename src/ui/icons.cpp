#include "ui/icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

QByteArray Drawing(const QString& name) {
    QFile file(u":/icons/%1.svg"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Draws a square picture anew in every size that is asked for, on the left of the room for it. The drawings
/// leave their colour open.
class IconEngine : public QIconEngine {
public:
    IconEngine(QByteArray drawing, const QColor& colour, const QColor& focused)
        : drawing_(std::move(drawing)), colour_(colour), focused_(focused) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QColor colour = mode == QIcon::Disabled                       ? Theme::Tone(u"disabled-text")
                              : mode == QIcon::Active && focused_.isValid() ? focused_
                                                                            : colour_;
        QSvgRenderer picture(QByteArray(drawing_).replace("currentColor", colour.name().toLatin1()));
        picture.render(painter, QRect(rect.topLeft(), QSize(rect.height(), rect.height())));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new IconEngine(*this); }

private:
    QByteArray drawing_;
    QColor colour_;
    QColor focused_;
};

} // namespace

QIcon Icon(const QString& name, const QColor& colour, const QColor& focused) {
    return QIcon(new IconEngine(Drawing(name), colour, focused));
}

/// The window system takes finished pictures only.
QIcon ProgramIcon() {
    IconEngine drawn(Drawing(u"timeattendance"_s), {}, {});
    QIcon icon;
    for (const int side : {16, 20, 24, 32, 40, 48, 64, 128, 256})
        icon.addPixmap(drawn.pixmap({side, side}, QIcon::Normal, QIcon::Off));
    return icon;
}
