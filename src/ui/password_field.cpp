#include "ui/password_field.h"

#include "ui/caps_lock.h"

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

void PasswordField::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_CapsLock)
        AskForCapsLock();
    QLineEdit::keyReleaseEvent(event);
}

void PasswordField::focusInEvent(QFocusEvent* event) {
    AskForCapsLock();
    QLineEdit::focusInEvent(event);
}

void PasswordField::showEvent(QShowEvent* event) {
    AskForCapsLock();
    QLineEdit::showEvent(event);
}

/// Where the state of the lock is not told, a letter's case against the Shift key tells it.
void PasswordField::NoteCapsLock(const QKeyEvent& event) {
    if (event.key() == Qt::Key_CapsLock)
        return TellCapsLock(false);
    const QString text = event.text();
    if (text.size() != 1 || text.toUpper() == text.toLower())
        return;
    const bool upper = text == text.toUpper();
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    TellCapsLock(upper != shift);
}

void PasswordField::AskForCapsLock() {
    if (const std::optional<bool> on = CapsLockIsOn())
        TellCapsLock(*on);
}

void PasswordField::TellCapsLock(bool on) {
    if (capsLockLabel_)
        capsLockLabel_->setText(on ? u"Caps Lock menyala."_s : QString());
}
