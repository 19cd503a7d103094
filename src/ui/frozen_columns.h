#pragma once

#include <QTableView>

class DataGrid;

/// The first columns of a grid, beside the ones that scroll. They show the grid's rows where the grid shows
/// them.
class FrozenColumns : public QTableView {
    Q_OBJECT
public:
    enum class Cells {
        Shown, ///< the grid gives these columns up; a click on one of them goes to its row
        Edited ///< they lie over the grid's own, whose cells are clicked, entered and edited through them
    };

    FrozenColumns(DataGrid& grid, int count, Cells cells);

    bool LiesOver(int column) const { return cells_ == Cells::Edited && column < count_; }
    /// Lets what lies over the grid be seen here.
    void KeepFree(const QRegion& region);

    /// Makes room for these columns at their widths.
    void TakeRoom();
    /// Follows the grid's size.
    void Place();

protected:
    bool viewportEvent(QEvent* event) override;

private:
    void ShareCells();

    DataGrid& grid_;
    int count_;
    Cells cells_;
};
