#include "ui/unsaved_rows.h"

#include "ui/data_grid.h"

using namespace Qt::StringLiterals;

UnsavedRows::UnsavedRows(Program& program, DataGrid& grid, std::function<bool(int row)> save)
    : program_(program), grid_(grid), save_(std::move(save)) {}

void UnsavedRows::Enter(int row) {
    if (row == lastRow_)
        return;
    SaveLast();
    lastRow_ = row;
    dirty_ = left_.erase(row) > 0;
}

void UnsavedRows::Touch(const QModelIndex& cell) {
    lastRow_ = cell.row();
    dirty_ = true;
    grid_.MarkUnsaved(cell, true);
    Mark(lastRow_, true);
}

void UnsavedRows::SaveLast() {
    if (!std::exchange(dirty_, false) || !save_)
        return;
    const int row = lastRow_;
    bool saved = false;
    Trapped(program_, u"EnterCell"_s, [&] { saved = save_(row); });
    if (!saved)
        left_.insert(row);
    Mark(row, !saved);
}

bool UnsavedRows::SaveCurrent() {
    SaveLast();
    dirty_ = left_.erase(lastRow_) > 0;
    return !dirty_;
}

/// The row's number tells that something in it is not saved, until nothing is.
void UnsavedRows::Mark(int row, bool unsaved) {
    const int columns = unsaved ? 1 : grid_.model()->columnCount();
    for (int column = 0; column < columns; ++column)
        grid_.MarkUnsaved(grid_.model()->index(row, column), unsaved);
}

bool UnsavedRows::MayLeave() {
    std::set<int> rows = left_;
    if (dirty_)
        rows.insert(lastRow_);
    if (rows.empty())
        return true;
    const auto answer = program_.dialogs.Ask(
        rows.size() == 1 ? u"Satu baris yang diubah belum disimpan. Simpan sekarang?"_s
                         : u"%1 baris yang diubah belum disimpan. Simpan sekarang?"_s.arg(rows.size()));
    if (answer == Dialogs::Answer::Yes) {
        for (const int row : rows) {
            lastRow_ = row;
            dirty_ = true;
            left_.erase(row);
            SaveLast();
        }
        lastRow_ = grid_.currentIndex().row();
        dirty_ = left_.erase(lastRow_) > 0;
        return !dirty_ && left_.empty();
    }
    return answer == Dialogs::Answer::No;
}

void UnsavedRows::Forget() {
    dirty_ = false;
    lastRow_ = -1;
    left_.clear();
}

void UnsavedRows::ForgetRow(int row) {
    left_.erase(row);
    if (row == lastRow_)
        dirty_ = false;
    Mark(row, false);
}
