#include "core/row_order.h"

#include <algorithm>
#include <numeric>

void RowOrder::ShowAsHeld() {
    held_.clear();
    shown_.clear();
}

void RowOrder::Sort(int rows, const std::function<QString(int held)>& textOf, Qt::SortOrder order) {
    std::vector<QString> texts;
    texts.reserve(static_cast<size_t>(rows));
    for (int row = 0; row < rows; ++row)
        texts.push_back(textOf(row).toCaseFolded());
    held_.resize(texts.size());
    std::iota(held_.begin(), held_.end(), 0);
    std::ranges::stable_sort(held_, [&](int a, int b) {
        const QString& one = texts[static_cast<size_t>(a)];
        const QString& other = texts[static_cast<size_t>(b)];
        if (one.isEmpty() || other.isEmpty())
            return !one.isEmpty();
        return order == Qt::AscendingOrder ? one < other : other < one;
    });
    shown_.resize(held_.size());
    for (size_t row = 0; row < held_.size(); ++row)
        shown_[static_cast<size_t>(held_[row])] = static_cast<int>(row);
}
