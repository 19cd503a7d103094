#include "company/master_model.h"

void MasterModel::Refresh(Connection& connection) {
    const std::function<void()> take = Read(connection);
    beginResetModel();
    connection_ = &connection;
    hasNew_ = false;
    take();
    endResetModel();
}

int MasterModel::RowOf(const QString& key) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (KeyAt(row) == key)
            return row;
    }
    return -1;
}

void MasterModel::Remove(int row) {
    RemoveStored(row);
    TakeAway(row);
}

int MasterModel::AddRow() {
    if (hasNew_)
        return rowCount() - 1;
    const int row = rowCount();
    beginInsertRows({}, row, row);
    Append();
    hasNew_ = true;
    endInsertRows();
    return row;
}

void MasterModel::DropNew() {
    if (std::exchange(hasNew_, false))
        TakeAway(rowCount() - 1);
}

void MasterModel::TakeAway(int row) {
    beginRemoveRows({}, row, row);
    Erase(row);
    endRemoveRows();
}

std::vector<ExportColumn> MasterModel::ExportColumns() const {
    std::vector<ExportColumn> columns;
    for (int column = 0; column < columnCount(); ++column)
        columns.push_back({headerData(column, Qt::Horizontal).toString()});
    return columns;
}
