#pragma once

#include "core/cell_look.h"

#include <QColor>
#include <QString>

#include <optional>

class QApplication;
class QFontMetrics;
class QWidget;

/// The one look of all windows: colours, fonts and spacing stand here and nowhere else. Widgets say what they
/// are by the dynamic property "look" ("heading", "quiet", "band"; theme.qss has them all), legend labels by
/// the properties "chip" and "cell".
namespace Theme {

/// Sets style, palette, font and style sheet. Sizes follow the system's font.
void Apply(QApplication& application);

struct Colours {
    QColor fill;
    QColor text;
};

/// How a cell with something to be noticed is painted; an invalid colour is the usual one. Nothing for a
/// plain cell.
std::optional<Colours> LookColours(CellLook look);

/// The width of a field in which the sample can be read in full, with the font that the field has.
int FieldWidth(const QWidget& field, const QString& sample);

/// A colour of the program by its name; theme.cpp has them all.
QColor Tone(QStringView name);
inline QColor QuietText() {
    return Tone(u"quiet");
}

/// Gives a widget the colour of what it tells, by its property "tone".
void SetTone(QWidget& widget, const QString& tone);

/// For a widget of which a property that the style sheet asks for has changed.
void Restyle(QWidget& widget);

/// How high a row of a grid is.
int RowHeight(const QFontMetrics& metrics);

/// Distances in pixels: between groups, inside a group.
inline constexpr int GroupGap = 8;
inline constexpr int FieldGap = 6;
/// Between a grid's lines and the text of a cell.
inline constexpr int CellPadding = 8;

} // namespace Theme
