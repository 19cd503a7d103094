#include "ui/data_grid.h"

#include "ui/cell_delegate.h"
#include "ui/frozen_columns.h"
#include "ui/theme.h"
#include "ui/typing.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Paints the titles of columns whose headers do not answer quietly and without the mouse's colours, the
/// model's note under a title, and what is to be noticed about a column over its ground.
class GridHeader : public QHeaderView {
public:
    explicit GridHeader(DataGrid* grid) : QHeaderView(Qt::Horizontal, grid), grid_(grid) {}

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override {
        QHeaderView::initStyleOptionForIndex(option, column);
        if (const QString note = Of(column, HeaderNoteRole).toString(); !note.isEmpty())
            option->text += u'\n' + note;
        if (grid_->HeaderAnswers(column))
            return;
        option->state &= ~(QStyle::State_MouseOver | QStyle::State_Sunken);
        option->palette.setColor(QPalette::ButtonText, Theme::QuietText());
    }

    QSize sectionSizeFromContents(int column) const override {
        const QSize size = QHeaderView::sectionSizeFromContents(column);
        return Of(column, HeaderNoteRole).isValid() ? size + QSize(0, fontMetrics().height()) : size;
    }

    void paintSection(QPainter* painter, const QRect& rect, int column) const override {
        painter->save();
        QHeaderView::paintSection(painter, rect, column);
        painter->restore();
        const auto colours = Theme::LookColours(static_cast<CellLook>(Of(column, CellLookRole).toInt()));
        if (!colours)
            return;
        painter->setCompositionMode(QPainter::CompositionMode_Multiply);
        painter->fillRect(rect, colours->fill);
        painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    }

private:
    QVariant Of(int column, int role) const {
        return model() ? model()->headerData(column, orientation(), role) : QVariant();
    }

    DataGrid* grid_;
};

} // namespace

DataGrid::DataGrid(QWidget* parent) : QTableView(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setShowGrid(false); // the delegate draws the lines that there are
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setItemDelegate(new CellDelegate(this));
    setHorizontalHeader(new GridHeader(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(Theme::RowHeight(fontMetrics()));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionPressed, this, [this](int column) {
        if (HeaderAnswers(column))
            Q_EMIT HeaderPressed(column);
    });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT RowChosen(index.row()); });
}

void DataGrid::EditCells(int fixedColumns) {
    fixedColumns_ = fixedColumns;
    setSelectionBehavior(SelectItems);
    setSelectionMode(ContiguousSelection);
    horizontalHeader()->setSectionsMovable(firstShared_ < 0);
    // A press on a header would take the cursor away, and with it the row that is typed into.
    disconnect(horizontalHeader(), SIGNAL(sectionPressed(int)), this, SLOT(selectColumn(int)));
    disconnect(horizontalHeader(), SIGNAL(sectionEntered(int)), this, SLOT(_q_selectColumn(int)));
}

void DataGrid::MarkUnsaved(const QModelIndex& cell, bool unsaved) {
    if (unsaved)
        unsaved_.insert(cell);
    else
        unsaved_.remove(cell);
    update(cell);
    if (frozen_)
        frozen_->update(cell);
}

void DataGrid::ForgetUnsaved() {
    unsaved_.clear();
    viewport()->update();
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!extending_)
        blockStart_ = current;
    if (EditsCells() && current.row() != previous.row())
        viewport()->update(); // the tint of the row moves along
    if (frozen_)
        frozen_->viewport()->update();
}

void DataGrid::FreezeColumns(int count) {
    Freeze(new FrozenColumns(*this, count, FrozenColumns::Cells::Shown));
}

void DataGrid::FreezeEditedColumns(int count) {
    Freeze(new FrozenColumns(*this, count, FrozenColumns::Cells::Edited));
}

void DataGrid::Freeze(FrozenColumns* frozen) {
    frozen_ = frozen;
    updateGeometries();
    connect(frozen_->horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        frozen_->TakeRoom();
        updateGeometries();
        FitColumns();
    });
}

void DataGrid::KeepFree(const QRegion& region) {
    if (frozen_)
        frozen_->KeepFree(region);
}

QRect DataGrid::visualRect(const QModelIndex& index) const {
    const bool over = frozen_ && frozen_->LiesOver(index.column());
    return over ? frozen_->visualRect(index) : QTableView::visualRect(index);
}

QModelIndex DataGrid::indexAt(const QPoint& place) const {
    const bool over = frozen_ && frozen_->LiesOver(0) && place.x() < frozen_->width();
    return over ? frozen_->indexAt(place) : QTableView::indexAt(place);
}

