#pragma once

#include <QSize>

class QWidget;

/// A window's size and place, kept between runs in the user's own settings under the window's object name.
/// The first time it takes most of the screen, in its middle; at least the given size, where the screen has
/// it. With it go the columns of its grids.
void RestorePlace(QWidget& window, QSize leastSize);
void SavePlace(const QWidget& window);

/// The same of the columns alone, for windows whose size is fixed.
void RestoreColumns(const QWidget& window);
void SaveColumns(const QWidget& window);
