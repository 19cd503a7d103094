#pragma once

#include <QTableView>

class DataGrid;

/// The first columns of a grid, beside the ones that scroll. They show the grid's rows where the grid shows
/// them; a click on one of them goes to its row in the grid.
class FrozenColumns : public QTableView {
    Q_OBJECT
public:
    /// Takes the first columns over from the grid, which makes room for them on its left.
    FrozenColumns(DataGrid& grid, int count);

    /// Makes room for these columns at their widths.
    void TakeRoom();
    /// Follows the grid's size.
    void Place();

private:
    DataGrid& grid_;
};
