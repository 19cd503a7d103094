#include "editing/frmAbsensi.h"

#include "cards/sheet_identifier.h"
#include "core/supervisor_check.h"
#include "database/database_error.h"
#include "editing/attendance_print.h"
#include "editing/employee_status.h"
#include "editing/status_cells.h"
#include "reports/report_file.h"
#include "ui/cell_editor.h"
#include "ui/code_combo.h"
#include "ui/date_box.h"
#include "ui/grid_blocks.h"
#include "ui/pick_list.h"
#include "ui/theme.h"
#include "ui/typing.h"
#include "ui/window_place.h"
#include "ui/work_progress.h"
#include "ui_frmAbsensi.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize FirstSize(1280, 700);
/// How many letters of a department or division are seen at once.
constexpr int WidestName = 28;

QString FilterText(const AttendanceCriteria& criteria, const QComboBox& dept, const QComboBox& divisi) {
    if (!criteria.nip.isEmpty())
        return u"NIP: "_s + criteria.nip;
    QStringList parts;
    if (criteria.dept)
        parts << u"Dept: "_s + dept.currentText();
    if (criteria.divisi)
        parts << u"Divisi: "_s + divisi.currentText();
    return parts.join(u"  "_s);
}

} // namespace

frmAbsensi::frmAbsensi(Program& program, AttendanceBrowserNeeds needs, const b_form_skin::Backgrounds& skin,
                       QWidget* parent)
    : QDialog(parent), program_(program), needs_(std::move(needs)), ui_(std::make_unique<Ui::frmAbsensi>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    ui_->all->setMenuBar(ui_->menubar);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Middle));
    SetUpGrid();
    ConnectControls();
    SetUpDateBoxes(*this, program_);
    ui_->txtEmpl->setFixedWidth(Theme::FieldWidth(*ui_->txtEmpl, u"0000000000"_s));
    for (QComboBox* list : {ui_->txtDept, ui_->txtDivisi})
        list->setMaximumWidth(Theme::FieldWidth(*list, QString(WidestName, u'n')));
    RestorePlace(*this, FirstSize);
}

frmAbsensi::~frmAbsensi() = default;

void frmAbsensi::ConnectControls() {
    connect(ui_->cmdEmpl, &QPushButton::clicked, this, &frmAbsensi::cmdEmpl_Click);
    connect(ui_->cmdRefresh, &QPushButton::clicked, this, &frmAbsensi::cmdRefresh_Click);
    connect(ui_->cmdPrintGrid, &QPushButton::clicked, this, &frmAbsensi::cmdPrintGrid_Click);
    connect(ui_->cmdOpenCard, &QPushButton::clicked, this, &frmAbsensi::cmdOpenCard_Click);
    connect(ui_->cmdBatal, &QPushButton::clicked, this, &QWidget::close);
    for (QWidget* date : {static_cast<QWidget*>(ui_->txtDate1), static_cast<QWidget*>(ui_->txtDate2)})
        connect(ui_->chkInterval, &QCheckBox::toggled, date, &QWidget::setEnabled);
    const std::pair<QAction*, QString> reports[] = {{ui_->mnHarian, u"AbsensiHarian"_s},
                                                    {ui_->mnDetail, u"AbsensiDetailKaryawan"_s},
                                                    {ui_->mnSumDept, u"AbsensiDivisi"_s},
                                                    {ui_->mnSumKary, u"AbsensiSumKary"_s}};
    for (const auto& [entry, name] : reports) {
        entry->setEnabled(bool(needs_.openReport));
        connect(entry, &QAction::triggered, this, [this, name = name] {
            Trapped(program_, u"mnLaporan_Click"_s, [&] { needs_.openReport(name); });
        });
    }
}

