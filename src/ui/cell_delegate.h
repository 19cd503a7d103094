#pragma once

#include "core/cell_look.h"

#include <QStyledItemDelegate>

class DataGrid;

/// Paints a cell: the row's own colour or that of what is to be noticed about the cell, which it keeps in a
/// selected row; the line below it; the text, a status as a chip; and a mark on what is not saved.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit CellDelegate(DataGrid* grid);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void PaintText(QPainter& painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const;
    void PaintChip(QPainter& painter, const QStyleOptionViewItem& cell, const QColor& fill) const;
    void PaintUnsaved(QPainter& painter, const QRect& cell, const QModelIndex& index) const;
    bool IsEdited(const QModelIndex& index) const;
    /// What stands behind a cell of a grid that is edited: the present row is tinted, the first columns are
    /// painted as headers.
    QBrush TintedRow(const QModelIndex& index, const QBrush& fill) const;

    DataGrid* grid_;
};
