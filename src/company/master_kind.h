#pragma once

#include "company/master_model.h"

#include <QSortFilterProxyModel>
#include <QTableView>

/// One kind of master data as the window shows it: its rows, those that the filter leaves, and their grid.
struct MasterKind {
    MasterModel* model;
    QSortFilterProxyModel* shown;
    QTableView* grid;

    /// The row of the model under the cursor; -1 for none.
    int CurrentRow() const { return shown->mapToSource(grid->currentIndex()).row(); }
    QString CurrentKey() const;
    void GoTo(int row, int column) const;
    /// The row of the model that a cell of the grid stands for.
    int RowOf(const QModelIndex& cell) const { return shown->mapToSource(cell).row(); }
    /// Reads the rows anew and goes to the row of the key, else stays about where it was. Throws
    /// DatabaseError.
    void Refresh(Connection& connection, const QString& key) const;
    /// Writes the rows that are shown to a file for spreadsheets, in their order; returns how many. Throws
    /// ProgramError.
    int Export(const QString& path) const;
};
