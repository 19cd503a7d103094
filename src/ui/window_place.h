#pragma once

#include <QSize>

class QWidget;

/// A window's size and place, kept between runs in the user's own settings under the window's object name.
/// The first time it gets the given size, or as much of it as the screen has.
void RestorePlace(QWidget& window, QSize firstSize);
void SavePlace(const QWidget& window);
