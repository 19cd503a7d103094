#include "ui/grid_blocks.h"

#include "core/first_lines.h"
#include "core/tabbed_text.h"
#include "core/table_model.h"
#include "ui/busy_pointer.h"
#include "ui/data_grid.h"
#include "ui/find_line.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

TableModel& ModelOf(const DataGrid& grid) {
    return *qobject_cast<TableModel*>(grid.model());
}

} // namespace

GridBlocks::GridBlocks(Program& program, DataGrid& grid, BlockEditing editing, std::function<bool()> settle)
    : QObject(&grid), program_(program), grid_(grid), editing_(std::move(editing)),
      settle_(std::move(settle)) {
    grid.setContextMenuPolicy(Qt::ActionsContextMenu);
    AddActions();
    if (editing_.sorts)
        SortByHeaders();
}

void GridBlocks::AddActions() {
    AddAction(u"&Salin"_s, QKeySequence::Copy, [this] { Copy(); });
    if (editing_.writeCells) {
        AddAction(u"&Tempel"_s, QKeySequence::Paste, [this] { Paste(); });
        AddAction(u"Isi ke &bawah"_s, Qt::CTRL | Qt::Key_D, [this] { Fill(Qt::Vertical); });
        AddAction(u"Isi ke &kanan"_s, Qt::CTRL | Qt::Key_R, [this] { Fill(Qt::Horizontal); });
        AddSeparator();
        AddAction(u"B&atalkan yang tersimpan"_s, Qt::CTRL | Qt::Key_Z, [this] { Undo(); });
        AddAction(u"&Ulangi"_s, Qt::CTRL | Qt::Key_Y, [this] { Redo(); });
    }
    AddSeparator();
    AddAction(u"&Pilih semua"_s, QKeySequence::SelectAll, [this] { grid_.selectAll(); });
    if (!editing_.nameColumns.empty())
        AddAction(u"&Cari nomor atau nama"_s, QKeySequence::Find, [this] { Find(); });
}

QAction* GridBlocks::AddAction(const QString& text, const QKeySequence& keys,
                               const std::function<void()>& action) {
    auto* added = new QAction(text, &grid_);
    added->setShortcut(keys);
    added->setShortcutContext(Qt::WidgetShortcut);
    connect(added, &QAction::triggered, this,
            [this, action, name = added->text()] { Trapped(program_, name, action); });
    grid_.addAction(added);
    return added;
}

void GridBlocks::AddSeparator() {
    auto* separator = new QAction(&grid_);
    separator->setSeparator(true);
    grid_.addAction(separator);
}

QList<int> GridBlocks::ColumnsFrom(int column) const {
    const QHeaderView& header = *grid_.horizontalHeader();
    QList<int> columns;
    for (int place = header.visualIndex(column); place < header.count(); ++place) {
        if (!header.isSectionHidden(header.logicalIndex(place)))
            columns << header.logicalIndex(place);
    }
    return columns;
}

GridBlocks::CellBlock GridBlocks::Block() const {
    const QModelIndex current = grid_.currentIndex();
    if (!current.isValid())
        return {};
    QItemSelection selection = grid_.selectionModel()->selection();
    if (selection.isEmpty())
        selection.select(current, current);
    int top = current.row();
    int bottom = top;
    QList<int> columns;
    for (const QItemSelectionRange& range : selection) {
        top = qMin(top, range.top());
        bottom = qMax(bottom, range.bottom());
        for (int column = range.left(); column <= range.right(); ++column) {
            if (!columns.contains(column))
                columns << column;
        }
    }
    std::ranges::sort(columns, {}, [&](int column) { return grid_.horizontalHeader()->visualIndex(column); });
    return {top, bottom - top + 1, columns};
}

CellChange GridBlocks::ChangeOf(int row, int column, const QString& text) const {
    return {ModelOf(grid_).RowKey(row), column, text};
}

void GridBlocks::Copy() {
    const BusyPointer busy;
    const CellBlock block = Block();
    if (block.columns.isEmpty())
        return;
    QList<QStringList> rows;
    for (int row = block.top; row < block.top + block.rows; ++row) {
        QStringList cells;
        for (const int column : block.columns) {
            const bool secret = std::ranges::count(editing_.secretColumns, column) > 0;
            cells << (secret ? QString() : grid_.model()->index(row, column).data().toString());
        }
        rows << cells;
    }
    // A single cell goes where no line end may follow it.
    const bool single = block.rows == 1 && block.columns.size() == 1;
    QGuiApplication::clipboard()->setText(single ? rows[0][0] : TabbedText(rows));
    Tell(u"%1 sel disalin."_s.arg(block.rows * block.columns.size()));
}

