#include "ui/foot_rows.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>

namespace {
/// More rows than these are reached by the wheel.
constexpr int MostRows = 6;
constexpr int RowPadding = 5;
} // namespace

FootRows::FootRows(QWidget* parent) : DataGrid(parent) {
    setFocusPolicy(Qt::NoFocus);
    setSelectionMode(NoSelection);
    setAlternatingRowColors(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setCornerButtonEnabled(false);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->show();
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void FootRows::Follow(DataGrid& grid, int firstColumn) {
    grid_ = &grid;
    firstColumn_ = firstColumn;
    ShareRoom(0, 1); // what is too long is written narrower here, too
    connect(grid.horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (column >= firstColumn_)
            setColumnWidth(column - firstColumn_, width);
    });
    connect(grid.horizontalScrollBar(), &QScrollBar::valueChanged, horizontalScrollBar(),
            &QScrollBar::setValue);
    connect(model(), &QAbstractItemModel::modelReset, this, &FootRows::TakeHeight);
    grid.viewport()->installEventFilter(this);
    TakePlace();
    TakeHeight();
}

/// As wide as the grid without its scroll bar, so that both end at the same column.
void FootRows::TakePlace() {
    const QRect room = grid_->viewport()->geometry();
    verticalHeader()->setFixedWidth(qMax(0, room.left() - frameWidth()));
    setMaximumWidth(room.right() + 1 + frameWidth());
    for (int column = 0; column < model()->columnCount(); ++column)
        setColumnWidth(column, grid_->columnWidth(firstColumn_ + column));
    horizontalScrollBar()->setValue(grid_->horizontalScrollBar()->value());
    updateGeometry();
}

void FootRows::TakeHeight() {
    setVisible(model()->rowCount() > 0);
    updateGeometry();
}

QSize FootRows::sizeHint() const {
    const int rows = model() ? qMin(MostRows, model()->rowCount()) : 0;
    return {maximumWidth(), rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth()};
}

void FootRows::resizeEvent(QResizeEvent* event) {
    DataGrid::resizeEvent(event);
    if (grid_)
        TakePlace();
}

bool FootRows::eventFilter(QObject* watched, QEvent* event) {
    // A grid that goes has other last events, and is none any more then.
    const bool placed = event->type() == QEvent::Resize || event->type() == QEvent::Move;
    if (placed && grid_ && watched == grid_->viewport())
        TakePlace();
    return DataGrid::eventFilter(watched, event);
}
