#include "shifts/frmShiftEmployee.h"

#include "core/code_lists.h"
#include "shifts/roster_fill_box.h"
#include "shifts/shift_need_box.h"
#include "ui/cell_editor.h"
#include "ui/grid_blocks.h"
#include "ui/pick_list.h"
#include "ui/theme.h"
#include "ui/window_place.h"
#include "ui/work_progress.h"
#include "ui_frmShiftEmployee.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QShortcut>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize FirstSize(1366, 740);
const QString NotSaved = u"Belum disimpan: "_s;

} // namespace

frmShiftEmployee::frmShiftEmployee(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), roster_(program.clock), counts_(roster_),
      ui_(std::make_unique<Ui::frmShiftEmployee>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Big));
    InitGrid();
    MakeEditor();
    ConnectControls();
    RestorePlace(*this, FirstSize);
}

frmShiftEmployee::~frmShiftEmployee() {
    // What has the focus loses it while the window goes, when there is nothing left to answer with.
    for (QObject* control : findChildren<QObject*>())
        control->disconnect(this);
}

void frmShiftEmployee::ConnectControls() {
    ui_->txtPeriode->setFixedWidth(Theme::FieldWidth(*ui_->txtPeriode, u"0000000"_s));
    for (QToolButton* button : {ui_->cmdPrevious, ui_->cmdNext})
        button->setFixedSize(ui_->txtPeriode->sizeHint().height(), ui_->txtPeriode->sizeHint().height());
    connect(ui_->cmdRefresh, &QPushButton::clicked, this, &frmShiftEmployee::cmdRefresh_Click);
    connect(ui_->cmdKeluar, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->cmdPrevious, &QToolButton::clicked, this, [this] { StepMonth(-1); });
    connect(ui_->cmdNext, &QToolButton::clicked, this, [this] { StepMonth(+1); });
    const std::pair<QKeyCombination, int> steps[] = {{Qt::CTRL | Qt::Key_PageUp, -1},
                                                     {Qt::CTRL | Qt::Key_PageDown, +1}};
    for (const auto& [keys, months] : steps) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, [this, months = months] { StepMonth(months); });
    }
    connect(ui_->MSHFlexGrid1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmShiftEmployee::ShowCell);
    connect(ui_->txtFilter, &QLineEdit::textChanged, this, &frmShiftEmployee::txtFilter_Change);
    const std::pair<QPushButton*, FillWay> ways[] = {{ui_->cmdPola, FillWay::Pattern},
                                                     {ui_->cmdTukar, FillWay::Swap},
                                                     {ui_->cmdSalin, FillWay::CopyMonth},
                                                     {ui_->cmdJiplak, FillWay::SameAs}};
    for (const auto& [button, way] : ways)
        connect(button, &QPushButton::clicked, this, [this, way = way] { OpenFillBox(way); });
    connect(ui_->cmdKebutuhan, &QPushButton::clicked, this, &frmShiftEmployee::cmdKebutuhan_Click);
}

void frmShiftEmployee::InitGrid() {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    grid.setModel(&roster_);
    grid.SetEmptyText(u"Tidak ada data untuk kriteria ini."_s);
    const QFontMetrics metrics = grid.fontMetrics();
    const int padding = 2 * Theme::CellPadding;
    grid.setColumnWidth(RosterModel::SrNo, metrics.horizontalAdvance(u"Sr.No  "_s) + padding);
    grid.setColumnWidth(RosterModel::Nip, metrics.horizontalAdvance(u"0000000"_s) + padding);
    grid.setColumnWidth(RosterModel::Nama, metrics.horizontalAdvance(u"Muhammad Ramad"_s) + padding);
    grid.FreezeColumns(RosterModel::FirstDay);
    grid.ShareRoom(RosterModel::FirstDay, metrics.horizontalAdvance(u"0000"_s));
    ui_->grdCounts->setModel(&counts_);
    ui_->grdCounts->Follow(grid, RosterModel::FirstDay);
}

void frmShiftEmployee::MakeEditor() {
    CellEditing editing;
    editing.fixedColumns = RosterModel::FirstDay;
    editing.pickListColumns.resize(RosterModel::DayColumns);
    std::iota(editing.pickListColumns.begin(), editing.pickListColumns.end(), int{RosterModel::FirstDay});
    editing.mayEdit = [this](const QModelIndex&) { return roster_.Month().has_value(); };
    editing.openPickList = [this](QLineEdit& anchor, const QString& reason) { cmdLov_Click(anchor, reason); };
    editing.saveCell = [this](const QModelIndex& cell, const QString& code) {
        roster_.setData(cell, roster_.Roster().Shifts().CodeTyped(code));
        return SaveCell(cell);
    };
    editing.writeCells = [this](const std::vector<CellChange>& changes) { return WriteCells(changes); };
    editing.nameColumns = {RosterModel::Nip, RosterModel::Nama};
    editing.emptiesCells = true;
    editing.enterGoes = CellEditing::EnterGoes::Right;
    editing.tell = [this](const QString& text) { ui_->lblStatus->setText(text); };
    editing.gridEnterKey = [this](const QModelIndex&) { editor_->OpenOnCurrentCell(); };
    editing.gridDoubleClick = editing.gridEnterKey;
    editing.gridDeleteKey = [this](const QModelIndex& cell) { GridDeleteKey(cell); };
    editor_ = new CellEditor(program_, *ui_->MSHFlexGrid1, std::move(editing));
    ui_->MSHFlexGrid1->horizontalHeader()->setSectionsMovable(false); // days follow each other
}

