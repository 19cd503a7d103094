#include "core/shown_figure.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString WithThousands(QString digits) {
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, u',');
    return digits;
}

} // namespace

QString ShownFigure(Figure figure, const QString& text) {
    if (figure == Figure::Flag)
        return text == u"True"_s ? u"✓"_s : text == u"False"_s ? u"–"_s : text;
    static const QRegularExpression number(u"^(-?)(\\d+)(?:\\.(\\d+))?$"_s);
    const auto match = number.match(text);
    if (figure == Figure::Plain || !match.hasMatch())
        return text;
    const QString whole = match.captured(2);
    const QString fraction = match.captured(3);
    if (figure == Figure::Hours)
        return match.captured(1) + whole + u'.' + fraction.leftJustified(2, u'0');
    return match.captured(1) + WithThousands(whole) + (fraction.isEmpty() ? fraction : u'.' + fraction);
}
