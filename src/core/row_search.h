#pragma once

#include <QString>

#include <vector>

class QAbstractItemModel;

/// The nearest row of which one of these columns begins with the text or has it at the beginning of a word,
/// whatever the letter case, looking from a row on in steps of 1 or -1, that row included. Does not go round:
/// -1 when there is none.
int FindRow(const QAbstractItemModel& model, const std::vector<int>& columns, const QString& text, int from,
            int step = 1);
