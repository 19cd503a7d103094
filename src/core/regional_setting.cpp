#include "core/regional_setting.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <QLocale>
#include <QStringList>
#endif

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN
QString b_WinControlPanel::UserCountry() {
    const LCID locale = GetUserDefaultLCID();
    const int length = GetLocaleInfoA(locale, LOCALE_SENGCOUNTRY, nullptr, 0);
    QByteArray name(length, '\0');
    GetLocaleInfoA(locale, LOCALE_SENGCOUNTRY, name.data(), length);
    return QString::fromLocal8Bit(name.constData(), length);
}
#else
namespace {

/// The English name of the country in a locale's name ("en_US.UTF-8"); "" when it names none.
QString CountryOf(const QString& locale) {
    const QString name = locale.section(u'.', 0, 0).section(u'@', 0, 0);
    if (!name.contains(u'_'))
        return {};
    return QLocale::territoryToString(QLocale::codeToTerritory(name.section(u'_', -1)));
}

/// The locales that numbers and times are written by. LANGUAGE and LC_MESSAGES choose words only.
QStringList DecidingLocales() {
    for (const auto& names : {QStringList{u"LC_ALL"_s}, QStringList{u"LC_NUMERIC"_s, u"LC_TIME"_s}}) {
        QStringList locales;
        for (const QString& name : names)
            locales << qEnvironmentVariable(name.toLatin1());
        locales.removeAll(QString());
        if (!locales.isEmpty())
            return locales;
    }
    return {qEnvironmentVariable("LANG")};
}

} // namespace

QString b_WinControlPanel::UserCountry() {
    QString country;
    for (const QString& locale : DecidingLocales()) {
        country = CountryOf(locale);
        if (!IsRegionalSettingUS(country))
            break;
    }
    return country;
}
#endif

bool b_WinControlPanel::IsRegionalSettingUS(const QString& country) {
    return country.section(QChar(u'\0'), 0, 0).toUpper() == u"UNITED STATES"_s;
}
