#pragma once

#include <QPoint>

#include <optional>

class QChar;
class QKeyEvent;

/// Whether a character typed in the grid opens the editor: digits, letters, what stands between them in the
/// character set, "%" and "-". Others are the grid's own keys.
bool StartsEditing(QChar typed);

bool IsModifier(int key);

/// Where the keys lead that enter a text and go on, as columns and rows.
std::optional<QPoint> StepsAfter(const QKeyEvent& event);

bool OpensPickList(const QKeyEvent& event);
