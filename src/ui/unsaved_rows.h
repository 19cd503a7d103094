#pragma once

#include "core/program.h"

#include <QModelIndex>

#include <functional>
#include <set>

class DataGrid;

/// The rows of a grid that hold what is not in the database: the one that the cursor is on, and those that
/// could not be saved when it left them. The grid marks them.
class UnsavedRows {
public:
    /// `save` saves a row, and says whether it did.
    UnsavedRows(Program& program, DataGrid& grid, std::function<bool(int row)> save);

    /// The cursor came to the row: the one that it left is saved.
    void Enter(int row);
    /// A cell was changed and is not saved.
    void Touch(const QModelIndex& cell);
    bool Dirty() const { return dirty_; }
    /// Saves the row that the cursor is on, if anything in it is not saved; false when something stays.
    bool SaveCurrent();
    /// Asks what becomes of all of them: they are saved, thrown away, or the answer is false.
    bool MayLeave();
    /// The rows were read anew: nothing is left to save.
    void Forget();
    void ForgetRow(int row);

private:
    void SaveLast();
    void Mark(int row, bool unsaved);

    Program& program_;
    DataGrid& grid_;
    const std::function<bool(int row)> save_;
    int lastRow_ = -1;
    bool dirty_ = false;
    /// Left before, but not saved: saving them failed.
    std::set<int> left_;
};