void GridBlocks::Paste() {
    const QList<QStringList> copied = ReadTabbedText(QGuiApplication::clipboard()->text());
    const CellBlock block = Block();
    if (copied.isEmpty() || block.columns.isEmpty())
        return Tell(u"Tidak ada yang dapat ditempel."_s);
    qsizetype width = 0;
    for (const QStringList& row : copied)
        width = qMax(width, row.size());
    // A larger block takes the copied one as often as it fits: a single value in all its cells.
    const qsizetype height = block.rows % copied.size() == 0 ? block.rows : copied.size();
    const QList<int> columns = ColumnsFrom(block.columns.first());
    if (block.columns.size() % width == 0)
        width = block.columns.size();
    if (block.top + height > grid_.model()->rowCount() || width > columns.size())
        return program_.dialogs.Warn(u"Tidak ada yang ditempel: %1 baris x %2 kolom tidak muat mulai dari "
                                     u"baris %3. Pindah ke sel kiri "
                                     "atas tempatnya, lalu tempel lagi."_s.arg(height)
                                         .arg(width)
                                         .arg(block.top + 1));
    std::vector<CellChange> changes;
    for (int row = 0; row < height; ++row) {
        const QStringList& cells = copied[row % copied.size()];
        for (int column = 0; column < width; ++column)
            changes.push_back(ChangeOf(block.top + row, columns[column], cells.value(column % cells.size())));
    }
    Write(std::move(changes), u"Tempel"_s);
}

void GridBlocks::Fill(Qt::Orientation direction) {
    const CellBlock block = Block();
    if (block.columns.isEmpty())
        return;
    const bool down = direction == Qt::Vertical;
    // A block of one line is filled from the line before it.
    const bool fromBefore = down ? block.rows == 1 : block.columns.size() == 1;
    const QModelIndex first = grid_.model()->index(block.top, block.columns.first());
    const int place = grid_.horizontalHeader()->visualIndex(first.column());
    if (fromBefore && (down ? first.row() == 0 : place == 0))
        return;
    const int sourceRow = fromBefore && down ? first.row() - 1 : first.row();
    const int sourceColumn =
        fromBefore && !down ? grid_.horizontalHeader()->logicalIndex(place - 1) : first.column();
    std::vector<CellChange> changes;
    for (int row = block.top; row < block.top + block.rows; ++row) {
        for (const int column : block.columns) {
            const QModelIndex source =
                grid_.model()->index(down ? sourceRow : row, down ? column : sourceColumn);
            changes.push_back(ChangeOf(row, column, source.data(Qt::EditRole).toString()));
        }
    }
    Write(std::move(changes), down ? u"Isi ke bawah"_s : u"Isi ke kanan"_s);
}

bool GridBlocks::EmptyBlock() {
    const CellBlock block = Block();
    if (!editing_.emptiesCells || !editing_.writeCells || block.rows * block.columns.size() < 2)
        return false;
    std::vector<CellChange> changes;
    for (int row = block.top; row < block.top + block.rows; ++row) {
        for (const int column : block.columns) {
            if (column >= grid_.FixedCols())
                changes.push_back(ChangeOf(row, column, u""_s));
        }
    }
    Write(std::move(changes), u"Kosongkan"_s);
    return true;
}

bool GridBlocks::Write(std::vector<CellChange> changes, const QString& what) {
    if (!settle_())
        return false;
    TableModel& model = ModelOf(grid_);
    std::erase_if(changes, [&](const CellChange& change) {
        const QModelIndex cell = model.index(model.RowOfKey(change.rowKey), change.column);
        return cell.isValid() && cell.data(Qt::EditRole).toString() == change.text
               && !grid_.IsMarkedUnsaved(cell);
    });
    if (changes.empty()) {
        Tell(u"%1: tidak ada sel yang berubah."_s.arg(what));
        return true;
    }
    CellsOutcome outcome;
    const bool ran = Trapped(program_, what, [&] {
        const BusyPointer busy;
        outcome = editing_.writeCells(changes);
    });
    if (!ran || !outcome.refused.empty()) {
        Tell(u"%1: tidak ada yang disimpan."_s.arg(what));
        if (ran)
            Warn(u"%1: tidak ada yang disimpan, karena %2 sel ditolak."_s.arg(what).arg(
                     outcome.refused.size()),
                 outcome.refused);
        return false;
    }
    for (const CellChange& change : changes)
        grid_.MarkUnsaved(model.index(model.RowOfKey(change.rowKey), change.column), false);
    history_.Record(std::move(outcome.takeBack));
    Tell(u"%1: %2 sel disimpan. Ctrl+Z membatalkan."_s.arg(what).arg(changes.size()));
    return true;
}

