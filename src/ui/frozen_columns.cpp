#include "ui/frozen_columns.h"

#include "ui/data_grid.h"

#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {
constexpr int LineWidth = 1; // the theme's line between these columns and the others
/// No column can be drawn so wide that the others have no room left.
constexpr int MostCharacters = 40;
} // namespace

FrozenColumns::FrozenColumns(DataGrid& grid, int count) : QTableView(&grid), grid_(grid) {
    setProperty("look", u"frozen"_s);
    setModel(grid.model());
    setItemDelegate(grid.itemDelegate());
    setFocusPolicy(Qt::NoFocus);
    setSelectionMode(NoSelection);
    setAlternatingRowColors(grid.alternatingRowColors());
    setWordWrap(false);
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
        grid.setColumnHidden(column, true);
    }
    grid.setCornerButtonEnabled(false);
    grid.verticalHeader()->show();
    TakeRoom();

    connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, grid.verticalScrollBar(), &QScrollBar::setValue);
    connect(this, &QTableView::pressed, &grid, [&grid, count](const QModelIndex& cell) {
        const int column = qMax(count, grid.currentIndex().column());
        grid.setCurrentIndex(cell.siblingAtColumn(column));
        grid.setFocus();
    });
    show();
}

/// The grid keeps the room of its row header free of its own columns: these stand there instead.
void FrozenColumns::TakeRoom() {
    grid_.verticalHeader()->setFixedWidth(horizontalHeader()->length() + LineWidth);
}

void FrozenColumns::Place() {
    const QRect view = grid_.viewport()->geometry();
    const int header = grid_.horizontalHeader()->height();
    horizontalHeader()->setFixedHeight(header);
    const int width = grid_.verticalHeader()->width();
    setGeometry(view.left() - width, view.top() - header, width, header + view.height());
    verticalScrollBar()->setValue(grid_.verticalScrollBar()->value());
}