void frmAbsensi::SetUpGrid() {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    grid.setModel(&rows_);
    grid.SetEmptyText(u"Tidak ada data untuk kriteria ini."_s);
    const QFontMetrics metrics = grid.fontMetrics();
    const int padding = metrics.horizontalAdvance(u"MM"_s);
    const std::pair<int, QString> samples[] = {{AttendanceModel::SerialNumber, u"000000"_s},
                                               {AttendanceModel::Nip, u"0000000"_s},
                                               {AttendanceModel::Nama, u"Muhammad Ramadhan"_s},
                                               {AttendanceModel::Dept, u"MMMM"_s},
                                               {AttendanceModel::Divisi, u"MMMM"_s},
                                               {AttendanceModel::Tanggal, u"00-MMM-0000"_s},
                                               {AttendanceModel::TimeIn, u"00:00 (+1)"_s},
                                               {AttendanceModel::TimeOut, u"00:00 (+1)"_s},
                                               {AttendanceModel::Status, u"MMMM"_s},
                                               {AttendanceModel::Tcid, u"T00000000-00000"_s}};
    for (const auto& [column, sample] : samples)
        grid.setColumnWidth(column, qMax(metrics.horizontalAdvance(sample) + padding,
                                         grid.horizontalHeader()->sectionSizeHint(column)));
    grid.StretchColumn(AttendanceModel::Keterangan,
                       grid.horizontalHeader()->sectionSizeHint(AttendanceModel::Keterangan));

    CellEditing editing;
    editing.writeCells = [this](const std::vector<CellChange>& changes) {
        return WriteStatusCells(program_.Db(), rows_, changes);
    };
    editing.nameColumns = {AttendanceModel::Nip, AttendanceModel::Nama};
    editing.sorts = true;
    editing.tell = [this](const QString& done) { ui_->lblDone->setText(done); };
    editing.enterGoes = CellEditing::EnterGoes::Down;
    editing.pickListColumns = {AttendanceModel::Status};
    editing.mayEdit = [](const QModelIndex& cell) { return cell.column() == AttendanceModel::Status; };
    editing.checkedColumn = AttendanceModel::Status;
    editing.check = [this](const QModelIndex&, const QString& code) {
        return ListedStatus(program_.Db(), code);
    };
    editing.openPickList = [this](QLineEdit& anchor, const QString& reason) { cmdLov_Click(anchor, reason); };
    editing.saveCell = [this](const QModelIndex& cell, const QString& status) {
        return SaveStatusCell(cell.row(), status);
    };
    editing.gridEnterKey = [this](const QModelIndex& cell) { GridEnterKey(cell); };
    editing.gridDeleteKey = [this](const QModelIndex& cell) { GridDeleteKey(cell); };
    editing.gridDoubleClick = [this](const QModelIndex& cell) { MSHFlexGrid1_DblClick(cell); };
    editor_ = new CellEditor(program_, grid, std::move(editing));
}

/// The window is kept while it is closed: what it offers is that of the moment when it opens.
void frmAbsensi::Form_Load() {
    Trapped(program_, u"Form_Load"_s, [this] {
        using enum CodeLists::DepartmentColumns;
        OfferCodes(*ui_->txtDivisi, CodeLists::Divisions(program_.Db()));
        OfferCodes(*ui_->txtDept, CodeLists::Departments(program_.Db(), Joined));
    });
    const Day today = program_.clock.Today();
    if (std::exchange(openedOn_, today) == today)
        return;
    const std::chrono::year_month_day date{today};
    ui_->txtDate1->SetValue(Day{date.year() / date.month() / 1});
    ui_->txtDate2->SetValue(today);
}

AttendanceCriteria frmAbsensi::Criteria() const {
    AttendanceCriteria criteria;
    criteria.nip = ui_->txtEmpl->text().trimmed();
    criteria.dept = ChosenCode(*ui_->txtDept);
    criteria.divisi = ChosenCode(*ui_->txtDivisi);
    if (ui_->chkInterval->isChecked())
        criteria.interval = {DayOf(ui_->txtDate1->Value()), DayOf(ui_->txtDate2->Value())};
    return criteria;
}

