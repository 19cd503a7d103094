#pragma once

#include "core/program.h"
#include "ui/cell_editing.h"
#include "ui/unsaved_rows.h"

#include <QObject>

class DataGrid;
class GridBlocks;
class QKeyEvent;
class QLineEdit;
class QModelIndex;
class QToolButton;

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

    bool RowDirty() const { return unsaved_.Dirty(); }
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
    void Open(const QString& text);
    void Hide();
    /// Hides it and says what of it is thrown away.
    void Drop();
    void PlaceOverCell();
    void ShowOverFrozen();
    bool MayEdit(const QModelIndex& cell) const;
    bool HasPickList(const QModelIndex& cell) const;

    Program& program_;
    DataGrid& grid_;
    const CellEditing editing_;
    UnsavedRows unsaved_;
    /// Known apart from the grid, which is no longer one when the last events come.
    const QObject* viewport_;
    QLineEdit* text1_;
    QToolButton* cmdLov_;
    GridBlocks* blocks_;
    QString textBefore_;
};
