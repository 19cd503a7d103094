#include "ui/data_grid.h"

#include "ui/frozen_columns.h"
#include "ui/theme.h"
#include "ui/typing.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

/// How much narrower than usual a text can be written and still be read.
constexpr qreal NarrowestText = 0.55;
/// What widths in whole pixels may lack.
constexpr int Rounding = 2;

/// Paints a cell: the row's own colour or that of what is to be noticed about the cell, which it keeps in a
/// selected row; then the text, set off from the lines of the grid.
class CellDelegate : public QStyledItemDelegate {
public:
    explicit CellDelegate(DataGrid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        QColor textColour = cell.palette.color(QPalette::Text);
        QBrush fill = cell.backgroundBrush;
        if (cell.state.testFlag(QStyle::State_Selected))
            fill = cell.palette.highlight();
        const CellLook look = LookOf(index);
        if (const auto colours = Theme::LookColours(look)) {
            if (colours->fill.isValid())
                fill = QBrush(colours->fill, look == CellLook::Hatched ? Qt::BDiagPattern : Qt::SolidPattern);
            if (colours->text.isValid())
                textColour = colours->text;
        }
        cell.font.setBold(IsChip(look));
        if (grid_->EditsCells())
            ColourEdited(index, fill, textColour);
        painter->save();
        if (fill.style() != Qt::NoBrush)
            painter->fillRect(cell.rect, fill);
        painter->setPen(textColour);
        painter->setFont(cell.font);
        PaintText(*painter, cell, index);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * Theme::CellPadding, 0);
    }

private:
    static CellLook LookOf(const QModelIndex& index) {
        return static_cast<CellLook>(index.data(CellLookRole).toInt());
    }

    void PaintText(QPainter& painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const {
        const QFontMetrics metrics(cell.font);
        const bool narrow = grid_->SharesRoom(index.column());
        const int padding = narrow ? qMin(Theme::CellPadding, cell.rect.width() / 12) : Theme::CellPadding;
        QRect room = cell.rect.adjusted(padding, 0, -padding, 0);
        // A text of several lines has one line here.
        QString text = QString(cell.text).replace(QChar::LineSeparator, u' ');
        const int wanted = metrics.horizontalAdvance(text);
        if (narrow && wanted > room.width()) {
            const qreal scale = qMax(NarrowestText, static_cast<qreal>(room.width()) / wanted);
            painter.translate(room.left(), 0);
            painter.scale(scale, 1);
            room = QRect(0, room.top(), qCeil(room.width() / scale) + Rounding, room.height());
        }
        text = metrics.elidedText(text, Qt::ElideRight, room.width());
        painter.drawText(room, static_cast<int>(cell.displayAlignment), text);
    }

    /// The colours that editing gives a cell, over those that it has.
    void ColourEdited(const QModelIndex& index, QBrush& fill, QColor& textColour) const {
        const QModelIndex current = grid_->currentIndex();
        const bool fixed = index.column() < grid_->FixedCols();
        const CellLook look = LookOf(index);
        const bool keepsFill = look == CellLook::Hatched || look == CellLook::Doubtful || IsChip(look);
        if (index == current && !fixed) {
            fill = Theme::EditedCell();
            textColour = Qt::black;
        } else if (grid_->IsMarkedUnsaved(index)) {
            fill = Theme::Warning().fill;
            textColour = Theme::Warning().text;
        } else if (fixed) {
            fill = index.row() == current.row() ? grid_->palette().highlight() : QBrush(Theme::HeaderFill());
        } else if (index.row() == current.row() && !keepsFill) {
            fill = grid_->palette().highlight();
        }
    }

    DataGrid* grid_;
};

/// Paints the titles of columns whose headers do not answer quietly and without the mouse's colours.
class GridHeader : public QHeaderView {
public:
    explicit GridHeader(DataGrid* grid) : QHeaderView(Qt::Horizontal, grid), grid_(grid) {}

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override {
        QHeaderView::initStyleOptionForIndex(option, column);
        if (grid_->HeaderAnswers(column))
            return;
        option->state &= ~(QStyle::State_MouseOver | QStyle::State_Sunken);
        option->palette.setColor(QPalette::ButtonText, Theme::QuietText());
    }

private:
    DataGrid* grid_;
};

} // namespace

DataGrid::DataGrid(QWidget* parent) : QTableView(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setItemDelegate(new CellDelegate(this));
    setHorizontalHeader(new GridHeader(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
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
    if (EditsCells() && current.row() != previous.row())
        viewport()->update(); // the tint of the row moves along
    if (frozen_)
        frozen_->viewport()->update();
}

void DataGrid::FreezeColumns(int count) {
    frozen_ = new FrozenColumns(*this, count);
    updateGeometries();
    connect(frozen_->horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        frozen_->TakeRoom();
        updateGeometries();
        FitColumns();
    });
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
