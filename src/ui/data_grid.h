#pragma once

#include <QPersistentModelIndex>
#include <QSet>
#include <QTableView>

#include <optional>

class FrozenColumns;
class QSettings;

/// The program's grid: rows to look at and walk through by keys, one selected at a time. What a double-click
/// does, Enter does too. Cells are painted as the model tells under CellLookRole. A grid whose cells are
/// edited has a cell cursor instead.
class DataGrid : public QTableView {
    Q_OBJECT
public:
    explicit DataGrid(QWidget* parent = nullptr);

    /// Lets the keys walk from cell to cell, the present one painted as the one to be edited, its row tinted;
    /// the first columns are painted as headers.
    void EditCells(int fixedColumns);
    bool EditsCells() const { return fixedColumns_ >= 0; }
    int FixedCols() const { return qMax(0, fixedColumns_); }

    /// Marks a cell whose contents are not in the database, or takes the mark away.
    void MarkUnsaved(const QModelIndex& cell, bool unsaved);
    /// For rows that were read anew.
    void ForgetUnsaved();
    bool IsMarkedUnsaved(const QModelIndex& cell) const { return unsaved_.contains(cell); }

    /// Of these columns alone the header answers to the mouse, and looks so.
    void AnswerHeaders(const QList<int>& columns);
    bool HeaderAnswers(int column) const { return !answering_ || answering_->contains(column); }

    /// What the grid says in its middle while it has no rows.
    void SetEmptyText(const QString& text);

    /// Gives a column the room that the others leave, but never less than it needs.
    void StretchColumn(int column, int leastWidth);

    /// Gives all columns from this one on the same width, in the room that there is, but never less than
    /// this. What is too long for its cell there is written narrower.
    void ShareRoom(int firstColumn, int leastWidth);
    bool SharesRoom(int column) const { return firstShared_ >= 0 && column >= firstShared_; }

    /// Keeps the first columns in sight while the others scroll. They have their widths and the grid its
    /// model before; the cell cursor does not enter them.
    void FreezeColumns(int count);
    /// The same of columns whose cells are edited.
    void FreezeEditedColumns(int count);
    /// Lets what lies over the cells be seen over frozen ones, too.
    void KeepFree(const QRegion& region);

    /// Moves the cell cursor by columns and rows as they are seen; at the grid's edge it stays.
    void MoveCursor(QPoint steps);

    /// Widths and order of the columns and what the rows are sorted by, as they were when they were saved.
    void SaveColumns(QSettings& settings) const;
    void RestoreColumns(QSettings& settings);

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& place) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    /// A mouse button went down on a column's header.
    void HeaderPressed(int column);
    /// A row was chosen by double-click or Enter.
    void RowChosen(int row);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void reset() override;

private:
    void FitColumns();
    void Freeze(FrozenColumns* frozen);
    /// The view that shows a column: the frozen ones stand apart.
    QTableView& ViewOf(int column);
    const QTableView& ViewOf(int column) const;

    int stretchedColumn_ = -1;
    int firstShared_ = -1;
    int leastWidth_ = 0;
    FrozenColumns* frozen_ = nullptr;
    QString emptyText_;
    std::optional<QList<int>> answering_;
    int fixedColumns_ = -1;
    /// Where a block of cells began, and where the mouse drags it to.
    QPersistentModelIndex blockStart_;
    QModelIndex draggedTo_;
    mutable bool extending_ = false;
    QSet<QPersistentModelIndex> unsaved_;
};
