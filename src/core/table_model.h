#pragma once

#include "core/cell_look.h"
#include "core/row_order.h"
#include "core/shown_figure.h"

#include <QAbstractTableModel>
#include <QString>

#include <vector>

struct TableColumn {
    QString title;
    Qt::AlignmentFlag across = Qt::AlignLeft; ///< where cells and title stand in the column
    Figure figure = Figure::Plain;
};

/// What the models of all grids have in common: a model says what its columns are, how many rows there are,
/// what a cell reads and what is to be noticed about it. The text to be edited is the one that is shown.
class TableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    int rowCount(const QModelIndex& parent = {}) const final { return parent.isValid() ? 0 : RowCount(); }
    int columnCount(const QModelIndex& parent = {}) const final;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// What tells a row from all others, also when rows have moved or were read anew.
    virtual QString RowKey(int row) const { return QString::number(row); }
    /// -1 when no such row is shown.
    virtual int RowOfKey(const QString& key) const;

protected:
    explicit TableModel(std::vector<TableColumn> columns, QObject* parent = nullptr)
        : QAbstractTableModel(parent), columns_(std::move(columns)) {}

    /// Only while the model is being reset.
    void SetColumns(std::vector<TableColumn> columns) { columns_ = std::move(columns); }
    /// Tells the views of all cells between two columns, both included.
    void NotifyColumns(int first, int last);
    void NotifyRow(int row);
    /// Lets the function change the order in which the rows are shown; views keep to their rows.
    void Reorder(RowOrder& order, const std::function<void()>& change);

private:
    virtual int RowCount() const = 0;
    virtual QString Text(int row, int column) const = 0;
    virtual CellLook LookOf(int /*row*/, int /*column*/) const { return CellLook::Plain; }

    std::vector<TableColumn> columns_;
};
