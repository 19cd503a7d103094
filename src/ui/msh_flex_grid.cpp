#include "ui/msh_flex_grid.h"

#include "ui/theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

class StatusDelegate : public QStyledItemDelegate {
public:
    StatusDelegate(int role, QObject* parent) : QStyledItemDelegate(parent), role_(role) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto colours = Theme::StatusColours(index.data(role_).toString());
        if (!colours)
            return;
        if (colours->fill.isValid())
            option->backgroundBrush = colours->fill;
        option->palette.setColor(QPalette::Text, colours->text);
        option->palette.setColor(QPalette::HighlightedText, colours->text);
        option->font.setBold(colours->fill.isValid());
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        // A selected row keeps the colour of its status.
        QStyleOptionViewItem plain = option;
        if (Theme::StatusColours(index.data(role_).toString()))
            plain.state.setFlag(QStyle::State_Selected, false);
        QStyledItemDelegate::paint(painter, plain, index);
    }

private:
    int role_;
};

} // namespace

MSHFlexGrid::MSHFlexGrid(QWidget* parent) : QTableView(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionPressed, this, &MSHFlexGrid::HeaderPressed);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT RowChosen(index.row()); });
}

void MSHFlexGrid::PaintStatus(int column, int role) {
    setItemDelegateForColumn(column, new StatusDelegate(role, this));
}

void MSHFlexGrid::SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

void MSHFlexGrid::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers().testFlag(Qt::ControlModifier) == false && currentIndex().isValid()) {
        Q_EMIT RowChosen(currentIndex().row());
        return;
    }
    QTableView::keyPressEvent(event);
}

void MSHFlexGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (emptyText_.isEmpty() || !model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(Theme::QuietText());
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}
