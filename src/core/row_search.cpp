#include "core/row_search.h"

#include <QAbstractItemModel>

#include <algorithm>

namespace {

bool HasWord(QStringView text, const QString& start) {
    for (qsizetype at = text.indexOf(start, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(start, at + 1, Qt::CaseInsensitive)) {
        if (at == 0 || !text[at - 1].isLetterOrNumber())
            return true;
    }
    return false;
}

} // namespace

int FindRow(const QAbstractItemModel& model, const std::vector<int>& columns, const QString& text, int from,
            int step) {
    for (int row = from; row >= 0 && row < model.rowCount(); row += step) {
        const bool found = std::ranges::any_of(
            columns, [&](int column) { return HasWord(model.index(row, column).data().toString(), text); });
        if (found)
            return row;
    }
    return -1;
}