/// The window is kept between two openings, but shows what a fresh one would.
void frmShiftEmployee::Form_Load() {
    ui_->txtPeriode->setText(PeriodOf(MonthOf(program_.clock.Today())));
    ui_->txtFilter->clear();
    editor_->Blocks().ForgetSteps();
    LoadEmployees();
    LoadRoster();
    ui_->MSHFlexGrid1->setCurrentIndex(roster_.index(0, RosterModel::FirstDay));
    ui_->MSHFlexGrid1->setFocus();
}

void frmShiftEmployee::LoadEmployees() {
    Trapped(program_, u"frmShiftEmployee.LoadEmployees"_s, [this] {
        WorkProgress progress(this, u"Membaca karyawan ..."_s);
        roster_.LoadEmployees(program_.Db(), std::ref(progress));
    });
}

bool frmShiftEmployee::LoadRoster() {
    bool loaded = false;
    Trapped(program_, u"frmShiftEmployee.LoadRoster"_s, [&] {
        WorkProgress progress(this, u"Membaca jadwal shift ..."_s);
        loaded = roster_.LoadRoster(program_.Db(), ui_->txtPeriode->text(), std::ref(progress));
    });
    if (loaded) {
        editor_->Forget();
        ui_->MSHFlexGrid1->ForgetUnsaved();
        unsavedEmployees_.clear();
        roster_.Filter(ui_->txtFilter->text());
        ShowNeeds();
    }
    ShowMonth();
    return loaded;
}

void frmShiftEmployee::cmdRefresh_Click() {
    LoadRoster();
}

void frmShiftEmployee::cmdLov_Click(QLineEdit& anchor, const QString& reason) {
    OpenPickList(
        program_, anchor, PickListQuery::Shifts,
        [this](const QVariantMap& values) { editor_->TakePicked(values.value(u"Code"_s).toString()); },
        reason);
}

bool frmShiftEmployee::SaveCell(const QModelIndex& cell) {
    const bool saved =
        Trapped(program_, u"frmShiftEmployee.SaveCell"_s, [&] { roster_.SaveCell(program_.Db(), cell); });
    editor_->Blocks().Tell((saved ? u"Disimpan: "_s : NotSaved) + roster_.DescribeCell(cell));
    if (!saved)
        unsavedEmployees_ << roster_.EmployeeOf(cell.row());
    return saved;
}

/// What is taken back in another month is shown there.
CellsOutcome frmShiftEmployee::WriteCells(const std::vector<CellChange>& changes) {
    CellsOutcome outcome = roster_.WriteCells(program_.Db(), changes);
    const auto month = RosterModel::MonthOfKey(changes.front().rowKey);
    if (month && month != roster_.Month()) {
        ui_->txtPeriode->setText(PeriodOf(*month));
        LoadRoster();
    }
    return outcome;
}

/// An emptied cell is a day without a shift that the roster knows of.
void frmShiftEmployee::GridDeleteKey(const QModelIndex& cell) {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    const QString before = cell.data().toString();
    const bool nothingToEmpty = before.isEmpty() && !grid.IsMarkedUnsaved(cell);
    if (nothingToEmpty || !roster_.setData(cell, QString()))
        return;
    // What was refused on a day that the month lacks is only wiped away.
    const bool isDay = roster_.DayOfCell(cell).has_value();
    const bool saved = isDay && SaveCell(cell);
    grid.MarkUnsaved(cell, isDay && !saved);
    if (saved)
        editor_->Blocks().Record({{roster_.RowKey(cell.row()), cell.column(), before, u""_s}});
}

void frmShiftEmployee::txtFilter_Change() {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    roster_.Filter(ui_->txtFilter->text(), unsavedEmployees_);
    if (!grid.currentIndex().isValid())
        grid.setCurrentIndex(roster_.index(0, RosterModel::FirstDay));
    ui_->lblStatus->setText(
        u"%1 dari %2 karyawan tampil"_s.arg(roster_.rowCount()).arg(roster_.Roster().Employees().size()));
}