bool frmAbsensi::RefreshAttendance() {
    if (!ReadTypedBoxes(*this))
        return false;
    bool shown = false;
    Trapped(program_, u"RefreshAttendance"_s, [&] {
        const AttendanceCriteria criteria = Criteria();
        std::optional<Attendance> attendance;
        {
            WorkProgress progress(this, u"Membaca absensi ..."_s);
            attendance =
                ::RefreshAttendance(program_.Db(), criteria, program_.clock.Today(), std::ref(progress));
        }
        if (!attendance) {
            ui_->lblDone->setText(u"Dibatalkan; data yang tampil tetap yang lama."_s);
            return;
        }
        filter_ = FilterText(criteria, *ui_->txtDept, *ui_->txtDivisi);
        rows_.Show(*std::move(attendance));
        const bool reversed = criteria.interval && criteria.interval->Days() == 0;
        ui_->lblDone->setText(reversed ? u"Tanggal mulai sesudah tanggal sampai."_s : QString());
        ShowState();
        shown = true;
    });
    return shown;
}

void frmAbsensi::ShowState() {
    const int count = rows_.rowCount();
    ui_->cmdPrintGrid->setEnabled(count > 0);
    ui_->cmdOpenCard->setEnabled(count > 0 && needs_.editCard);
    QString text = u"%1 baris · %2"_s.arg(count).arg(ListedPeriod(rows_.Range(), {}));
    if (!filter_.isEmpty())
        text += u" · "_s + filter_;
    ui_->lblStatus->setText(text);
}

void frmAbsensi::GoTo(int row) {
    if (row < 0 || row >= rows_.rowCount())
        return;
    const QModelIndex cell = rows_.index(row, AttendanceModel::Status);
    ui_->MSHFlexGrid1->setCurrentIndex(cell);
    ui_->MSHFlexGrid1->scrollTo(cell);
}

void frmAbsensi::cmdRefresh_Click() {
    if (!RefreshAttendance())
        return;
    GoTo(0);
    if (rows_.rowCount() > 0)
        ui_->MSHFlexGrid1->setFocus();
}

void frmAbsensi::cmdPrintGrid_Click() {
    Trapped(program_, u"cmdPrintGrid_Click"_s, [this] {
        bool printed = false;
        {
            WorkProgress progress(this, u"Menulis cetakan ..."_s);
            printed = WriteReportFile(program_.folder, [&](const LineSink& sink) {
                return PrintAttendance(rows_, ListedPeriod(rows_.Range(), filter_), sink, std::ref(progress));
            });
        }
        if (!printed) {
            ui_->lblDone->setText(u"Cetak dibatalkan."_s);
            return;
        }
        program_.showReport(ReportFilePath(program_.folder));
        ui_->lblDone->setText(u"%1 baris dicetak ke PRINT.TXT."_s.arg(rows_.rowCount()));
    });
}

void frmAbsensi::cmdOpenCard_Click() {
    const int row = ui_->MSHFlexGrid1->currentIndex().row();
    if (row < 0 || !needs_.editCard)
        return;
    const AttendanceModel::DayKey key = rows_.KeyOf(row);
    bool written = false;
    Trapped(program_, u"cmdOpenCard_Click"_s, [&] {
        LoadRow(row); // another desk may have made a card since, perhaps on an extended sheet
        const auto record = rows_.RecordAt(row);
        const QString tcid = record ? record->tcid : CardIdentifier(SheetIdentifierOf(key.day), key.nip);
        written = needs_.editCard(tcid, key.nip);
    });
    if (written && RefreshAttendance())
        GoTo(qMax(0, rows_.RowOf(key)));
    ui_->MSHFlexGrid1->setFocus();
}

void frmAbsensi::cmdEmpl_Click() {
    OpenPickList(program_, *ui_->txtEmpl, PickListQuery::BrowserEmployees, [this](const QVariantMap& values) {
        ui_->txtEmpl->setText(values.value(u"NIP"_s).toString());
    });
}

