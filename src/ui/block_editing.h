#pragma once

#include "core/cell_change.h"

#include <functional>
#include <vector>

/// What a window says of its grid so that blocks of cells can be copied, pasted, filled, emptied and taken
/// back there. The grid's model is a TableModel that tells its rows' keys.
struct BlockEditing {
    /// Writes the cells in one transaction through the checks of typing: all of them or none. Shows what
    /// stands there then. What it throws is logged and shown.
    std::function<CellsOutcome(const std::vector<CellChange>&)> writeCells;
    /// The columns that say whose a row is, by which it is found and named.
    std::vector<int> nameColumns;
    /// The columns that are never copied.
    std::vector<int> secretColumns;
    /// Whether Delete empties the cells of a block.
    bool emptiesCells = false;
    /// Takes a sentence into the window's status line.
    std::function<void(const QString&)> tell;
};
