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
    if (window.restoreGeometry(Settings().value(window.objectName()).toByteArray()))
        return;
    // In the middle of the screen: over a smaller window's middle its title might not be reached.
    const QRect room = window.screen()->availableGeometry();
    window.resize(firstSize.boundedTo(room.size() - FrameRoom));
    window.move(room.center() - QRect(QPoint(), window.size() + FrameRoom).center());
}

void SavePlace(const QWidget& window) {
    Settings().setValue(window.objectName(), window.saveGeometry());
}
