#pragma once

#include <QString>

#include <optional>
#include <vector>

/// A cell to be written by a block, a fill, a pattern or an undo. Rows are told by the model's key, since
/// they move.
struct CellChange {
    QString rowKey;
    int column = 0;
    QString text;
    /// What must stand in the database, else the change is refused. Without it the grid's own rule holds for
    /// what another desk wrote.
    std::optional<QString> expected = {};
};

struct RefusedCell {
    CellChange change;
    QString reason; ///< for the user: what is wrong, what to do
};

/// What became of cells that were to be written together.
struct CellsOutcome {
    /// Not empty: nothing was written.
    std::vector<RefusedCell> refused = {};
    /// The changes that bring back what stood before; they expect what stands there now.
    std::vector<CellChange> takeBack = {};
};
