#pragma once

/// What is to be noticed about a cell of a grid. A model tells it under a role of its own; the theme gives it
/// its colours.
enum class CellLook {
    Plain,
    Tinted,   ///< set off from its neighbours: a day of rest
    Marked,   ///< the one that counts now: today
    Hatched,  ///< nothing can stand there
    Doubtful, ///< its contents need attention
};
