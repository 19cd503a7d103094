#include "company/amount_text.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

std::optional<double> ReadAmount(const QString& text) {
    static const QRegularExpression form(
        u"^(?:(\\d{1,3}(?:\\.\\d{3})+)(?:,(\\d+))?|(\\d{1,3}(?:,\\d{3})+)(?:\\.(\\d+))?|(\\d+)(?:[.,](\\d+))?)$"_s);
    const auto match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const QString whole = match.captured(1) + match.captured(3) + match.captured(5);
    const QString part = match.captured(2) + match.captured(4) + match.captured(6);
    return (QString(whole).remove(u'.').remove(u',') + u'.' + part + u'0').toDouble();
}

QString ShownAmount(const std::optional<double>& amount) {
    return amount ? QLocale(QLocale::English, QLocale::UnitedStates)
                        .toString(*amount, 'f', QLocale::FloatingPointShortest)
                  : QString();
}
