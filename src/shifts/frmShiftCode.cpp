#include "shifts/frmShiftCode.h"

#include "ui/busy_pointer.h"
#include "ui/editing_keys.h"
#include "ui/grid_blocks.h"
#include "ui/theme.h"
#include "ui/typing.h"
#include "ui/window_place.h"
#include "ui_frmShiftCode.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {
constexpr int Keluar = 2;
}

frmShiftCode::frmShiftCode(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), ui_(std::make_unique<Ui::frmShiftCode>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Middle));
    SetUpGrid();
    SetUpBlocks();
    RestoreColumns(*this);
    auto* cmdButtons = new QButtonGroup(this);
    cmdButtons->addButton(ui_->cmdButtons_2, Keluar);
    connect(cmdButtons, &QButtonGroup::idClicked, this, &frmShiftCode::cmdButtons_Click);
    connect(ui_->cmdTambah, &QPushButton::clicked, this, &frmShiftCode::cmdTambah_Click);
    connect(ui_->cmdHapus, &QPushButton::clicked, this, &frmShiftCode::cmdHapus_Click);
    auto* insertKey =
        new QShortcut(Qt::Key_Insert, ui_->DataGrid1, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    auto* deleteKey =
        new QShortcut(Qt::Key_Delete, ui_->DataGrid1, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(insertKey, &QShortcut::activated, this, &frmShiftCode::cmdTambah_Click);
    connect(deleteKey, &QShortcut::activated, this, &frmShiftCode::cmdHapus_Click);
}

frmShiftCode::~frmShiftCode() = default;

void frmShiftCode::SetUpGrid() {
    DataGrid& grid = *ui_->DataGrid1;
    grid.setModel(&rstShift_);
    grid.EditCells(0);
    grid.setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed);
    grid.SetEmptyText(u"Tidak ada data untuk kriteria ini."_s);
    const QFontMetrics metrics = grid.fontMetrics();
    const int time = metrics.horizontalAdvance(u"00:00 (+1)MMMM"_s);
    grid.setColumnWidth(ShiftCodeModel::TimeIn, time);
    grid.setColumnWidth(ShiftCodeModel::TimeOut, time);
    grid.StretchColumn(ShiftCodeModel::Code, metrics.horizontalAdvance(u"MMMMMMMMMMMM"_s));
    grid.setMinimumSize(3 * time + metrics.horizontalAdvance(u"MMMMMMMMMMMM"_s),
                        12 * grid.verticalHeader()->defaultSectionSize());
    connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmShiftCode::DataGrid1_RowColChange);
    connect(grid.itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            [this](QWidget*, QAbstractItemDelegate::EndEditHint hint) { DataGrid1_AfterEdit(hint); });
    connect(&grid, &DataGrid::RowChosen, this, [&grid] {
        // The key that ends an edit comes by here, too.
        if (!grid.isPersistentEditorOpen(grid.currentIndex()))
            grid.edit(grid.currentIndex());
    });
}

void frmShiftCode::SetUpBlocks() {
    DataGrid& grid = *ui_->DataGrid1;
    BlockEditing editing;
    editing.writeCells = [this, &grid](const std::vector<CellChange>& changes) {
        const QModelIndex cell = grid.currentIndex();
        const CellsOutcome outcome = rstShift_.WriteCells(changes);
        GoTo(qMin(cell.row(), rstShift_.rowCount() - 1), cell.column());
        return outcome;
    };
    editing.nameColumns = {ShiftCodeModel::Code};
    editing.sorts = true;
    editing.tell = [this](const QString& text) { ui_->lblStatus->setText(text); };
    blocks_ = new GridBlocks(program_, grid, std::move(editing), [this] {
        CommitCell();
        return UpdateRow();
    });
    grid.viewport()->installEventFilter(this);
}

/// In the box that a cell is typed into, the arrows enter the text and go on, as in the other grids.
bool frmShiftCode::eventFilter(QObject* watched, QEvent* event) {
    QObject* added =
        event->type() == QEvent::ChildAdded ? static_cast<QChildEvent*>(event)->child() : nullptr;
    if (added && added->isWidgetType())
        added->installEventFilter(this);
    if (event->type() != QEvent::KeyPress || watched == ui_->DataGrid1->viewport())
        return false;
    const auto steps = StepsAfter(static_cast<QKeyEvent&>(*event));
    if (!steps || steps->y() == 0)
        return false;
    CommitCell();
    ui_->DataGrid1->MoveCursor(*steps);
    return true;
}

void frmShiftCode::Form_Load() {
    blocks_->ForgetSteps();
    Trapped(program_, u"frmShiftCode.Form_Load"_s, [this] {
        const BusyPointer busy;
        rstShift_.Refresh(program_.Db());
    });
    ShowCount();
    GoTo(0, ShiftCodeModel::Code);
    ui_->DataGrid1->setFocus();
}

void frmShiftCode::cmdButtons_Click(int index) {
    if (index == Keluar)
        close();
}

void frmShiftCode::cmdTambah_Click() {
    CommitCell();
    if (!UpdateRow())
        return;
    Trapped(program_, u"frmShiftCode.cmdTambah_Click"_s, [this] {
        const int row = rstShift_.AddRow();
        GoTo(row, ShiftCodeModel::Code);
        ui_->DataGrid1->edit(rstShift_.index(row, ShiftCodeModel::Code));
    });
}

