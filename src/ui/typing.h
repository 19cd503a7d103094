#pragma once

class QLineEdit;
class QWidget;

/// Either of the keyboard's two.
bool IsEnter(int key);

/// Shows in upper case what is typed into the field.
void TypeUpperCase(QLineEdit& field);

/// Reads what is half typed in the window's date and time boxes, as leaving them would: a mnemonic leaves the
/// focus where it is.
void ReadTypedBoxes(const QWidget& window);
