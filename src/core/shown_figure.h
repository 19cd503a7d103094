#pragma once

#include <QString>

/// What the texts of a column are, where they are not painted as they stand. Only painted: what is typed,
/// copied, printed and stored is the text itself.
enum class Figure {
    Plain,
    Hours,  ///< two digits after the point: 8.20
    Amount, ///< thousands set off: 175,000
    Flag,   ///< "True" a tick, "False" a dash
};

/// The text as it is painted; a text that is no such figure stays as it is.
QString ShownFigure(Figure figure, const QString& text);
