#include "ui/password_field.h"

#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

PasswordField::PasswordField(QWidget* parent) : QLineEdit(parent) {
    setEchoMode(Password);
    setContextMenuPolicy(Qt::NoContextMenu);
    setInputMethodHints(Qt::ImhHiddenText | Qt::ImhNoPredictiveText | Qt::ImhSensitiveData);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void PasswordField::SetCapsLockLabel(QLabel* label) {
    capsLockLabel_ = label;
}

void PasswordField::keyPressEvent(QKeyEvent* event) {
    NoteCapsLock(*event);
    QLineEdit::keyPressEvent(event);
}

/// Qt does not tell the state of the lock, but a letter's case against the Shift key does.
void PasswordField::NoteCapsLock(const QKeyEvent& event) {
    if (!capsLockLabel_)
        return;
    if (event.key() == Qt::Key_CapsLock) {
        capsLockLabel_->clear();
        return;
    }
    const QString text = event.text();
    if (text.size() != 1 || text.toUpper() == text.toLower())
        return;
    const bool upper = text == text.toUpper();
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    capsLockLabel_->setText(upper != shift ? u"Caps Lock menyala."_s : QString());
}
