#pragma once

class QLineEdit;

/// Either of the keyboard's two.
bool IsEnter(int key);

/// Shows in upper case what is typed into the field.
void TypeUpperCase(QLineEdit& field);
