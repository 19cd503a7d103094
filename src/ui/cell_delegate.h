#pragma once

#include "core/cell_look.h"

#include <QStyledItemDelegate>

class DataGrid;

/// Paints a cell: the row's own colour or that of what is to be noticed about the cell, which it keeps in a
/// selected row; then the text, set off from the lines of the grid.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit CellDelegate(DataGrid* grid);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void PaintText(QPainter& painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const;
    /// The colours that editing gives a cell, over those that it has.
    void ColourEdited(const QModelIndex& index, QBrush& fill, QColor& textColour) const;

    DataGrid* grid_;
};
