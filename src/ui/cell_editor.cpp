#include "ui/cell_editor.h"

#include "core/table_model.h"
#include "database/database_error.h"
#include "ui/data_grid.h"
#include "ui/grid_blocks.h"
#include "ui/typing.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Whether a character typed in the grid opens the editor: digits, letters, what stands between them in the
/// character set, "%" and "-". Others are the grid's own keys.
bool StartsEditing(QChar typed) {
    const char16_t code = typed.unicode();
    return typed.isPrint() && ((code >= 48 && code <= 90) || code >= 96 || code == u'%' || code == u'-');
}

bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr
           || key == Qt::Key_Meta || key == Qt::Key_CapsLock;
}

/// What a cell holds for editing: what it shows, where the model makes no difference.
QString TextOf(const QModelIndex& cell) {
    const QVariant edited = cell.data(Qt::EditRole);
    return (edited.isValid() ? edited : cell.data()).toString();
}

/// Where the keys lead that enter a text and go on, as columns and rows.
std::optional<QPoint> StepsAfter(const QKeyEvent& event) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return std::nullopt;
    if (event.key() == Qt::Key_Backtab || (event.key() == Qt::Key_Tab && shift))
        return QPoint(-1, 0);
    if (event.key() == Qt::Key_Tab)
        return QPoint(1, 0);
    if (event.key() == Qt::Key_Up && !shift)
        return QPoint(0, -1);
    if (event.key() == Qt::Key_Down && !shift)
        return QPoint(0, 1);
    return std::nullopt;
}

bool OpensPickList(const QKeyEvent& event) {
    return event.key() == Qt::Key_F9
           || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}

} // namespace

CellEditor::CellEditor(Program& program, DataGrid& grid, CellEditing editing)
    : QObject(&grid), program_(program), grid_(grid), editing_(std::move(editing)),
      viewport_(grid.viewport()), text1_(new QLineEdit(grid.viewport())),
      cmdLov_(new QToolButton(grid.viewport())),
      blocks_(new GridBlocks(program, grid, editing_, [this] { return SaveRow(); })) {
    grid.EditCells(editing_.fixedColumns);
    text1_->setObjectName(u"Text1"_s);
    text1_->setProperty("look", u"cell"_s);
    text1_->setAccessibleName(u"Isi sel"_s);
    text1_->hide();
    cmdLov_->setObjectName(u"cmdLov"_s);
    cmdLov_->setArrowType(Qt::DownArrow);
    cmdLov_->setFocusPolicy(Qt::NoFocus);
    cmdLov_->setToolTip(u"Pilih dari daftar (F9)"_s);
    cmdLov_->setAccessibleName(u"Pilih dari daftar"_s);
    cmdLov_->hide();

    connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this, &CellEditor::EnterCell);
    connect(&grid, &QTableView::clicked, this, &CellEditor::EnterCell);
    connect(&grid, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
        if (editing_.gridDoubleClick)
            Trapped(program_, u"DblClick"_s, [&] { editing_.gridDoubleClick(cell); });
    });
    connect(cmdLov_, &QToolButton::clicked, this, [this] { OpenPickList(); });
    connect(grid.model(), &QAbstractItemModel::modelReset, this, &CellEditor::Forget);
    for (QScrollBar* bar : {grid.horizontalScrollBar(), grid.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &CellEditor::Drop);
    for (QHeaderView* header : {grid.horizontalHeader(), grid.verticalHeader()}) {
        connect(header, &QHeaderView::sectionResized, this, &CellEditor::PlaceOverCell);
        connect(header, &QHeaderView::sectionMoved, this, &CellEditor::PlaceOverCell);
    }
    AddActions();
    grid.installEventFilter(this);
    grid.viewport()->installEventFilter(this);
    text1_->installEventFilter(this);
}

void CellEditor::AddActions() {
    blocks_->AddSeparator();
    blocks_->AddAction(u"Ubah &isi\tF2"_s, {}, [this] { OpenOnCurrentCell(); });
    if (editing_.openPickList)
        blocks_->AddAction(u"Pilih dari &daftar\tF9"_s, {}, [this] { OpenPickList(); });
    if (editing_.gridDeleteKey || editing_.emptiesCells)
        blocks_->AddAction(u"&Hapus\tDel"_s, {}, [this] { GridDeleteKey(); });
    if (editing_.saveRow)
        blocks_->AddAction(u"Simpan ba&ris"_s, QKeySequence::Save, [this] {
            if (!rowDirty_)
                blocks_->Tell(u"Baris ini sudah tersimpan."_s);
            SaveRow();
        });
}

