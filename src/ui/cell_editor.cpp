#include "ui/cell_editor.h"

#include "core/table_model.h"
#include "database/database_error.h"
#include "ui/data_grid.h"
#include "ui/editing_keys.h"
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

/// What a cell holds for editing: what it shows, where the model makes no difference.
QString TextOf(const QModelIndex& cell) {
    const QVariant edited = cell.data(Qt::EditRole);
    return (edited.isValid() ? edited : cell.data()).toString();
}

} // namespace

CellEditor::CellEditor(Program& program, DataGrid& grid, CellEditing editing)
    : QObject(&grid), program_(program), grid_(grid), editing_(std::move(editing)),
      unsaved_(program, grid, editing_.saveRow), viewport_(grid.viewport()),
      text1_(new QLineEdit(grid.viewport())), cmdLov_(new QToolButton(grid.viewport())),
      blocks_(new GridBlocks(program, grid, editing_, [this] { return unsaved_.SaveCurrent(); })) {
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
    connect(grid.model(), &QAbstractItemModel::layoutChanged, this, &CellEditor::Drop);
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
            if (!RowDirty())
                blocks_->Tell(u"Baris ini sudah tersimpan."_s);
            unsaved_.SaveCurrent();
        });
}

void CellEditor::EnterCell(const QModelIndex& cell) {
    Drop();
    if (!cell.isValid())
        return;
    unsaved_.Enter(cell.row());
    if (HasPickList(cell))
        ShowPickButton();
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
    text1_->show();
    PlaceOverCell();
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
            unsaved_.SaveCurrent();
        return true;
    }
    if (const auto steps = StepsAfter(event)) {
        if (Text1_Validate() && CommitCellEdit())
            grid_.MoveCursor(*steps);
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
        grid_.MoveCursor({1, 0});
    else if (editing_.enterGoes == Down)
        grid_.MoveCursor({0, 1});
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
    if (atOnce) {
        grid_.MarkUnsaved(cell, !saved);
        return saved;
    }
    grid_.model()->setData(cell, text, Qt::EditRole);
    unsaved_.Touch(cell);
    return true;
}

bool CellEditor::SaveCell(const QModelIndex& cell, const QString& text) {
    const QPersistentModelIndex stays = cell;
    const QString before = TextOf(cell);
    // Whoever writes no blocks tells no keys.
    const auto* rows = editing_.writeCells ? qobject_cast<TableModel*>(grid_.model()) : nullptr;
    const QString key = rows ? rows->RowKey(cell.row()) : QString();
    if (!editing_.saveCell)
        return blocks_->Write({{key, cell.column(), text}}, u"Isian"_s);
    if (!editing_.saveCell(cell, text))
        return false;
    const QString after = TextOf(stays);
    if (rows && (after != before || after.isNull() != before.isNull()))
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
    cmdLov_->show();
    PlaceOverCell();
}

void CellEditor::Hide() {
    cmdLov_->hide();
    if (text1_->isHidden())
        return ShowOverFrozen();
    text1_->clear(); // before the focus goes: what is entered is not told to be thrown away
    if (text1_->hasFocus())
        grid_.setFocus();
    text1_->hide();
    ShowOverFrozen();
}

void CellEditor::Drop() {
    const QString text = text1_->isHidden() ? QString() : text1_->text();
    Hide();
    if (!text.trimmed().isEmpty() && text != textBefore_)
        blocks_->Tell(u"Tidak disimpan: \"%1\" dibuang."_s.arg(text));
}

void CellEditor::ShowOverFrozen() {
    QRegion region;
    for (const QWidget* part : {static_cast<QWidget*>(text1_), static_cast<QWidget*>(cmdLov_)}) {
        if (!part->isHidden())
            region += part->geometry();
    }
    grid_.KeepFree(region);
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
    ShowOverFrozen();
}

bool CellEditor::MayLeave() {
    Drop();
    return unsaved_.MayLeave();
}

void CellEditor::Forget() {
    Hide();
    unsaved_.Forget();
}

void CellEditor::ForgetRow(int row) {
    Hide();
    unsaved_.ForgetRow(row);
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
