#pragma once

#include "tour/keyboard_user.h"

#include <QCoreApplication>
#include <QHash>

/// Types a text in which these characters stand for keys: ⏎ Enter, ↹ Tab, ⎋ Esc, ← → ↑ ↓ the arrows, ⎀
/// Insert, ⌦ Delete, ⌫ Backspace, ⇱ Home, ⇲ End, ⇞ ⇟ page up and down. The program answers each of them
/// before the next.
inline void Keys(const QString& keys) {
    static const QHash<QChar, Qt::Key> named{
        {u'⏎', Qt::Key_Return}, {u'↹', Qt::Key_Tab},       {u'⎋', Qt::Key_Escape}, {u'←', Qt::Key_Left},
        {u'→', Qt::Key_Right},  {u'↑', Qt::Key_Up},        {u'↓', Qt::Key_Down},   {u'⎀', Qt::Key_Insert},
        {u'⌦', Qt::Key_Delete}, {u'⌫', Qt::Key_Backspace}, {u'⇱', Qt::Key_Home},   {u'⇲', Qt::Key_End},
        {u'⇞', Qt::Key_PageUp}, {u'⇟', Qt::Key_PageDown},
    };
    for (const QChar key : keys) {
        if (const auto found = named.constFind(key); found != named.constEnd())
            KeyboardUser::Press(*found);
        else
            KeyboardUser::Type(key);
        QCoreApplication::processEvents();
    }
}
