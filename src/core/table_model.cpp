#include "core/table_model.h"

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return Text(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return headerData(index.column(), Qt::Horizontal, role);
    case FigureRole:
        return static_cast<int>(columns_[static_cast<size_t>(index.column())].figure);
    case CellLookRole:
        return static_cast<int>(LookOf(index.row(), index.column()));
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const TableColumn& column = columns_[static_cast<size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(column.across | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? QVariant(column.title) : QVariant();
}

int TableModel::RowOfKey(const QString& key) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (RowKey(row) == key)
            return row;
    }
    return -1;
}

void TableModel::NotifyColumns(int first, int last) {
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, first), index(rowCount() - 1, last));
}

void TableModel::NotifyRow(int row) {
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void TableModel::Reorder(RowOrder& order, const std::function<void()>& change) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> held;
    for (const QModelIndex& cell : before)
        held.push_back(order.Held(cell.row()));
    change();
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after << index(order.Shown(held[static_cast<size_t>(i)]), before[i].column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}