void CellEditor::EnterCell(const QModelIndex& cell) {
    Drop();
    if (!cell.isValid())
        return;
    if (cell.row() != lastRow_) {
        SaveLastRow();
        lastRow_ = cell.row();
        rowDirty_ = unsavedRows_.erase(lastRow_) > 0;
    }
    if (HasPickList(cell))
        ShowPickButton();
}

void CellEditor::SaveLastRow() {
    if (!std::exchange(rowDirty_, false) || !editing_.saveRow)
        return;
    const int row = lastRow_;
    bool saved = false;
    Trapped(program_, u"EnterCell"_s, [&] { saved = editing_.saveRow(row); });
    if (!saved)
        unsavedRows_.insert(row);
    MarkRow(row, !saved);
}

bool CellEditor::SaveRow() {
    SaveLastRow();
    rowDirty_ = unsavedRows_.erase(lastRow_) > 0;
    return !rowDirty_;
}

/// The row's number tells that something in it is not saved, until nothing is.
void CellEditor::MarkRow(int row, bool unsaved) {
    const int columns = unsaved ? 1 : grid_.model()->columnCount();
    for (int column = 0; column < columns; ++column)
        grid_.MarkUnsaved(grid_.model()->index(row, column), unsaved);
}

bool CellEditor::MayEdit(const QModelIndex& cell) const {
    return cell.isValid() && cell.column() >= editing_.fixedColumns
           && (!editing_.mayEdit || editing_.mayEdit(cell));
}

bool CellEditor::HasPickList(const QModelIndex& cell) const {
    return cell.isValid() && std::ranges::count(editing_.pickListColumns, cell.column()) > 0;
}

bool CellEditor::GridKeyDown(const QKeyEvent& event) {
    const QModelIndex cell = grid_.currentIndex();
    if (OpensPickList(event)) {
        OpenPickList();
        return true;
    }
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    if (IsEnter(event.key())) {
        if (editing_.gridEnterKey && cell.isValid())
            Trapped(program_, u"OnEnter"_s, [&] { editing_.gridEnterKey(cell); });
        return true;
    }
    if (event.key() == Qt::Key_Delete) {
        GridDeleteKey();
        return true;
    }
    if (event.key() == Qt::Key_F2) {
        OpenOnCurrentCell();
        return true;
    }
    return GridKeyPress(event.text());
}

void CellEditor::GridDeleteKey() {
    const QModelIndex cell = grid_.currentIndex();
    if (!cell.isValid() || blocks_->EmptyBlock() || !editing_.gridDeleteKey)
        return;
    // What it asks and tells is about one row.
    if (blocks_->RowsOfBlock() > 1)
        return blocks_->Tell(u"Del bekerja pada satu baris. Pilih satu baris saja."_s);
    Trapped(program_, u"OnEnter"_s, [&] { editing_.gridDeleteKey(cell); });
}

bool CellEditor::GridKeyPress(const QString& typed) {
    if (typed.isEmpty() || !StartsEditing(typed.at(0)))
        return false;
    if (MayEdit(grid_.currentIndex()))
        Open(typed);
    text1_->deselect();
    return true;
}

void CellEditor::OpenOnCurrentCell() {
    if (!MayEdit(grid_.currentIndex()))
        return;
    Open(TextOf(grid_.currentIndex()));
    text1_->selectAll();
}

void CellEditor::Open(const QString& text) {
    grid_.scrollTo(grid_.currentIndex());
    textBefore_ = TextOf(grid_.currentIndex());
    text1_->setAlignment(Qt::Alignment(grid_.currentIndex().data(Qt::TextAlignmentRole).toInt()));
    text1_->setText(text);
    // In a narrow column it is written as narrow as the cells are, right up to the frame.
    const bool narrow = grid_.SharesRoom(grid_.currentIndex().column());
    QFont font = grid_.font();
    font.setStretch(narrow ? QFont::ExtraCondensed : QFont::Unstretched);
    text1_->setFont(font);
    text1_->setTextMargins(narrow ? QMargins(-5, 0, -5, 0) : QMargins());
    PlaceOverCell();
    text1_->show();
    text1_->setFocus();
}

