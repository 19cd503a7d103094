#include "ui/window_place.h"

#include <QScreen>
#include <QSettings>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// What the window manager's frame may take.
constexpr QSize FrameRoom(4, 28);

QSettings Settings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"timeattendance"_s, u"windows"_s);
}

} // namespace

void RestorePlace(QWidget& window, QSize firstSize) {
    if (!window.restoreGeometry(Settings().value(window.objectName()).toByteArray()))
        window.resize(firstSize.boundedTo(window.screen()->availableSize() - FrameRoom));
}

void SavePlace(const QWidget& window) {
    Settings().setValue(window.objectName(), window.saveGeometry());
}