void frmAbsensi::cmdLov_Click(QLineEdit& anchor, const QString& reason) {
    OpenPickList(
        program_, anchor, PickListQuery::BrowserStatuses,
        [this](const QVariantMap& values) { editor_->TakePicked(values.value(u"Status"_s).toString()); },
        reason);
}

ShownDayRow frmAbsensi::RowAt(int row) const {
    const AttendanceModel::DayKey key = rows_.KeyOf(row);
    return {key.nip, key.day, rows_.RecordAt(row)};
}

void frmAbsensi::LoadRow(int row) {
    rows_.SetRecord(row, ::LoadRow(program_.Db(), RowAt(row)));
}

/// What another desk did to the row's card is shown at once, beside the message that says so.
bool frmAbsensi::SaveStatusCell(int row, const QString& status) {
    const ShownDayRow shown = RowAt(row);
    try {
        rows_.SetRecord(row, SaveDayStatus(program_.Db(), shown, status));
    } catch (const ConflictError&) {
        LoadRow(row);
        throw;
    }
    ui_->lblDone->setText(u"%1, %2: status %3 tersimpan."_s.arg(shown.nip, ShownDay(shown.day), status));
    return true;
}

void frmAbsensi::MSHFlexGrid1_DblClick(const QModelIndex& cell) {
    if (cell.column() == AttendanceModel::SerialNumber)
        LoadRow(cell.row());
    else if (cell.column() == AttendanceModel::Status)
        editor_->OpenOnCurrentCell();
}

void frmAbsensi::GridEnterKey(const QModelIndex& cell) {
    const bool inStatus = cell.column() == AttendanceModel::Status;
    const bool isEmpty = cell.siblingAtColumn(AttendanceModel::Status).data().toString().isEmpty();
    GoTo(cell.row());
    if (!isEmpty)
        editor_->OpenOnCurrentCell();
    else if (inStatus)
        editor_->OfferPickList(); // the button stands there already
    else
        editor_->ShowPickButton();
}

void frmAbsensi::GridDeleteKey(const QModelIndex& cell) {
    const int row = cell.row();
    const ShownDayRow shown = RowAt(row);
    if (!shown.record || !modGeneral::AskAdminPass(program_))
        return;
    const QStringList hidden = HiddenOnCard(program_.Db(), shown);
    if (!hidden.isEmpty()
        && program_.dialogs.Ask(
               u"Kartu %1 memuat juga yang tidak tampil di baris ini:\n%2\n\nHapus semuanya?"_s.arg(
                   shown.record->tcid, hidden.join(u'\n')),
               Dialogs::Answer::No)
               != Dialogs::Answer::Yes)
        return;
    try {
        DeleteCardDays(program_.Db(), shown, hidden);
        LoadRow(row);
    } catch (const ConflictError&) {
        LoadRow(row);
        throw;
    }
    ui_->lblDone->setText(u"%1, %2: absensi dihapus."_s.arg(shown.nip, ShownDay(shown.day)));
    ui_->MSHFlexGrid1->setFocus();
}

void frmAbsensi::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    Form_Load();
    editor_->Blocks().ForgetSteps();
    ui_->txtEmpl->setFocus();
    ui_->txtEmpl->selectAll();
    if (RefreshAttendance())
        GoTo(0);
}

void frmAbsensi::keyPressEvent(QKeyEvent* event) {
    const int row = ui_->MSHFlexGrid1->currentIndex().row();
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_F5 && row >= 0)
        Trapped(program_, u"LoadRow"_s, [&] { LoadRow(row); });
    else if (event->key() == Qt::Key_F9)
        cmdEmpl_Click();
    else if (!IsEnter(event->key()))
        QDialog::keyPressEvent(event);
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
    else
        cmdRefresh_Click();
}

void frmAbsensi::closeEvent(QCloseEvent* event) {
    SavePlace(*this);
    QDialog::closeEvent(event);
}