void GridBlocks::Undo() {
    if (!settle_())
        return;
    if (!history_.CanUndo())
        return Tell(u"Tidak ada yang dapat dibatalkan sejak jendela ini dibuka."_s);
    const BusyPointer busy;
    Tell(history_.Undo(editing_.writeCells), u"Dibatalkan"_s);
}

void GridBlocks::Redo() {
    if (!settle_())
        return;
    if (!history_.CanRedo())
        return Tell(u"Tidak ada yang dapat diulangi."_s);
    const BusyPointer busy;
    Tell(history_.Redo(editing_.writeCells), u"Diulangi"_s);
}

void GridBlocks::Tell(const CellHistory::Replayed& replayed, const QString& what) {
    Tell(u"%1: %2 sel."_s.arg(what).arg(replayed.written));
    if (!replayed.refused.empty())
        Warn(u"%1: %2 sel. %3 sel tidak, karena isinya bukan lagi yang disimpan di sini."_s.arg(what)
                 .arg(replayed.written)
                 .arg(replayed.refused.size()),
             replayed.refused);
}

void GridBlocks::Warn(const QString& heading, const std::vector<RefusedCell>& refused) {
    const QStringList lines = FirstLines(refused, u"sel"_s, [this](const RefusedCell& cell) {
        return NameOf(cell.change) + u": "_s + cell.reason;
    });
    program_.dialogs.Warn(heading + u'\n' + lines.join(u'\n'));
}

QString GridBlocks::NameOf(const CellChange& change) const {
    const TableModel& model = ModelOf(grid_);
    const int row = model.RowOfKey(change.rowKey);
    QStringList name;
    for (const int column : editing_.nameColumns)
        name << model.index(row, column).data().toString();
    if (name.isEmpty())
        name << u"baris %1"_s.arg(row + 1);
    name << model.headerData(change.column, Qt::Horizontal).toString();
    return name.join(u' ');
}

/// The grid's own words about the cell that is entered come first.
void GridBlocks::Tell(const QString& text) {
    if (editing_.tell)
        QMetaObject::invokeMethod(
            this, [this, text] { editing_.tell(text); }, Qt::QueuedConnection);
}

void GridBlocks::Find() {
    if (!findLine_)
        findLine_ = new FindLine(grid_, editing_.nameColumns);
    findLine_->Open();
}

void GridBlocks::SortByHeaders() {
    QHeaderView& header = *grid_.horizontalHeader();
    header.setSortIndicator(sortedBy_, Qt::AscendingOrder);
    header.setSortIndicatorClearable(true);
    header.setSortIndicatorShown(true);
    connect(&header, &QHeaderView::sortIndicatorChanged, this, &GridBlocks::Sort);
}

void GridBlocks::Sort(int column, Qt::SortOrder order) {
    QHeaderView& header = *grid_.horizontalHeader();
    if (!settle_()) {
        const QSignalBlocker blocker(header);
        return header.setSortIndicator(sortedBy_, header.sortIndicatorOrder());
    }
    sortedBy_ = column;
    const QModelIndex current = grid_.currentIndex();
    const QString key = current.isValid() ? ModelOf(grid_).RowKey(current.row()) : QString();
    const int currentColumn = current.column();
    Trapped(program_, u"Sort"_s, [&] {
        const BusyPointer busy;
        grid_.model()->sort(column, order);
    });
    if (const int row = key.isNull() ? -1 : ModelOf(grid_).RowOfKey(key); row >= 0)
        grid_.setCurrentIndex(grid_.model()->index(row, currentColumn));
    grid_.scrollTo(grid_.currentIndex());
}
