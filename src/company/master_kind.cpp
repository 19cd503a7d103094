#include "company/master_kind.h"

QString MasterKind::CurrentKey() const {
    const int row = CurrentRow();
    return row < 0 ? QString() : model->KeyAt(row);
}

void MasterKind::GoTo(int row, int column) const {
    grid->setCurrentIndex(shown->mapFromSource(model->index(row, column)));
}

void MasterKind::Refresh(Connection& connection, const QString& key) const {
    const int column = std::max(0, grid->currentIndex().column());
    const int before = std::max(0, grid->currentIndex().row());
    model->Refresh(connection);
    const int row = model->RowOf(key);
    if (row >= 0)
        GoTo(row, column);
    else
        grid->setCurrentIndex(shown->index(std::min(before, shown->rowCount() - 1), column));
}

int MasterKind::Export(const QString& path) const {
    const std::vector<ExportColumn> columns = model->ExportColumns();
    ExportTable(path, columns, [&](const auto& sink) {
        for (int row = 0; row < shown->rowCount(); ++row) {
            ExportRow cells;
            for (size_t column = 0; column < columns.size(); ++column)
                cells.push_back(ShownValue(shown->index(row, static_cast<int>(column)).data().toString(),
                                           columns[column].kind));
            sink(cells);
        }
        return true;
    });
    return shown->rowCount();
}
