#pragma once

#include <Qt>

/// What is to be noticed about a cell of a grid. A model tells it under CellLookRole; the theme gives it its
/// colours. A chip is a code that is told by its colour, too.
enum class CellLook {
    Plain,
    Tinted,    ///< set off from its neighbours: a day of rest
    Marked,    ///< the one that counts now: today
    Hatched,   ///< nothing can stand there
    Doubtful,  ///< its contents need attention
    Quiet,     ///< there is nothing to look at
    Lacking,   ///< less than there must be
    AmberChip, ///< the chips, from light to dark
    VioletChip,
    GreenChip,
    OrangeChip,
    SlateChip,
    TealChip,
    RedChip,
    BlueChip,
    PlumChip,
};

constexpr bool IsChip(CellLook look) {
    return look >= CellLook::AmberChip;
}

/// What a model tells of a cell besides its text.
enum CellRole : int {
    CellLookRole = Qt::UserRole,
    CellTintRole,   ///< the text by which a cell is tinted: the same text has the same tint everywhere
    HeaderNoteRole, ///< what a header says under its title
    FigureRole,     ///< how the cell's text is painted
};
