#include "ui/typing.h"

#include <QLineEdit>

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

void TypeUpperCase(QLineEdit& field) {
    QObject::connect(&field, &QLineEdit::textEdited, &field, [&field](const QString& text) {
        const int cursor = field.cursorPosition();
        field.setText(text.toUpper());
        field.setCursorPosition(cursor);
    });
}

void LeaveControls(QWidget& window) {
    for (QObject* control : window.findChildren<QObject*>())
        control->disconnect(&window);
}
