#pragma once

#include "core/cell_change.h"

#include <functional>

/// What a window saved since it was opened, in steps that can be taken back and made again. The latest steps
/// are kept.
class CellHistory {
public:
    using Write = std::function<CellsOutcome(const std::vector<CellChange>&)>;

    /// How far a step was taken back or made again: cells that no longer hold what the step left there are
    /// left out.
    struct Replayed {
        qsizetype written = 0;
        std::vector<RefusedCell> refused = {};
    };

    /// A step that was saved, as the changes that take it back.
    void Record(std::vector<CellChange> takeBack);
    void Forget();

    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }
    /// The last step, written through the function. What that throws leaves the step where it is.
    Replayed Undo(const Write& write) { return Replay(done_, undone_, write); }
    Replayed Redo(const Write& write) { return Replay(undone_, done_, write); }

private:
    using Steps = std::vector<std::vector<CellChange>>;

    static Replayed Replay(Steps& from, Steps& to, const Write& write);

    Steps done_;
    Steps undone_;
};
