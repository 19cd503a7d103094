#include "ui/window_place.h"

#include <QSettings>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

QSettings Settings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"timeattendance"_s, u"windows"_s);
}

} // namespace

void RestorePlace(QWidget& window) {
    window.restoreGeometry(Settings().value(window.objectName()).toByteArray());
}

void SavePlace(const QWidget& window) {
    Settings().setValue(window.objectName(), window.saveGeometry());
}
