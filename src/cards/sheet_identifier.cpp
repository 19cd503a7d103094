#include "cards/sheet_identifier.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString SheetIdentifierOf(Day day) {
    return u'T' + StoredDay(day).remove(u'-');
}

QString MonthPartOf(Day day) {
    return SheetIdentifierOf(day).first(7);
}

QString TwoDigitDay(const QString& day) {
    bool isNumber = false;
    const int number = day.trimmed().toInt(&isNumber);
    return isNumber ? QString::number(number).rightJustified(2, u'0') : day;
}

QString ComposeSheetIdentifier(const QString& monthPart, const QString& day, const QString& extension) {
    const QString sheet = monthPart + TwoDigitDay(day);
    const QString trimmed = extension.trimmed();
    return trimmed.isEmpty() ? sheet : sheet + u'-' + trimmed;
}

QString TrailingDay(const QString& sheet) {
    return TwoDigitDay(sheet.last(qMin(qsizetype{2}, sheet.size())));
}

QString DayPartOf(const QString& sheet) {
    return sheet.contains(u'-') ? TwoDigitDay(sheet.mid(7, 2)) : TrailingDay(sheet);
}

bool IsSheetIdentifier(const QString& text) {
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(u"T[0-9]{4}(0[1-9]|1[0-2])(0[1-9]|[12][0-9]|3[01])(-\\S+)?"_s));
    return form.match(text).hasMatch();
}

std::optional<Day> DayOfIdentifier(const QString& identifier) {
    if (!identifier.startsWith(u'T') || identifier.size() < 9)
        return std::nullopt;
    return MakeDay(identifier.mid(1, 4).toInt(), identifier.mid(5, 2).toInt(), identifier.mid(7, 2).toInt());
}

std::pair<QString, QString> CardRange(const QString& sheet) {
    const QString first = sheet.toUpper();
    return {first, first + QString::fromUcs4(U"\U0010FFFF")};
}

QString CardIdentifier(const QString& sheet, const QString& nip) {
    return (sheet + nip).toUpper();
}
