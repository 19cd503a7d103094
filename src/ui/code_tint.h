#pragma once

#include "core/cell_look.h"

#include <QColor>
#include <QString>

#include <optional>

/// The quiet tint of a code, made from the code alone: the same everywhere, and light enough for any text of
/// the theme. Invalid for an empty code.
QColor CodeTint(const QString& code);

/// The fill of a cell with a tint of its own, over that of what is to be noticed about it; a quiet cell's is
/// half as strong. Nothing where the look alone counts.
std::optional<QColor> TintedFill(const QColor& tint, CellLook look);