/// A cell that is scrolled to does not end under the frozen ones; those are in sight already.
void DataGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int scrolled = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (!frozen_ || !frozen_->LiesOver(0))
        return;
    if (frozen_->LiesOver(index.column())) {
        horizontalScrollBar()->setValue(scrolled);
    } else if (const int covered = frozen_->width() - visualRect(index).left(); covered > 0) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
    }
}

QItemSelectionModel::SelectionFlags DataGrid::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
    auto command = QTableView::selectionCommand(index, event);
    // A key that is held is for what the user does, not for where the program puts the cursor.
    if (EditsCells() && !event)
        command = QItemSelectionModel::ClearAndSelect;
    // Together with Ctrl, too.
    if (EditsCells() && event && event->type() == QEvent::KeyPress
        && static_cast<const QKeyEvent*>(event)->modifiers().testFlag(Qt::ShiftModifier))
        command = QItemSelectionModel::SelectCurrent;
    extending_ = command.testFlag(QItemSelectionModel::Current);
    return command;
}

void DataGrid::mouseMoveEvent(QMouseEvent* event) {
    draggedTo_ = indexAt(event->pos());
    QTableView::mouseMoveEvent(event);
    draggedTo_ = QModelIndex();
}

/// A block goes by its cells, not by the places that they have on the screen: its start may be scrolled out
/// of sight, or the cursor have been put there by other means than the mouse.
void DataGrid::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const QModelIndex end = draggedTo_.isValid() ? draggedTo_ : currentIndex();
    if (!EditsCells() || !end.isValid())
        return QTableView::setSelection(rect, command);
    if (!extending_ || !blockStart_.isValid())
        blockStart_ = end;
    const QHeaderView& header = *horizontalHeader();
    const auto [left, right] =
        std::minmax({header.visualIndex(blockStart_.column()), header.visualIndex(end.column())});
    const auto [top, bottom] = std::minmax({blockStart_.row(), end.row()});
    QItemSelection block;
    for (int place = left; place <= right; ++place) {
        const int column = header.logicalIndex(place);
        block.select(model()->index(top, column), model()->index(bottom, column));
    }
    selectionModel()->select(block, command);
}

void DataGrid::MoveCursor(QPoint steps) {
    const QModelIndex cell = currentIndex();
    const QHeaderView& header = *horizontalHeader();
    int column = cell.column();
    for (int place = header.visualIndex(column) + steps.x(); steps.x() != 0; place += steps.x()) {
        column = header.logicalIndex(place);
        if (column < 0 || !header.isSectionHidden(column))
            break;
    }
    const QModelIndex next = cell.sibling(cell.row() + steps.y(), column);
    if (next.isValid())
        setCurrentIndex(next);
}

void DataGrid::updateGeometries() {
    QTableView::updateGeometries();
    if (frozen_)
        frozen_->Place();
}

void DataGrid::reset() {
    unsaved_.clear();
    QTableView::reset();
}

void DataGrid::AnswerHeaders(const QList<int>& columns) {
    answering_ = columns;
    horizontalHeader()->viewport()->update();
}

void DataGrid::SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

void DataGrid::StretchColumn(int column, int leastWidth) {
    stretchedColumn_ = column;
    leastWidth_ = leastWidth;
    FitColumns();
}

void DataGrid::ShareRoom(int firstColumn, int leastWidth) {
    firstShared_ = firstColumn;
    horizontalHeader()->setSectionsMovable(false); // days of a month
    leastWidth_ = leastWidth;
    horizontalHeader()->setMinimumSectionSize(qMin(leastWidth, horizontalHeader()->minimumSectionSize()));
    FitColumns();
}

void DataGrid::FitColumns() {
    if (stretchedColumn_ >= 0) {
        const int others = horizontalHeader()->length() - columnWidth(stretchedColumn_);
        setColumnWidth(stretchedColumn_, qMax(leastWidth_, viewport()->width() - others));
    }
    if (firstShared_ < 0)
        return;
    const int columns = horizontalHeader()->count();
    int room = viewport()->width();
    for (int column = 0; column < firstShared_; ++column)
        room -= columnWidth(column); // 0 for a frozen one
    for (int column = firstShared_; column < columns; ++column) {
        const int width = qMax(leastWidth_, room / (columns - column));
        setColumnWidth(column, width);
        room -= width;
    }
}

void DataGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
    if (IsEnter(event->key()) && currentIndex().isValid()) {
        Q_EMIT RowChosen(currentIndex().row());
        return;
    }
    QTableView::keyPressEvent(event);
}

void DataGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (emptyText_.isEmpty() || !model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(Theme::QuietText());
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}
