#pragma once

class QLineEdit;
class QWidget;

/// Either of the keyboard's two.
bool IsEnter(int key);

/// Shows in upper case what is typed into the field.
void TypeUpperCase(QLineEdit& field);

/// Ends what the controls of a window tell it, when the window goes: the field that has the focus loses it
/// then, and there is nothing left to answer with.
void LeaveControls(QWidget& window);
