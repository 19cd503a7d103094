#include "ui/cell_delegate.h"

#include "ui/data_grid.h"
#include "ui/theme.h"

#include <QPainter>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

/// How much narrower than usual a text can be written and still be read.
constexpr qreal NarrowestText = 0.55;
/// What widths in whole pixels may lack.
constexpr int Rounding = 2;

CellLook LookOf(const QModelIndex& index) {
    return static_cast<CellLook>(index.data(CellLookRole).toInt());
}

} // namespace

CellDelegate::CellDelegate(DataGrid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
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

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * Theme::CellPadding, 0);
}

void CellDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& cell,
                             const QModelIndex& index) const {
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

void CellDelegate::ColourEdited(const QModelIndex& index, QBrush& fill, QColor& textColour) const {
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