bool CellEditor::Text1_KeyDown(const QKeyEvent& event) {
    if (IsModifier(event.key()))
        return false;
    if (text1_->text().trimmed().isEmpty()) {
        Hide();
        if (!textBefore_.isEmpty())
            blocks_->Tell(u"Isi sel tetap \"%1\": tidak ada yang diketik."_s.arg(textBefore_));
        // What is typed next begins anew, as it would in the grid.
        const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        if (plain && !IsEnter(event.key()))
            GridKeyPress(event.text());
        return true;
    }
    if (event.key() == Qt::Key_Escape) {
        Drop();
        return true;
    }
    if (IsEnter(event.key())) {
        Enter();
        return true;
    }
    if (event.matches(QKeySequence::Save)) {
        if (Text1_Validate() && CommitCellEdit())
            SaveRow();
        return true;
    }
    if (const auto steps = StepsAfter(event)) {
        if (Text1_Validate() && CommitCellEdit())
            Move(steps->y(), steps->x());
        return true;
    }
    if (OpensPickList(event)) {
        OpenPickList();
        return true;
    }
    return false;
}

void CellEditor::Enter() {
    using enum CellEditing::EnterGoes;
    if (!Text1_Validate() || !CommitCellEdit())
        return;
    if (editing_.enterGoes == Right)
        Move(0, 1);
    else if (editing_.enterGoes == Down)
        Move(1, 0);
}

/// By what is seen: columns may have been moved. At the grid's edge the cursor stays.
void CellEditor::Move(int rows, int columns) {
    const QModelIndex cell = grid_.currentIndex();
    const QHeaderView& header = *grid_.horizontalHeader();
    int column = cell.column();
    if (columns != 0) {
        int place = header.visualIndex(column) + columns;
        while (header.isSectionHidden(header.logicalIndex(place)) && place > 0 && place < header.count())
            place += columns;
        column = header.logicalIndex(place);
    }
    const QModelIndex next = cell.sibling(cell.row() + rows, column);
    if (next.isValid() && !grid_.isColumnHidden(column))
        grid_.setCurrentIndex(next);
}

bool CellEditor::Text1_Validate() {
    const QModelIndex cell = grid_.currentIndex();
    if (!cell.isValid() || cell.column() != editing_.checkedColumn)
        return cell.isValid();
    std::optional<QString> listed;
    const QString code = text1_->text().trimmed();
    if (!Attempt([&] { listed = editing_.check(cell, code); }))
        return false;
    if (listed)
        text1_->setText(*listed);
    else
        OpenPickList(u"Kode %1 tidak dikenal."_s.arg(code));
    return listed.has_value();
}

/// With what was typed still over the cell, the next Enter would overwrite what the conflict protected.
bool CellEditor::Attempt(const std::function<void()>& action) {
    return Trapped(program_, u"OnEnterText1"_s, [&] {
        try {
            action();
        } catch (const ConflictError&) {
            Hide();
            throw;
        }
    });
}

bool CellEditor::CommitCellEdit() {
    const QPersistentModelIndex cell = grid_.currentIndex();
    const QString text = text1_->text();
    // A text that could not be saved can be entered again as it is; so can a checked code that is saved at
    // once, since another desk may have stored a different one under what the cell shows.
    const bool atOnce = editing_.saveCell || !editing_.saveRow;
    const bool confirms = atOnce && cell.column() == editing_.checkedColumn;
    const bool changes = cell.isValid() && (text != TextOf(cell) || grid_.IsMarkedUnsaved(cell) || confirms);
    bool may = true;
    if (changes && editing_.mayEnter && (!Attempt([&] { may = editing_.mayEnter(cell, text); }) || !may))
        return false;
    bool saved = true;
    if (changes && atOnce && !Attempt([&] { saved = SaveCell(cell, text); }))
        return false;
    Hide();
    if (!changes)
        return true;
    grid_.MarkUnsaved(cell, !atOnce || !saved);
    if (!atOnce) {
        grid_.model()->setData(cell, text, Qt::EditRole);
        rowDirty_ = true;
        lastRow_ = cell.row();
        MarkRow(lastRow_, true);
    }
    return saved;
}

bool CellEditor::SaveCell(const QModelIndex& cell, const QString& text) {
    const QPersistentModelIndex stays = cell;
    const QString before = TextOf(cell);
    const QString key = qobject_cast<TableModel*>(grid_.model())->RowKey(cell.row());
    if (!editing_.saveCell)
        return blocks_->Write({{key, cell.column(), text}}, u"Isian"_s);
    if (!editing_.saveCell(cell, text))
        return false;
    const QString after = TextOf(stays);
    if (editing_.writeCells && (after != before || after.isNull() != before.isNull()))
        blocks_->Record({{key, stays.column(), before, after}});
    return true;
}

