#include "exchange/grid_export.h"

bool ExportShown(const QString& path, const std::vector<ExportColumn>& columns,
                 const modGeneral::EachRow& rows) {
    return ExportTable(path, columns, [&](const auto& sink) {
        ExportRow row(columns.size());
        return rows([&](const QStringList& cells) {
            for (size_t i = 0; i < columns.size(); ++i)
                row[i] = ShownValue(cells.value(static_cast<qsizetype>(i)), columns[i].kind);
            sink(row);
        });
    });
}

bool ExportGrid(const QString& path, const QAbstractItemModel& model, const std::vector<GridColumn>& columns,
                const Progress& progress) {
    std::vector<ExportColumn> headed;
    for (const auto& [column, kind] : columns)
        headed.push_back({model.headerData(column, Qt::Horizontal).toString(), kind});
    return ExportShown(path, headed, [&](const modGeneral::RowSink& sink) {
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (const auto& [column, kind] : columns)
                cells << model.index(row, column).data().toString();
            sink(cells);
            if (!ShouldContinue(progress, row + 1, model.rowCount()))
                return false;
        }
        return true;
    });
}
