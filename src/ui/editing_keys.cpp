#include "ui/editing_keys.h"

#include <QKeyEvent>

bool StartsEditing(QChar typed) {
    const char16_t code = typed.unicode();
    return typed.isPrint() && ((code >= 48 && code <= 90) || code >= 96 || code == u'%' || code == u'-');
}

bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr
           || key == Qt::Key_Meta || key == Qt::Key_CapsLock;
}

std::optional<QPoint> StepsAfter(const QKeyEvent& event) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return std::nullopt;
    if (event.key() == Qt::Key_Backtab || (event.key() == Qt::Key_Tab && shift))
        return QPoint(-1, 0);
    if (event.key() == Qt::Key_Tab)
        return QPoint(1, 0);
    if (event.key() == Qt::Key_Up && !shift)
        return QPoint(0, -1);
    if (event.key() == Qt::Key_Down && !shift)
        return QPoint(0, 1);
    return std::nullopt;
}

bool OpensPickList(const QKeyEvent& event) {
    return event.key() == Qt::Key_F9
           || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}
