#include "ui/pick_list.h"

#include "core/text_table.h"
#include "ui/data_grid.h"
#include "ui/theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int VisibleRows = 10;
constexpr int WrongConnectionNumber = 3705;

} // namespace

PickList::PickList(Program& program, QWidget* parent)
    : QFrame(parent, Qt::Popup), program_(program), rows_(new modGeneral::TextGrid(this)),
      filtered_(new QSortFilterProxyModel(this)), filter_(new QLineEdit(this)), grid_(new DataGrid(this)),
      reason_(new QLabel(this)),
      hint_(new QLabel(u"Ketik untuk mencari · Enter memilih · Esc batal"_s, this)) {
    setObjectName(u"PickList"_s);
    setFrameShape(StyledPanel);
    filter_->setObjectName(u"txtFilter"_s);
    filter_->setPlaceholderText(u"Cari"_s);
    filter_->setAccessibleName(u"Cari"_s);
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    grid_->setObjectName(u"grdList"_s);
    grid_->setFocusPolicy(Qt::NoFocus);
    grid_->SetEmptyText(u"Tidak ada data untuk kriteria ini."_s);
    reason_->setObjectName(u"lblReason"_s);
    reason_->setProperty("look", u"caps"_s);
    reason_->setTextFormat(Qt::PlainText);
    hint_->setProperty("look", u"quiet"_s);

    filtered_->setSourceModel(rows_);
    filtered_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    filtered_->setFilterKeyColumn(-1);
    grid_->setModel(filtered_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Theme::GroupGap, Theme::GroupGap, Theme::GroupGap, Theme::GroupGap);
    layout->setSpacing(Theme::FieldGap);
    layout->addWidget(reason_);
    layout->addWidget(filter_);
    layout->addWidget(grid_);
    layout->addWidget(hint_);

    connect(filter_, &QLineEdit::textChanged, this, &PickList::ApplyFilter);
    connect(grid_, &DataGrid::RowChosen, this, &PickList::Choose);
}

void PickList::ShowList(QWidget* anchor, double left, double top) {
    anchor_ = anchor;
    itemSelected_ = false;
    values_.clear();
    filter_->clear();
    reason_->setText(Reason);
    reason_->setVisible(!Reason.isEmpty());
    if (!Trapped(program_, u"ShowList"_s, [this] { Fill(); })) {
        Q_EMIT LOV_AfterListClose(anchor_, {});
        return;
    }
    closeTold_ = false;
    Place(left, top);
    show();
    filter_->setFocus();
    ChooseFirst(Reason.isEmpty());
}

void PickList::Fill() {
    if (ConnectionString != program_.Db().ConnectionString())
        throw ProgramError(WrongConnectionNumber, u"Daftar pilihan memakai koneksi database yang lain."_s);
    Cursor rows = program_.Db().Query(SqlText);
    rows_->SetHeaders(rows.ColumnNames());
    const int columns = rows_->columnCount();
    std::vector<QStringList> lines;
    while (rows.Next()) {
        QStringList line;
        for (int column = 0; column < columns; ++column)
            line << rows.Text(column);
        lines.push_back(std::move(line));
    }
    rows_->SetRows(std::move(lines));
}

void PickList::Place(double left, double top) {
    grid_->horizontalHeader()->setResizeContentsPrecision(200);
    grid_->resizeColumnsToContents();
    grid_->horizontalHeader()->setStretchLastSection(true);
    const int rowHeight = grid_->verticalHeader()->defaultSectionSize();
    grid_->setFixedHeight(grid_->horizontalHeader()->sizeHint().height() + VisibleRows * rowHeight + 4);
    int width = grid_->verticalScrollBar()->sizeHint().width() + 3 * Theme::GroupGap;
    for (int column = 0; column < filtered_->columnCount(); ++column)
        width += grid_->columnWidth(column);
    const QScreen* screen = anchor_ ? anchor_->screen() : QWidget::screen();
    const QRect room = screen->availableGeometry();
    setFixedWidth(qMin(qMax(width, hint_->sizeHint().width() + 3 * Theme::GroupGap), room.width()));
    adjustSize();

    constexpr int gap = 2;
    QPoint place = anchor_ ? anchor_->mapToGlobal(QPoint(0, anchor_->height() + gap)) : QPoint(0, 0);
    if (anchor_) {
        // Above its field where there is more room than below: it never covers what it is for.
        const int below = room.bottom() + 1 - place.y();
        const int above = place.y() - 2 * gap - anchor_->height() - room.top();
        if (const int missing = this->height() - qMax(below, above); missing > 0) {
            grid_->setFixedHeight(grid_->height() - missing);
            adjustSize();
        }
        if (this->height() > below)
            place.setY(room.top() + above - this->height());
    }
    if (left >= 0 && top >= 0)
        place = QPoint(qRound(left), qRound(top));
    place.setX(qMax(room.left(), qMin(place.x(), room.right() + 1 - this->width())));
    place.setY(qMax(room.top(), qMin(place.y(), room.bottom() + 1 - this->height())));
    move(place);
}

void PickList::ApplyFilter(const QString& text) {
    const QString wanted = text.trimmed();
    filtered_->setFilterFixedString(wanted);
    ChooseFirst(Reason.isEmpty() || !wanted.isEmpty());
}

void PickList::ChooseFirst(bool chosen) {
    if (chosen)
        grid_->selectRow(0);
    else
        grid_->setCurrentIndex({});
}

void PickList::Choose(int row) {
    if (row < 0 || row >= filtered_->rowCount())
        return;
    for (int column = 0; column < filtered_->columnCount(); ++column)
        values_.insert(rows_->headerData(column, Qt::Horizontal).toString(),
                       filtered_->index(row, column).data());
    itemSelected_ = true;
    hide();
}

/// The filter keeps the focus; the keys that walk the rows go on to the grid.
bool PickList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == filter_ && event->type() == QEvent::KeyPress)
        return HandleFilterKey(static_cast<QKeyEvent*>(event)->key());
    return QFrame::eventFilter(watched, event);
}

bool PickList::HandleFilterKey(int key) {
    const int row = grid_->currentIndex().row();
    const int last = filtered_->rowCount() - 1;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Choose(row);
        return true;
    case Qt::Key_Escape:
        hide();
        return true;
    case Qt::Key_Down:
        grid_->selectRow(qMin(row + 1, last));
        return true;
    case Qt::Key_Up:
        grid_->selectRow(qMax(row - 1, 0));
        return true;
    case Qt::Key_PageDown:
        grid_->selectRow(qMin(row + VisibleRows, last));
        return true;
    case Qt::Key_PageUp:
        grid_->selectRow(qMax(row - VisibleRows, 0));
        return true;
    default:
        return false;
    }
}

void PickList::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (std::exchange(closeTold_, true))
        return;
    Q_EMIT LOV_AfterListClose(anchor_, values_);
}

void OpenPickList(Program& program, QWidget& field, const QString& query,
                  std::function<void(const QVariantMap& chosen)> choose, const QString& reason) {
    Trapped(program, u"OpenPickList"_s, [&] {
        auto* list = new PickList(program, field.window());
        QObject::connect(list, &PickList::LOV_AfterListClose, list,
                         [list, choose = std::move(choose)](QWidget*, const QVariantMap& values) {
                             list->deleteLater();
                             if (list->ItemSelected())
                                 choose(values);
                         });
        list->ConnectionString = program.Db().ConnectionString();
        list->SqlText = query;
        list->Reason = reason;
        list->ShowList(&field, -1.0, -1.0);
    });
}
