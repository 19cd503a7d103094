#pragma once

#include <QLineEdit>

class QLabel;

/// A field for passwords: never shown, never copied, and a label that tells when Caps Lock seems to be on.
class PasswordField : public QLineEdit {
    Q_OBJECT
public:
    explicit PasswordField(QWidget* parent = nullptr);

    /// The label that tells of Caps Lock; its room stays free while there is nothing to tell.
    void SetCapsLockLabel(QLabel* label);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void NoteCapsLock(const QKeyEvent& event);
    void TellCapsLock(bool on);
    /// Where the window system tells; else the label stays as it is.
    void AskForCapsLock();

    QLabel* capsLockLabel_ = nullptr;
};