void CellEditor::TakePicked(const QString& code) {
    const QModelIndex cell = grid_.currentIndex();
    if (!MayEdit(cell))
        return;
    Open(code);
    text1_->selectAll();
    // Where nothing is checked, the user sees what was picked and enters it.
    if (cell.column() == editing_.checkedColumn)
        Enter();
}

void CellEditor::OfferPickList() {
    const QString text = TextOf(grid_.currentIndex());
    OpenPickList(text.isEmpty() ? u"Masih kosong: pilih kodenya."_s
                                : u"Sekarang %1: pilih gantinya."_s.arg(text));
}

void CellEditor::OpenPickList(const QString& reason) {
    if (!editing_.openPickList || !HasPickList(grid_.currentIndex()) || !MayEdit(grid_.currentIndex()))
        return;
    PlaceOverCell(); // the list opens under the cell also while the editor is hidden
    Trapped(program_, u"cmdLov_Click"_s, [&] { editing_.openPickList(*text1_, reason); });
}

void CellEditor::ShowPickButton() {
    PlaceOverCell();
    cmdLov_->show();
}

void CellEditor::Hide() {
    cmdLov_->hide();
    if (text1_->isHidden())
        return;
    text1_->clear(); // before the focus goes: what is entered is not told to be thrown away
    if (text1_->hasFocus())
        grid_.setFocus();
    text1_->hide();
}

void CellEditor::Drop() {
    const QString text = text1_->isHidden() ? QString() : text1_->text();
    Hide();
    if (!text.trimmed().isEmpty() && text != textBefore_)
        blocks_->Tell(u"Tidak disimpan: \"%1\" dibuang."_s.arg(text));
}

void CellEditor::PlaceOverCell() {
    const QRect cell = grid_.visualRect(grid_.currentIndex());
    text1_->setGeometry(cell);
    const int room = grid_.viewport()->width() - cell.height();
    int left = qMin(cell.right() + 1, room);
    // Over the end of a wide cell it is in nobody's way; a narrow one it would cover.
    if (left <= cell.right() && cell.width() < 3 * cell.height())
        left = cell.left() - cell.height();
    cmdLov_->setGeometry(left, cell.top(), cell.height(), cell.height());
}

bool CellEditor::MayLeave() {
    Drop();
    std::set<int> rows = unsavedRows_;
    if (rowDirty_)
        rows.insert(lastRow_);
    if (rows.empty())
        return true;
    const auto answer = program_.dialogs.Ask(
        rows.size() == 1 ? u"Satu baris yang diubah belum disimpan. Simpan sekarang?"_s
                         : u"%1 baris yang diubah belum disimpan. Simpan sekarang?"_s.arg(rows.size()));
    if (answer == Dialogs::Answer::Yes) {
        for (const int row : rows) {
            lastRow_ = row;
            rowDirty_ = true;
            unsavedRows_.erase(row);
            SaveLastRow();
        }
        lastRow_ = grid_.currentIndex().row();
        rowDirty_ = unsavedRows_.erase(lastRow_) > 0;
        return !rowDirty_ && unsavedRows_.empty();
    }
    return answer == Dialogs::Answer::No;
}

void CellEditor::Forget() {
    Hide();
    rowDirty_ = false;
    lastRow_ = -1;
    unsavedRows_.clear();
}

void CellEditor::ForgetRow(int row) {
    Hide();
    unsavedRows_.erase(row);
    if (row == lastRow_)
        rowDirty_ = false;
    MarkRow(row, false);
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &grid_ && event->type() == QEvent::KeyPress) {
        if (!text1_->hasFocus())
            return GridKeyDown(static_cast<QKeyEvent&>(*event));
        // A key that the text has no use for does not move the cursor from under it: on to the window.
        event->ignore();
        return true;
    }
    if (watched == viewport_ && event->type() == QEvent::Resize) {
        PlaceOverCell();
        return false;
    }
    if (watched != text1_)
        return false;
    if (event->type() == QEvent::KeyPress)
        return Text1_KeyDown(static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // The pick list and another program's window take the keyboard for a while, not what was typed.
        if (!QApplication::activePopupWidget() && reason != Qt::ActiveWindowFocusReason)
            Drop();
    }
    return false;
}