void frmShiftCode::cmdHapus_Click() {
    CommitCell();
    const int row = ui_->DataGrid1->currentIndex().row();
    if (row < 0)
        return;
    if (row == rstShift_.RowInEdit()) {
        rstShift_.CancelRow();
        return;
    }
    const QString code = rstShift_.CodeAt(row);
    Trapped(program_, u"frmShiftCode.cmdHapus_Click"_s, [&] {
        if (MayVanish(code, u"Hapus kode shift %1?"_s.arg(code), u"Hapus juga?"_s) != Dialogs::Answer::Yes)
            return;
        rstShift_.DeleteRow(row);
        ui_->lblStatus->setText(u"Shift %1 dihapus."_s.arg(code));
    });
    if (!ui_->DataGrid1->currentIndex().isValid())
        GoTo(qMax(0, rstShift_.RowOf(code)), ShiftCodeModel::Code);
}

Dialogs::Answer frmShiftCode::MayVanish(const QString& code, const QString& question,
                                        const QString& questionIfUsed) {
    ShiftCodeUse use;
    {
        const BusyPointer busy; // every card may have to be looked at
        use = UseOfShiftCode(program_.Db(), code);
    }
    const bool used = use.rosterDays > 0 || use.cards > 0;
    if (!used && question.isEmpty())
        return Dialogs::Answer::Yes;
    return program_.dialogs.Ask(
        used ? u"Kode shift %1 masih dipakai: %2 hari di jadwal shift dan %3 kartu absen. Baris-baris itu "
               "tidak ikut diubah.\n%4"_s.arg(code, QString::number(use.rosterDays),
                                              QString::number(use.cards), questionIfUsed)
             : question,
        Dialogs::Answer::No);
}

/// Not from within the grid's own move: it would go on to the cell that it was on its way to.
void frmShiftCode::DataGrid1_RowColChange() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            const int row = rstShift_.RowInEdit();
            const QModelIndex current = ui_->DataGrid1->currentIndex();
            if (row >= 0 && current.isValid() && current.row() != row && !UpdateRow()
                && rstShift_.RowInEdit() == row)
                GoTo(row, current.column());
        },
        Qt::QueuedConnection);
}

/// Enter goes on to the next cell; after the last one the row is finished.
void frmShiftCode::DataGrid1_AfterEdit(QAbstractItemDelegate::EndEditHint hint) {
    if (hint != QAbstractItemDelegate::SubmitModelCache)
        return;
    const QModelIndex cell = ui_->DataGrid1->currentIndex();
    if (cell.column() < ShiftCodeModel::ColumnCount - 1)
        GoTo(cell.row(), cell.column() + 1);
    else
        QMetaObject::invokeMethod(this, &frmShiftCode::UpdateRow, Qt::QueuedConnection);
}

bool frmShiftCode::UpdateRow() {
    const int row = rstShift_.RowInEdit();
    if (row < 0)
        return true;
    const QString code = rstShift_.CodeAt(row).trimmed();
    const bool blank = rstShift_.IsBlankInEdit();
    auto answer = Dialogs::Answer::Yes;
    const bool written = Trapped(program_, u"frmShiftCode.DataGrid1"_s, [&] {
        if (const auto old = rstShift_.RenamedFrom()) {
            rstShift_.CheckTyped();
            answer = MayVanish(*old, {}, u"Ubah kodenya menjadi %1?"_s.arg(code));
        }
        if (answer == Dialogs::Answer::Yes)
            blocks_->Record(rstShift_.UpdateRow());
        else if (answer == Dialogs::Answer::No)
            rstShift_.CancelRow();
    });
    if (answer == Dialogs::Answer::Cancel)
        return false;
    if (written && !blank && answer == Dialogs::Answer::Yes)
        ui_->lblStatus->setText(u"Shift %1 disimpan."_s.arg(code));
    else if (rstShift_.RowInEdit() < 0)
        ShowCount();
    if (!written && rstShift_.RowInEdit() < 0)
        GoTo(qMax(0, rstShift_.RowOf(code)), ShiftCodeModel::Code);
    return written;
}

bool frmShiftCode::MayLeave() {
    CommitCell();
    if (rstShift_.RowInEdit() < 0 || rstShift_.IsBlankInEdit())
        return true;
    switch (program_.dialogs.Ask(u"Baris %1 belum disimpan.\nSimpan sebelum ditutup?"_s.arg(
        rstShift_.CodeAt(rstShift_.RowInEdit())))) {
    case Dialogs::Answer::Yes:
        return UpdateRow();
    case Dialogs::Answer::No:
        return true;
    case Dialogs::Answer::Cancel:
        break;
    }
    return false;
}

void frmShiftCode::CommitCell() {
    ui_->DataGrid1->setFocus();
}

void frmShiftCode::GoTo(int row, int column) {
    ui_->DataGrid1->setCurrentIndex(rstShift_.index(row, column));
}

void frmShiftCode::ShowCount() {
    ui_->lblStatus->setText(u"%1 kode shift"_s.arg(rstShift_.rowCount()));
}

void frmShiftCode::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Load();
}

void frmShiftCode::keyPressEvent(QKeyEvent* event) {
    if (auto* button = IsEnter(event->key()) ? qobject_cast<QPushButton*>(focusWidget()) : nullptr)
        button->click();
    else if (event->key() != Qt::Key_Escape)
        QDialog::keyPressEvent(event);
    else if (rstShift_.RowInEdit() >= 0)
        rstShift_.CancelRow();
    else
        close();
}

void frmShiftCode::closeEvent(QCloseEvent* event) {
    if (!MayLeave()) {
        event->ignore();
        return;
    }
    rstShift_.CancelRow();
    SaveColumns(*this);
    QDialog::closeEvent(event);
}
