#include "ui/window_place.h"

#include "ui/data_grid.h"

#include <QScreen>
#include <QSettings>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// What the window manager's frame may take.
constexpr QSize FrameRoom(4, 28);

constexpr char Organization[] = "timeattendance";

/// A file for the places of the windows, another for the columns of their grids.
QSettings Settings(const QString& file) {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QString::fromLatin1(Organization), file);
}

/// Calls the function for each grid of the window that is typed into, in its own group of the settings.
template<class Function>
void EachGrid(const QWidget& window, Function function) {
    QSettings settings = Settings(u"columns"_s);
    for (DataGrid* grid : window.findChildren<DataGrid*>()) {
        if (!grid->EditsCells())
            continue;
        settings.beginGroup(window.objectName() + u'.' + grid->objectName());
        function(*grid, settings);
        settings.endGroup();
    }
}

} // namespace

void RestoreColumns(const QWidget& window) {
    EachGrid(window, [](DataGrid& grid, QSettings& settings) { grid.RestoreColumns(settings); });
}

void SaveColumns(const QWidget& window) {
    EachGrid(window, [](const DataGrid& grid, QSettings& settings) { grid.SaveColumns(settings); });
}

void RestorePlace(QWidget& window, QSize leastSize) {
    RestoreColumns(window);
    if (window.restoreGeometry(Settings(u"windows"_s).value(window.objectName()).toByteArray()))
        return;
    // In the middle of the screen: over a smaller window's middle its title might not be reached.
    const QRect room = window.screen()->availableGeometry();
    const QSize share = room.size() * 9 / 10;
    window.resize(share.expandedTo(leastSize).boundedTo(room.size() - FrameRoom));
    window.move(room.center() - QRect(QPoint(), window.size() + FrameRoom).center());
}

void SavePlace(const QWidget& window) {
    SaveColumns(window);
    Settings(u"windows"_s).setValue(window.objectName(), window.saveGeometry());
}
