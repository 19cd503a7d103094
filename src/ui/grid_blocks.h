#pragma once

#include "core/cell_history.h"
#include "core/program.h"
#include "ui/cell_editing.h"

#include <QObject>

class DataGrid;
class FindLine;
class QAction;
class QKeySequence;

/// What a spreadsheet hand expects of a grid that is typed into: blocks are copied, pasted, filled and
/// emptied, what was saved is taken back and made again, a row is found by its name. The grid's context menu
/// offers the same.
class GridBlocks : public QObject {
    Q_OBJECT
public:
    /// The grid has its model, and keeps it. `settle` saves what is typed and not saved yet, and says whether
    /// nothing is left of it.
    GridBlocks(Program& program, DataGrid& grid, BlockEditing editing, std::function<bool()> settle);

    /// Writes cells as one step that can be taken back; those that hold the text already are left alone.
    /// `what` names the work for the user. False when nothing was written: the user was told why.
    bool Write(std::vector<CellChange> changes, const QString& what);
    /// A step that the window has saved by itself, as the changes that take it back.
    void Record(std::vector<CellChange> takeBack) { history_.Record(std::move(takeBack)); }
    /// The window opens anew: nothing from before is taken back.
    void ForgetSteps() { history_.Forget(); }

    /// Adds to the grid's menu and keys; without keys of its own the text may name, after a tab, those that
    /// the window knows.
    QAction* AddAction(const QString& text, const QKeySequence& keys, const std::function<void()>& action);
    void AddSeparator();

    int RowsOfBlock() const { return Block().rows; }
    /// True when Delete was an emptied block.
    bool EmptyBlock();
    /// Into the window's status line, after what the grid says by itself.
    void Tell(const QString& text);

private:
    /// Rows and columns as they stand in sight, the columns by their numbers in the model.
    struct CellBlock {
        int top = 0;
        int rows = 0;
        QList<int> columns = {};
    };

    void AddActions();
    void Copy();
    void Paste();
    void Fill(Qt::Orientation direction);
    void Undo();
    void Redo();
    void Tell(const CellHistory::Replayed& replayed, const QString& what);
    void Find();
    void SortByHeaders();
    void Sort(int column, Qt::SortOrder order);

    CellBlock Block() const;
    /// The columns in sight from this one on.
    QList<int> ColumnsFrom(int column) const;
    CellChange ChangeOf(int row, int column, const QString& text) const;
    void Warn(const QString& heading, const std::vector<RefusedCell>& refused);
    QString NameOf(const CellChange& change) const;

    Program& program_;
    DataGrid& grid_;
    const BlockEditing editing_;
    const std::function<bool()> settle_;
    CellHistory history_;
    FindLine* findLine_ = nullptr;
    int sortedBy_ = -1;
};
