#pragma once

#include <QString>

#include <functional>
#include <vector>

/// The order in which a model shows its rows, where it is another than the one in which it holds them.
class RowOrder {
public:
    bool IsAsHeld() const { return held_.empty(); }
    int Held(int shown) const { return IsAsHeld() ? shown : held_[static_cast<size_t>(shown)]; }
    int Shown(int held) const { return IsAsHeld() ? held : shown_[static_cast<size_t>(held)]; }

    void ShowAsHeld();
    /// Sorts by a text of each held row, whatever the letter case: rows of the same text as they are held,
    /// those without one last.
    void Sort(int rows, const std::function<QString(int held)>& textOf, Qt::SortOrder order);

private:
    std::vector<int> held_;
    std::vector<int> shown_;
};
