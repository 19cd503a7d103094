#pragma once

#include "core/text_table.h"
#include "exchange/table_export.h"

#include <QAbstractItemModel>

/// A column of a grid that goes out with it, and what its cells show.
struct GridColumn {
    int column = 0;
    ColumnKind kind = ColumnKind::Text;
};

/// Writes what a grid shows to a file (ExportTable): texts become values of their columns' kinds
/// (ShownValue). Rows that a grid does not hold all at once are handed over one by one. False when it was
/// stopped. Throws ProgramError.
bool ExportShown(const QString& path, const std::vector<ExportColumn>& columns,
                 const modGeneral::EachRow& rows);

/// The same of a grid that holds all its rows, as they stand in the model: filtered and sorted where the
/// model is, under the model's headings.
bool ExportGrid(const QString& path, const QAbstractItemModel& model, const std::vector<GridColumn>& columns,
                const Progress& progress = {});
