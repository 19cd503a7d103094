#pragma once

#include "ui/theme.h"

#include <QIcon>
#include <QString>

/// One of the program's small pictures, by the name of its file in assets/icons, in one colour, or another on
/// what has the focus, and as sharp as the screen can show it. Buttons and menu entries name theirs in the
/// property "picture".
QIcon Icon(const QString& name, const QColor& colour = Theme::Tone(u"icon"), const QColor& focused = {});

/// What stands for the program in title bars and task lists.
QIcon ProgramIcon();
