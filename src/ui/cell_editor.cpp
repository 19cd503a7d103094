#include "ui/cell_editor.h"

#include "database/database_error.h"
#include "ui/data_grid.h"
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

bool OpensPickList(const QKeyEvent& event) {
    return event.key() == Qt::Key_F9
           || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}

} // namespace

CellEditor::CellEditor(Program& program, DataGrid& grid, CellEditing editing)
    : QObject(&grid), program_(program), grid_(grid), editing_(std::move(editing)),
      viewport_(grid.viewport()), text1_(new QLineEdit(grid.viewport())),
      cmdLov_(new QToolButton(grid.viewport())) {
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
        connect(bar, &QScrollBar::valueChanged, this, &CellEditor::Hide);
    for (QHeaderView* header : {grid.horizontalHeader(), grid.verticalHeader()}) {
        connect(header, &QHeaderView::sectionResized, this, &CellEditor::PlaceOverCell);
        connect(header, &QHeaderView::sectionMoved, this, &CellEditor::PlaceOverCell);
    }
    grid.installEventFilter(this);
    grid.viewport()->installEventFilter(this);
    text1_->installEventFilter(this);
}

void CellEditor::EnterCell(const QModelIndex& cell) {
    Hide();
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

void CellEditor::MarkRow(int row, bool unsaved) {
    grid_.MarkUnsaved(grid_.model()->index(row, 0), unsaved);
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
    if (IsEnter(event.key()) || event.key() == Qt::Key_Delete) {
        const auto& routine = IsEnter(event.key()) ? editing_.gridEnterKey : editing_.gridDeleteKey;
        if (routine && cell.isValid())
            Trapped(program_, u"OnEnter"_s, [&] { routine(cell); });
        return true;
    }
    if (event.key() == Qt::Key_F2) {
        OpenOnCurrentCell();
        return true;
    }
    return GridKeyPress(event.text());
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
        // What is typed next begins anew, as it would in the grid.
        const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        if (plain && !IsEnter(event.key()))
            GridKeyPress(event.text());
        return true;
    }
    if (IsEnter(event.key())) {
        if (Text1_Validate())
            CommitCellEdit();
        return true;
    }
    // Only Enter enters a text; the keys stay in the grid whatever ends the editor.
    if (event.key() == Qt::Key_Escape || event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
        Hide();
        return true;
    }
    if (OpensPickList(event)) {
        OpenPickList();
        return true;
    }
    return false;
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

void CellEditor::CommitCellEdit() {
    const QPersistentModelIndex cell = grid_.currentIndex();
    const QString text = text1_->text();
    // A text that could not be saved can be entered again as it is; so can a checked code that is saved at
    // once, since another desk may have stored a different one under what the cell shows.
    const bool confirms = editing_.saveCell && cell.column() == editing_.checkedColumn;
    const bool changes = cell.isValid() && (text != TextOf(cell) || grid_.IsMarkedUnsaved(cell) || confirms);
    bool may = true;
    if (changes && editing_.mayEnter && (!Attempt([&] { may = editing_.mayEnter(cell, text); }) || !may))
        return;
    bool saved = false;
    if (changes && editing_.saveCell && !Attempt([&] { saved = editing_.saveCell(cell, text); }))
        return;
    Hide();
    if (!changes)
        return;
    if (editing_.saveCell) {
        grid_.MarkUnsaved(cell, !saved);
        return;
    }
    grid_.model()->setData(cell, text, Qt::EditRole);
    rowDirty_ = true;
    lastRow_ = cell.row();
}

void CellEditor::TakePicked(const QString& code) {
    const QModelIndex cell = grid_.currentIndex();
    if (!MayEdit(cell))
        return;
    Open(code);
    text1_->selectAll();
    // Where nothing is checked, the user sees what was picked and enters it.
    if (cell.column() == editing_.checkedColumn && Text1_Validate())
        CommitCellEdit();
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
    if (text1_->hasFocus())
        grid_.setFocus();
    text1_->hide();
    text1_->clear();
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
    Hide();
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
            Hide();
    }
    return false;
}