FillArea frmShiftEmployee::Block() const {
    const DataGrid& grid = *ui_->MSHFlexGrid1;
    FillArea block{{}, RosterMonth::MostDays, 1};
    for (const QItemSelectionRange& range : grid.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            block.employees.push_back(roster_.EmployeeOf(row));
        const auto dayOf = [](int column) {
            return static_cast<unsigned>(qMax<int>(column, RosterModel::FirstDay) - RosterModel::FirstDay
                                         + 1);
        };
        block.firstDay = qMin(block.firstDay, dayOf(range.left()));
        block.lastDay = qMax(block.lastDay, dayOf(range.right()));
    }
    if (block.employees.empty() && grid.currentIndex().isValid())
        return {{roster_.EmployeeOf(grid.currentIndex().row())}, 1, 1};
    return block;
}

bool frmShiftEmployee::HoldsUnsaved() const {
    for (int row = 0; row < roster_.rowCount(); ++row) {
        for (int column = RosterModel::FirstDay;
             unsavedEmployees_.contains(roster_.EmployeeOf(row)) && column < RosterModel::ColumnCount;
             ++column) {
            if (ui_->MSHFlexGrid1->IsMarkedUnsaved(roster_.index(row, column)))
                return true;
        }
    }
    return false;
}

void frmShiftEmployee::OpenFillBox(FillWay way) {
    const FillArea block = Block();
    if (!roster_.Month() || block.employees.empty())
        return ui_->lblStatus->setText(u"Tidak ada karyawan atau bulan yang dapat diisi."_s);
    if (HoldsUnsaved())
        return program_.dialogs.Warn(u"Ada sel yang belum tersimpan (ditandai). Simpan dulu, atau tekan "
                                     u"Refresh untuk membuangnya."_s);
    RosterFillBox box(
        program_, roster_, way, block,
        [this](const std::vector<CellChange>& changes, const QString& what) {
            return editor_->Blocks().Write(changes, what);
        },
        this);
    box.exec();
    ui_->MSHFlexGrid1->setFocus();
}

void frmShiftEmployee::cmdKebutuhan_Click() {
    ShiftNeedBox(program_, this).exec();
    ShowNeeds();
    ui_->MSHFlexGrid1->setFocus();
}

void frmShiftEmployee::ShowNeeds() {
    Trapped(program_, u"frmShiftEmployee.ShowNeeds"_s,
            [this] { counts_.SetNeeds(RosterStore::Needs(program_.Db())); });
}

void frmShiftEmployee::StepMonth(int months) {
    const auto from = roster_.Month().value_or(MonthOf(program_.clock.Today()));
    ui_->txtPeriode->setText(PeriodOf(from + std::chrono::months{months}));
    cmdRefresh_Click();
}

/// The month of the cells, which is not that of the field while another one is typed there.
void frmShiftEmployee::ShowMonth() {
    ui_->lblMonth->setText(roster_.Month() ? MonthName(*roster_.Month()) : QString());
    const int unlisted = roster_.Roster().CountUnlisted();
    ui_->lblStatus->setText(
        unlisted == 0 ? u"%1 karyawan"_s.arg(roster_.rowCount())
                      : u"%1 karyawan · %2 hari dengan kode yang tidak ada di Shift"_s.arg(roster_.rowCount())
                            .arg(unlisted));
}

void frmShiftEmployee::ShowCell() {
    const QModelIndex cell = ui_->MSHFlexGrid1->currentIndex();
    const bool unsaved = ui_->MSHFlexGrid1->IsMarkedUnsaved(cell);
    ui_->lblStatus->setText((unsaved ? NotSaved : QString()) + roster_.DescribeCell(cell));
}

void frmShiftEmployee::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Load();
}

void frmShiftEmployee::keyPressEvent(QKeyEvent* event) {
    const bool inPeriod = ui_->txtPeriode->hasFocus();
    const bool inFilter = ui_->txtFilter->hasFocus();
    switch (event->key()) {
    case Qt::Key_Escape:
        if (!inFilter || ui_->txtFilter->text().isEmpty())
            close();
        ui_->txtFilter->clear();
        break;
    case Qt::Key_Down:
        if (inFilter)
            ui_->MSHFlexGrid1->setFocus();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (inPeriod && LoadRoster())
            ui_->MSHFlexGrid1->setFocus();
        else if (inPeriod)
            ui_->txtPeriode->selectAll();
        else if (inFilter)
            ui_->MSHFlexGrid1->setFocus();
        else if (auto* button = qobject_cast<QAbstractButton*>(focusWidget()))
            button->click();
        break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (inPeriod)
            StepMonth(event->key() == Qt::Key_PageUp ? -1 : +1);
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

void frmShiftEmployee::closeEvent(QCloseEvent* event) {
    SavePlace(*this);
    QDialog::closeEvent(event);
}
