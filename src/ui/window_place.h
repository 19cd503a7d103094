#pragma once

class QWidget;

/// A window's size and place, kept between runs in the user's own settings under the window's object name.
void RestorePlace(QWidget& window);
void SavePlace(const QWidget& window);
