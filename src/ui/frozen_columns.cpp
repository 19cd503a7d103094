#include "ui/frozen_columns.h"

#include "ui/data_grid.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {
constexpr int LineWidth = 1; // the theme's line between these columns and the others
/// No column can be drawn so wide that the others have no room left.
constexpr int MostCharacters = 40;
} // namespace

FrozenColumns::FrozenColumns(DataGrid& grid, int count, Cells cells)
    : QTableView(&grid), grid_(grid), count_(count), cells_(cells) {
    setProperty("look", u"frozen"_s);
    setModel(grid.model());
    setItemDelegate(grid.itemDelegate());
    setFocusPolicy(Qt::NoFocus);
    setSelectionMode(NoSelection);
    setAlternatingRowColors(grid.alternatingRowColors());
    setWordWrap(false);
    setShowGrid(false);
    setVerticalScrollMode(grid.verticalScrollMode());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(grid.verticalHeader()->defaultSectionSize());
    horizontalHeader()->setDefaultAlignment(grid.horizontalHeader()->defaultAlignment());
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMaximumSectionSize(MostCharacters * fontMetrics().averageCharWidth());

    for (int column = 0; column < model()->columnCount(); ++column) {
        setColumnHidden(column, column >= count);
        if (column >= count)
            continue;
        setColumnWidth(column, grid.columnWidth(column));
        grid.setColumnHidden(column, cells == Cells::Shown);
    }
    if (cells == Cells::Shown) {
        grid.setCornerButtonEnabled(false);
        grid.verticalHeader()->show();
        TakeRoom();
    } else {
        ShareCells();
    }

    connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, grid.verticalScrollBar(), &QScrollBar::setValue);
    connect(this, &QTableView::pressed, &grid, [&grid, count](const QModelIndex& cell) {
        const int column = qMax(count, grid.currentIndex().column());
        grid.setCurrentIndex(cell.siblingAtColumn(column));
        grid.setFocus();
    });
    show();
}

/// Its selection, widths and mouse are the grid's, whose columns lie under these while nothing is scrolled.
void FrozenColumns::ShareCells() {
    setAutoScroll(false);
    const QItemSelectionModel* own = selectionModel();
    setSelectionModel(grid_.selectionModel());
    delete own;
    QHeaderView& others = *grid_.horizontalHeader();
    connect(&others, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (column < count_)
            setColumnWidth(column, width);
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, &grid_,
            [this](int column, int, int width) { grid_.setColumnWidth(column, width); });
    // Nothing is put under these columns, where it would never be seen.
    connect(&others, &QHeaderView::sectionMoved, this, [this, &others](int, int, int to) {
        if (to < count_)
            others.moveSection(to, count_);
    });
}

bool FrozenColumns::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::ContextMenu:
        if (cells_ == Cells::Edited)
            return QCoreApplication::sendEvent(grid_.viewport(), event); // both begin at the same point
        break;
    default:
        break;
    }
    return QTableView::viewportEvent(event);
}

void FrozenColumns::KeepFree(const QRegion& region) {
    if (cells_ == Cells::Shown)
        return; // they lie beside the grid's cells, not over them
    const QRegion rest = QRegion(rect()) - region.translated(0, horizontalHeader()->height());
    if (region.isEmpty())
        clearMask();
    else
        setMask(rest);
}

/// The grid keeps the room of its row header free of its own columns: these stand there instead.
void FrozenColumns::TakeRoom() {
    if (cells_ == Cells::Edited)
        return;
    grid_.verticalHeader()->setFixedWidth(horizontalHeader()->length() + LineWidth);
}

void FrozenColumns::Place() {
    const QRect view = grid_.viewport()->geometry();
    const int header = grid_.horizontalHeader()->height();
    horizontalHeader()->setFixedHeight(header);
    const bool over = cells_ == Cells::Edited;
    const int width = over ? horizontalHeader()->length() + LineWidth : grid_.verticalHeader()->width();
    setGeometry(over ? view.left() : view.left() - width, view.top() - header, width, header + view.height());
    verticalScrollBar()->setValue(grid_.verticalScrollBar()->value());
}
