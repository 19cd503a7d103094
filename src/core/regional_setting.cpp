#include "core/regional_setting.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <QLocale>
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
QString b_WinControlPanel::UserCountry() {
    return QLocale::territoryToString(QLocale::system().territory());
}
#endif

bool b_WinControlPanel::IsRegionalSettingUS(const QString& country) {
    return country.section(QChar(u'\0'), 0, 0).toUpper() == u"UNITED STATES"_s;
}
