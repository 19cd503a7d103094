#pragma once

#include "ui/data_grid.h"

/// Rows of figures under a grid, each figure under the grid's column that it is about: they scroll along, and
/// their titles stand under the grid's frozen columns. They take no keys.
class FootRows : public DataGrid {
    Q_OBJECT
public:
    explicit FootRows(QWidget* parent = nullptr);

    /// To be called once, when both have their models: the first column here stands under that one, from
    /// which on the grid's columns share their room.
    void Follow(DataGrid& grid, int firstColumn);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void TakePlace();
    void TakeHeight();

    DataGrid* grid_ = nullptr;
    int firstColumn_ = 0;
};
