#pragma once

#include "core/cell_change.h"

#include <QModelIndex>

#include <functional>
#include <vector>

class QLineEdit;

/// What a window says of its grid so that blocks of cells can be copied, pasted, filled, emptied and taken
/// back there. The grid's model is a TableModel that tells its rows' keys.
struct BlockEditing {
    /// Writes the cells in one transaction through the checks of typing: all of them or none. Shows what
    /// stands there then. What it throws is logged and shown.
    std::function<CellsOutcome(const std::vector<CellChange>&)> writeCells;
    /// The columns that say whose a row is, by which it is found and named.
    std::vector<int> nameColumns;
    /// The columns that are never copied.
    std::vector<int> secretColumns;
    /// Whether the model sorts its rows: a click on a header does then, a second one the other way round, a
    /// third puts them back as they were read.
    bool sorts = false;
    /// Whether Delete empties the cells of a block.
    bool emptiesCells = false;
    /// Takes a sentence into the window's status line.
    std::function<void(const QString&)> tell;
};

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
