#include "core/cell_history.h"

#include <algorithm>

namespace {

/// A step may be a whole month of thousands of employees.
constexpr size_t MostSteps = 100;

bool SameCell(const CellChange& a, const CellChange& b) {
    return a.column == b.column && a.rowKey == b.rowKey;
}

} // namespace

void CellHistory::Record(std::vector<CellChange> takeBack) {
    if (takeBack.empty())
        return;
    done_.push_back(std::move(takeBack));
    if (done_.size() > MostSteps)
        done_.erase(done_.begin());
    undone_.clear();
}

void CellHistory::Forget() {
    done_.clear();
    undone_.clear();
}

CellHistory::Replayed CellHistory::Replay(Steps& from, Steps& to, const Write& write) {
    Replayed replayed;
    if (from.empty())
        return replayed;
    std::vector<CellChange> step = from.back();
    while (!step.empty()) {
        CellsOutcome outcome = write(step);
        if (outcome.refused.empty()) {
            replayed.written = std::ssize(step);
            to.push_back(std::move(outcome.takeBack));
            break;
        }
        const auto before = step.size();
        std::erase_if(step, [&](const CellChange& change) {
            return std::ranges::any_of(outcome.refused, [&](const RefusedCell& refused) {
                return SameCell(refused.change, change);
            });
        });
        std::ranges::move(outcome.refused, std::back_inserter(replayed.refused));
        if (step.size() == before)
            break; // refused as a whole
    }
    from.pop_back();
    return replayed;
}
