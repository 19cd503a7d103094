#include "shifts/frmShiftEmployee.h"

#include "core/code_lists.h"
#include "ui/cell_editor.h"
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

QString PeriodOf(std::chrono::year_month month) {
    return u"%1%2"_s.arg(static_cast<int>(month.year()), 4, 10, QChar(u'0'))
        .arg(static_cast<unsigned>(month.month()), 2, 10, QChar(u'0'));
}

std::chrono::year_month MonthOf(Day day) {
    const std::chrono::year_month_day date{day};
    return date.year() / date.month();
}

QString MonthName(std::chrono::year_month month) {
    static const QStringList names{u"Januari"_s,   u"Februari"_s, u"Maret"_s,    u"April"_s,
                                   u"Mei"_s,       u"Juni"_s,     u"Juli"_s,     u"Agustus"_s,
                                   u"September"_s, u"Oktober"_s,  u"November"_s, u"Desember"_s};
    return u"%1 %2"_s.arg(names.at(static_cast<int>(static_cast<unsigned>(month.month())) - 1))
        .arg(static_cast<int>(month.year()));
}

} // namespace

frmShiftEmployee::frmShiftEmployee(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), roster_(program.clock),
      ui_(std::make_unique<Ui::frmShiftEmployee>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Big));
    InitGrid();
    MakeEditor();
    ConnectControls();
    RestorePlace(*this, FirstSize);
}

frmShiftEmployee::~frmShiftEmployee() = default;

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
}

void frmShiftEmployee::MakeEditor() {
    CellEditing editing;
    editing.fixedColumns = RosterModel::FirstDay;
    editing.pickListColumns.resize(RosterModel::DayColumns);
    std::iota(editing.pickListColumns.begin(), editing.pickListColumns.end(), int{RosterModel::FirstDay});
    editing.mayEdit = [this](const QModelIndex&) { return roster_.Month().has_value(); };
    editing.openPickList = [this](QLineEdit& anchor, const QString& reason) { cmdLov_Click(anchor, reason); };
    editing.saveCell = [this](const QModelIndex& cell, const QString& code) {
        roster_.setData(cell, roster_.CodeTyped(code));
        return SaveCell(cell);
    };
    editing.gridEnterKey = [this](const QModelIndex&) { editor_->OpenOnCurrentCell(); };
    editing.gridDoubleClick = editing.gridEnterKey;
    editing.gridDeleteKey = [this](const QModelIndex& cell) { GridDeleteKey(cell); };
    editor_ = new CellEditor(program_, *ui_->MSHFlexGrid1, std::move(editing));
}

/// The window is kept between two openings, but shows what a fresh one would.
void frmShiftEmployee::Form_Load() {
    ui_->txtPeriode->setText(PeriodOf(MonthOf(program_.clock.Today())));
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
    ui_->lblStatus->setText((saved ? u"Disimpan: "_s : NotSaved) + roster_.DescribeCell(cell));
    return saved;
}

/// An emptied cell is a day without a shift that the roster knows of.
void frmShiftEmployee::GridDeleteKey(const QModelIndex& cell) {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    const bool nothingToEmpty = cell.data().toString().isEmpty() && !grid.IsMarkedUnsaved(cell);
    if (nothingToEmpty || !roster_.setData(cell, QString()))
        return;
    // What was refused on a day that the month lacks is only wiped away.
    grid.MarkUnsaved(cell, roster_.DayOfCell(cell) && !SaveCell(cell));
}

void frmShiftEmployee::StepMonth(int months) {
    const auto from = roster_.Month().value_or(MonthOf(program_.clock.Today()));
    ui_->txtPeriode->setText(PeriodOf(from + std::chrono::months{months}));
    cmdRefresh_Click();
}

/// The month of the cells, which is not that of the field while another one is typed there.
void frmShiftEmployee::ShowMonth() {
    ui_->lblMonth->setText(roster_.Month() ? MonthName(*roster_.Month()) : QString());
    const int unlisted = roster_.CountUnlisted();
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
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (inPeriod && LoadRoster())
            ui_->MSHFlexGrid1->setFocus();
        else if (inPeriod)
            ui_->txtPeriode->selectAll();
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
