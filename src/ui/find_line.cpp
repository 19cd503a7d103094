#include "ui/find_line.h"

#include "core/row_search.h"
#include "ui/data_grid.h"
#include "ui/theme.h"
#include "ui/typing.h"
#include "ui/work_progress.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

FindLine::FindLine(DataGrid& grid, std::vector<int> columns)
    : QFrame(&grid), grid_(grid), columns_(std::move(columns)), txtFind_(new QLineEdit(this)),
      lblFound_(new QLabel(this)) {
    setObjectName(u"FindLine"_s);
    setProperty("look", u"group"_s);
    txtFind_->setObjectName(u"txtFind"_s);
    txtFind_->setPlaceholderText(u"Nomor atau nama"_s);
    txtFind_->setAccessibleName(u"Cari nomor atau nama"_s);
    txtFind_->setFixedWidth(Theme::FieldWidth(*txtFind_, u"Muhammad Ramadhan"_s));
    txtFind_->installEventFilter(this);
    lblFound_->setObjectName(u"lblFound"_s);
    lblFound_->setProperty("look", u"quiet"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::GroupGap, Theme::FieldGap, Theme::GroupGap, Theme::FieldGap);
    layout->setSpacing(Theme::GroupGap);
    layout->addWidget(new QLabel(u"Cari"_s, this));
    layout->addWidget(txtFind_);
    layout->addWidget(lblFound_, 1);
    grid.viewport()->installEventFilter(this);
    connect(txtFind_, &QLineEdit::textEdited, this, [this] { Walk(startRow_, 1); });
    hide();
}

void FindLine::Open() {
    startRow_ = qMax(0, grid_.currentIndex().row());
    lblFound_->setText(u"Enter: berikutnya · Esc: kembali"_s);
    Place();
    show();
    raise();
    txtFind_->selectAll();
    txtFind_->setFocus();
}

void FindLine::Place() {
    const QRect view = grid_.viewport()->geometry();
    const int height = sizeHint().height();
    setGeometry(view.left(), view.bottom() + 1 - height, view.width(), height);
}

void FindLine::Walk(int from, int step) {
    const QAbstractItemModel& model = *grid_.model();
    const QString text = txtFind_->text().trimmed();
    if (text.isEmpty())
        return lblFound_->clear();
    int row = FindRow(model, columns_, text, from, step);
    if (row < 0)
        row = FindRow(model, columns_, text, step > 0 ? 0 : model.rowCount() - 1, step);
    if (row < 0) {
        return lblFound_->setText(
            model.canFetchMore({})
                ? u"Tidak ada dalam %1 baris pertama. Enter: cari di semua baris."_s.arg(model.rowCount())
                : u"Tidak ditemukan."_s);
    }
    lblFound_->setText(u"Baris %1 · Enter: berikutnya · Esc: kembali"_s.arg(row + 1));
    const QModelIndex found = model.index(row, qMax(grid_.FixedCols(), grid_.currentIndex().column()));
    grid_.setCurrentIndex(found);
    grid_.scrollTo(found, QAbstractItemView::PositionAtCenter); // not under this line
}

int FindLine::FindFurther(int from) {
    QAbstractItemModel& model = *grid_.model();
    WorkProgress progress(window(), u"Mencari ..."_s);
    int row = -1;
    while (row < 0 && model.canFetchMore({})) {
        const int known = qMax(from, model.rowCount());
        model.fetchMore({});
        row = FindRow(model, columns_, txtFind_->text().trimmed(), known);
        if (!progress(model.rowCount(), 0))
            break;
    }
    return row;
}

bool FindLine::KeyDown(int key, bool shift) {
    const int row = grid_.currentIndex().row();
    if (key == Qt::Key_Escape) {
        hide();
        grid_.setFocus();
    } else if (key == Qt::Key_Up || (shift && (IsEnter(key) || key == Qt::Key_F3))) {
        Walk(row - 1, -1);
    } else if (key == Qt::Key_Down || key == Qt::Key_F3 || IsEnter(key)) {
        const QString text = txtFind_->text().trimmed();
        const bool further = !text.isEmpty() && grid_.model()->canFetchMore({})
                             && FindRow(*grid_.model(), columns_, text, row + 1) < 0;
        const int found = further ? FindFurther(row + 1) : -1;
        Walk(found >= 0 ? found : row + 1, 1);
    } else {
        return false;
    }
    startRow_ = qMax(0, grid_.currentIndex().row());
    return true;
}

bool FindLine::eventFilter(QObject* watched, QEvent* event) {
    if (watched != txtFind_) { // the grid's cells
        if (event->type() == QEvent::Resize && isVisible())
            Place();
        return false;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        return KeyDown(key.key(), key.modifiers().testFlag(Qt::ShiftModifier));
    }
    if (event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason)
        hide();
    return false;
}
