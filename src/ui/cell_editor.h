#pragma once

#include "core/program.h"
#include "ui/block_editing.h"

#include <QModelIndex>
#include <QObject>

#include <functional>
#include <optional>
#include <set>
#include <vector>

class DataGrid;
class GridBlocks;
class QKeyEvent;
class QLineEdit;
class QToolButton;

/// What a window adds to the editor of its grid. Rows and columns are the grid model's, whose first columns
/// are fixed. What these functions throw is logged and shown; what was typed then stays, but for a
/// ConflictError: the editor makes way for what another desk stored.
struct CellEditing : BlockEditing {
    int fixedColumns = 1;
    /// Where the cursor goes when Enter has entered a text.
    enum class EnterGoes { Nowhere, Right, Down } enterGoes = EnterGoes::Nowhere;
    /// The columns that show cmdLov when a cell of them is entered.
    std::vector<int> pickListColumns;
    /// Whether the editor may open on a cell that is not fixed; without it, on all of them.
    std::function<bool(const QModelIndex&)> mayEdit;
    /// The column whose codes are checked before they reach the grid; none below 0.
    int checkedColumn = -1;
    /// The code as its table writes it; nothing when it is not listed, and the pick list opens.
    std::function<std::optional<QString>(const QModelIndex& cell, const QString& code)> check;
    /// Asked before a changed text goes into its cell; the editor stays open for false.
    std::function<bool(const QModelIndex&, const QString& text)> mayEnter;
    /// Opens the pick list under the anchor; its choice comes back through TakePicked. The reason is that of
    /// a list that opens by itself, empty where the user asked for it.
    std::function<void(QLineEdit& anchor, const QString& reason)> openPickList;
    /// Saves a row; false when it was not saved.
    std::function<bool(int row)> saveRow;
    /// Takes a changed text into its cell and saves it at once; false when it was not saved. Rows have
    /// nothing left to save then. With writeCells, what was saved can be taken back.
    std::function<bool(const QModelIndex&, const QString& text)> saveCell;
    std::function<void(const QModelIndex&)> gridEnterKey;
    std::function<void(const QModelIndex&)> gridDeleteKey;
    std::function<void(const QModelIndex&)> gridDoubleClick;
};

/// Typing straight into a grid that does not edit itself: one text box, Text1, is laid over the current cell,
/// one button, cmdLov, beside it for the columns with a pick list. A committed text goes into the model; the
/// row is saved when the cursor leaves it.
class CellEditor : public QObject {
    Q_OBJECT
public:
    /// The grid has its model, and keeps it.
    CellEditor(Program& program, DataGrid& grid, CellEditing editing);

    GridBlocks& Blocks() { return *blocks_; }

    /// Opens the editor on the current cell with its present text, selected.
    void OpenOnCurrentCell();
    /// Takes a code from the pick list as if it had been typed and entered.
    void TakePicked(const QString& code);
    void ShowPickButton();
    void OpenPickList(const QString& reason = {});
    /// Opens it where Enter on the cell means that one is to be picked.
    void OfferPickList();

    bool RowDirty() const { return rowDirty_; }
    /// Saves the row that the cursor is on, if anything in it is not saved; false when something stays.
    bool SaveRow();
    /// Asks what becomes of rows that are not saved: they are saved, thrown away, or the answer is false and
    /// the window stays as it is.
    bool MayLeave();
    /// The rows were read anew: nothing is left to save.
    void Forget();
    /// The same of one row.
    void ForgetRow(int row);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void EnterCell(const QModelIndex& cell);
    void SaveLastRow();
    bool GridKeyDown(const QKeyEvent& event);
    bool GridKeyPress(const QString& typed);
    void GridDeleteKey();
    bool Text1_KeyDown(const QKeyEvent& event);
    bool Text1_Validate();
    bool Attempt(const std::function<void()>& action);
    /// False when the editor stays open, or what was typed could not be saved.
    bool CommitCellEdit();
    /// Saves a changed text at once; false when it was not saved.
    bool SaveCell(const QModelIndex& cell, const QString& text);
    /// Enters what is typed; the cursor goes on as the grid wants it.
    void Enter();
    void AddActions();
    void Move(int rows, int columns);
    void Open(const QString& text);
    void Hide();
    /// Hides it and says what of it is thrown away.
    void Drop();
    void PlaceOverCell();
    bool MayEdit(const QModelIndex& cell) const;
    bool HasPickList(const QModelIndex& cell) const;
    void MarkRow(int row, bool unsaved);

    Program& program_;
    DataGrid& grid_;
    const CellEditing editing_;
    /// Known apart from the grid, which is no longer one when the last events come.
    const QObject* viewport_;
    QLineEdit* text1_;
    QToolButton* cmdLov_;
    GridBlocks* blocks_;
    QString textBefore_;
    int lastRow_ = -1;
    bool rowDirty_ = false;
    /// Left before, but not saved: saving them failed.
    std::set<int> unsavedRows_;
};
