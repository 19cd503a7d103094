#include "ui/cell_delegate.h"

#include "core/shown_figure.h"
#include "ui/code_tint.h"
#include "ui/data_grid.h"
#include "ui/theme.h"

#include <QPainter>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

/// How much smaller, and then narrower, than usual a text can be written and still be read easily.
constexpr qreal SmallText = 0.85;
constexpr qreal NarrowestText = 0.75;
/// Between a chip and the lines of the grid.
constexpr int ChipGap = 4;
static_assert(CellTintRole != FigureRole && CellLookRole != FigureRole, "a cell answers to each by itself");
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
    const CellLook look = LookOf(index);
    const std::optional<Theme::Colours> colours = Theme::LookColours(look);
    QColor textColour = cell.palette.color(QPalette::Text);
    QBrush fill = cell.backgroundBrush;
    if (cell.state.testFlag(QStyle::State_Selected))
        fill = cell.palette.highlight();
    const bool dayInBlock = cell.state.testFlag(QStyle::State_Selected) && grid_->EditsCells()
                            && (look == CellLook::Tinted || look == CellLook::Marked);
    if (colours && colours->fill.isValid() && !IsChip(look) && !dayInBlock)
        fill = QBrush(colours->fill, look == CellLook::Hatched ? Qt::BDiagPattern : Qt::SolidPattern);
    if (colours && colours->text.isValid())
        textColour = colours->text;
    const auto tinted = TintedFill(CodeTint(index.data(CellTintRole).toString()), look);
    if (tinted && !cell.state.testFlag(QStyle::State_Selected))
        fill = *tinted;
    const bool edited = IsEdited(index);
    if (edited)
        textColour = Qt::black;
    if (grid_->EditsCells())
        fill = edited ? QBrush(Theme::Tone(u"edited")) : TintedRow(index, fill);
    painter->save();
    if (fill.style() != Qt::NoBrush)
        painter->fillRect(cell.rect, fill);
    painter->fillRect(QRect(cell.rect.bottomLeft(), QSize(cell.rect.width(), 1)), Theme::Tone(u"line"));
    cell.font.setBold(IsChip(look));
    painter->setFont(cell.font);
    painter->setPen(textColour);
    if (IsChip(look) && !edited && !cell.text.isEmpty())
        PaintChip(*painter, cell, colours->fill);
    else
        PaintText(*painter, cell, index);
    if (grid_->IsMarkedUnsaved(index))
        PaintUnsaved(*painter, cell.rect, index);
    painter->restore();
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = ShownFigure(static_cast<Figure>(index.data(FigureRole).toInt()), option->text);
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * Theme::CellPadding, 0);
}

void CellDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& cell,
                             const QModelIndex& index) const {
    const bool narrow = grid_->SharesRoom(index.column()) && cell.rect.width() < 2 * cell.rect.height();
    QFont font = cell.font;
    if (narrow)
        font.setPointSizeF(font.pointSizeF() * SmallText);
    painter.setFont(font);
    const QFontMetrics metrics(font);
    const int padding = narrow ? qMin(Theme::CellPadding, cell.rect.width() / 18) : Theme::CellPadding;
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

/// Codes are short: their chips have the same width, as far as the column has room.
void CellDelegate::PaintChip(QPainter& painter, const QStyleOptionViewItem& cell, const QColor& fill) const {
    const QFontMetrics metrics(cell.font);
    const int text = qMax(metrics.horizontalAdvance(cell.text), metrics.horizontalAdvance(u"MM"_s));
    const int above = qBound(1, (cell.rect.height() - metrics.height() - 2) / 2, ChipGap);
    const QRect chip(cell.rect.left() + ChipGap, cell.rect.top() + above,
                     qMin(cell.rect.width() - 2 * ChipGap, text + 2 * Theme::CellPadding),
                     cell.rect.height() - 2 * above - 1);
    const QPen pen = painter.pen();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(chip, chip.height() / 2.0, chip.height() / 2.0);
    painter.setPen(pen);
    painter.drawText(chip, Qt::AlignCenter, cell.text);
}

/// A corner of the cell, or a dot where the rows are numbered.
void CellDelegate::PaintUnsaved(QPainter& painter, const QRect& cell, const QModelIndex& index) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Tone(u"failed"));
    const qreal size = cell.height() / 3.0;
    if (index.column() < grid_->FixedCols())
        painter.drawEllipse(QPointF(cell.left() + Theme::CellPadding, cell.center().y()), size / 3, size / 3);
    else
        painter.drawPolygon(QPolygonF{cell.topRight() + QPointF(1 - size, 0), cell.topRight() + QPointF(1, 0),
                                      cell.topRight() + QPointF(1, size)});
}

/// The cell that keys go to, while they go to this grid or its editor: also under a list or a message that
/// stands over the window.
bool CellDelegate::IsEdited(const QModelIndex& index) const {
    const QWidget* focus = grid_->window()->focusWidget();
    return grid_->EditsCells() && index == grid_->currentIndex() && index.column() >= grid_->FixedCols()
           && (focus == grid_ || grid_->isAncestorOf(focus));
}

QBrush CellDelegate::TintedRow(const QModelIndex& index, const QBrush& fill) const {
    const bool inRow = index.row() == grid_->currentIndex().row();
    if (index.column() < grid_->FixedCols())
        return inRow ? grid_->palette().highlight() : QBrush(Theme::Tone(u"header"));
    return inRow && fill.style() == Qt::NoBrush ? QBrush(Theme::Tone(u"row")) : fill;
}
