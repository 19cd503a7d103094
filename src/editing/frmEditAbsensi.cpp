#include "editing/frmEditAbsensi.h"

#include "core/code_lists.h"
#include "core/status_codes.h"
#include "core/supervisor_check.h"
#include "editing/computation_words.h"
#include "editing/employee_status.h"
#include "editing/save_questions.h"
#include "editing/search_cells.h"
#include "editing/search_criteria.h"
#include "editing/work_grid.h"
#include "reports/report_file.h"
#include "ui/busy_pointer.h"
#include "ui/cell_editor.h"
#include "ui/grid_blocks.h"
#include "ui/pick_list.h"
#include "ui/typing.h"
#include "ui/window_place.h"
#include "ui/work_progress.h"
#include "ui_frmEditAbsensi.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopeGuard>

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

constexpr QSize FirstSize(1280, 680);
/// More are computed only when the user says so.
constexpr qsizetype MostCardsUnasked = 10'000;

/// The widths of the columns, as texts that they hold in full.
const QStringList Samples =
    u"000000|MMM|00000000|Muhammad Rama|Keterangan ini|MMMM|T202611220012|MMM|22-Nov-2026|00:00:00|"
    "22-Nov-2026 00:00:00|22-Nov-2026 00:00:00|22-Nov-2026 00:00:00|False|00.00|00.00|0000000.00|"
    "0000000.00"_s.split(u'|');

} // namespace

frmEditAbsensi::frmEditAbsensi(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent, Qt::Window), program_(program), ui_(std::make_unique<Ui::frmEditAbsensi>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Middle));
    criteria_ = {{{ui_->txtDept, u"Dept"_s, EqualFragment},
                  {ui_->txtDivisi, u"Divisi"_s, EqualFragment},
                  {ui_->txtNIK, u"NIP"_s, EqualFragment},
                  {ui_->txtTCID, u"TCID"_s, PrefixFragment}}};
    SetUpGrid();
    ConnectControls();
    ShowState();
    RestorePlace(*this, FirstSize);
}

frmEditAbsensi::~frmEditAbsensi() {
    LeaveControls(*this);
}

void frmEditAbsensi::ConnectControls() {
    for (Criterion& criterion : criteria_)
        connect(criterion.box, &QLineEdit::editingFinished, this,
                [this, &criterion] { Validate(criterion); });
    // Cards carry their identifier in upper case.
    TypeUpperCase(*ui_->txtTCID);
    connect(ui_->cmdRefresh, &QPushButton::clicked, this, &frmEditAbsensi::cmdRefresh_Click);
    connect(ui_->cmdCalcHrs, &QPushButton::clicked, this, &frmEditAbsensi::cmdCalcHrs_Click);
    connect(ui_->cmdPrintGrid, &QPushButton::clicked, this, &frmEditAbsensi::cmdPrintGrid_Click);
    connect(ui_->cmdPrintTCID, &QPushButton::clicked, this, &frmEditAbsensi::cmdPrintTCID_Click);
    connect(ui_->cmdPrintNIK, &QPushButton::clicked, this, &frmEditAbsensi::cmdPrintNIK_Click);
    connect(ui_->cmdTutup, &QPushButton::clicked, this, &frmEditAbsensi::reject);
    connect(ui_->MSHFlexGrid1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmEditAbsensi::ShowCard);
    connect(&model_, &SearchModel::FetchFailed, this, &frmEditAbsensi::TellLater);
    connect(&model_, &QAbstractItemModel::rowsInserted, this, [this] { ShowState(); });
}

void frmEditAbsensi::SetUpGrid() {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    grid.setModel(&model_);
    grid.SetEmptyText(u"Isi kriteria lalu tekan Enter. Tanpa kriteria semua data dicari."_s);
    editor_ = new CellEditor(program_, grid, GridEditing());
    const QFontMetrics metrics = grid.fontMetrics();
    const QFontMetrics headings = grid.horizontalHeader()->fontMetrics();
    const int padding = metrics.horizontalAdvance(u"MMM"_s);
    for (int column = 0; column < SearchRow::ColumnCount; ++column)
        grid.setColumnWidth(column, padding
                                        + qMax(metrics.horizontalAdvance(Samples[column]),
                                               headings.horizontalAdvance(SearchColumnName(column))));
    grid.FreezeEditedColumns(Nama + 1);
}

CellEditing frmEditAbsensi::GridEditing() {
    CellEditing editing;
    editing.writeCells = [this](const std::vector<CellChange>& changes) {
        return WriteSearchCells(program_.Db(), model_, changes);
    };
    editing.nameColumns = {Nip, Nama};
    editing.tell = [this](const QString& done) { ShowState(done); };
    editing.enterGoes = CellEditing::EnterGoes::Right;
    editing.pickListColumns = {Status, Keterangan};
    editing.checkedColumn = Status;
    editing.check = [this](const QModelIndex&, const QString& code) {
        return ListedStatus(program_.Db(), code);
    };
    editing.mayEnter = [this](const QModelIndex& cell, const QString& text) {
        return cell.column() < NormalHours || MayCutNumber(program_.dialogs, text);
    };
    editing.mayEdit = [this](const QModelIndex& cell) { return MayTypeInto(cell); };
    editing.openPickList = [this](QLineEdit& anchor, const QString& reason) { cmdLov_Click(anchor, reason); };
    editing.saveRow = [this](int row) { return SaveGridRow(row); };
    editing.gridEnterKey = [this](const QModelIndex& cell) { GridEnterKey(cell); };
    editing.gridDeleteKey = [this](const QModelIndex& cell) { GridDeleteKey(cell); };
    editing.gridDoubleClick = [this](const QModelIndex& cell) { MSHFlexGrid1_DblClick(cell); };
    return editing;
}

bool frmEditAbsensi::Validate(Criterion& criterion) {
    const QString text = criterion.box->text();
    if (text == criterion.text)
        return criterion.valid; // a text that cannot be searched for is told once
    criterion.text = text;
    criterion.valid = Trapped(program_, criterion.box->objectName() + u"_Validate"_s,
                              [&] { criterion.fragment = criterion.fragmentOf(criterion.field, text); });
    return criterion.valid;
}

void frmEditAbsensi::cmdRefresh_Click() {
    QString fragments;
    for (Criterion& criterion : criteria_) {
        if (!Validate(criterion)) {
            criterion.box->setFocus();
            ShowState(u"Kriteria %1 tidak dapat dipakai."_s.arg(criterion.box->accessibleName()));
            return;
        }
        fragments += criterion.fragment;
    }
    if (SettleRows() && Search(WhereClause(fragments), Filter()) && model_.rowCount() > 0)
        ui_->MSHFlexGrid1->setFocus();
}

bool frmEditAbsensi::Search(const QString& clause, const QString& filter) {
    const bool read = Trapped(program_, u"cmdRefresh_Click"_s, [&] {
        const BusyPointer busy;
        model_.Search(program_.Db(), clause);
        shownFilter_ = filter;
        ui_->MSHFlexGrid1->SetEmptyText(u"Tidak ada data untuk kriteria ini."_s);
        if (model_.rowCount() > 0)
            ui_->MSHFlexGrid1->setCurrentIndex(model_.index(0, Status));
    });
    const bool showsOld = !read && model_.IsSearched();
    ShowState(showsOld ? u"Pencarian gagal; data yang tampil tetap yang lama."_s : QString());
    return read;
}

bool frmEditAbsensi::MayCalculate(qsizetype cards) {
    if (!model_.Clause().isEmpty() && cards <= MostCardsUnasked)
        return true;
    const QString question = u"Hitung %L1 kartu?\nHasil pencarian: %2."_s.arg(cards).arg(shownFilter_);
    return program_.dialogs.Ask(question, Dialogs::Answer::No) == Dialogs::Answer::Yes;
}

void frmEditAbsensi::cmdCalcHrs_Click() {
    if (!SettleRows())
        return;
    qsizetype cards = 0;
    const bool counted = Trapped(program_, u"cmdCalcHrs_Click"_s, [&] {
        const BusyPointer busy;
        cards = CountCards(program_.Db(), model_.Clause());
    });
    if (!counted)
        return ShowState();
    if (!MayCalculate(cards))
        return ShowState(u"Tidak ada kartu yang dihitung."_s);
    modAbsen::ComputationReport report;
    const bool computed = Trapped(program_, u"cmdCalcHrs_Click"_s, [&] {
        WorkProgress progress(this, u"Menghitung jam dan jumlah ..."_s);
        report = CalculateFoundCards(program_.Db(), model_.Clause(), cards, std::ref(progress));
    });
    // Also after a failure: what was computed before it stays.
    Trapped(program_, u"cmdCalcHrs_Click"_s, [&] {
        WorkProgress progress(this, u"Membaca hasil ..."_s);
        model_.Reread(std::ref(progress));
        editor_->Forget();
    });
    if (!computed)
        return ShowState();
    QString done = u"%1 kartu dihitung."_s.arg(report.computed);
    if (report.cancelled)
        done = u"Dibatalkan: "_s + done + u" Sisanya belum."_s;
    if (const qsizetype left = std::ssize(report.notComputed); left > 0)
        done += u" %1 kartu tidak dapat dihitung."_s.arg(left);
    ShowState(done);
    if (const QString complaints = ComplaintsText(report); !complaints.isEmpty())
        program_.dialogs.Warn(complaints);
}

void frmEditAbsensi::MSHFlexGrid1_DblClick(const QModelIndex& cell) {
    if (cell.column() == SerialNo)
        LoadRowFromDb(cell.row());
    else if (cell.column() != Status && cell.column() != OtAmount)
        editor_->OpenOnCurrentCell();
}

void frmEditAbsensi::GridEnterKey(const QModelIndex& cell) {
    if (cell.column() == Status)
        editor_->OfferPickList();
    else
        MSHFlexGrid1_DblClick(cell);
}

void frmEditAbsensi::GridDeleteKey(const QModelIndex& cell) {
    const FoundDay& shown = model_.FetchedRows()[static_cast<size_t>(cell.row())];
    if (shown.header.tcid.isEmpty() || !shown.day || !modGeneral::AskAdminPass(program_))
        return;
    const int row = cell.row();
    // Also after a conflict, when the row was read anew, there is nothing left of what was typed into it.
    const auto forget = qScopeGuard([&] {
        if (!model_.IsEdited(row))
            editor_->ForgetRow(row);
    });
    model_.DeleteRow(row);
    ui_->MSHFlexGrid1->setFocus();
    ShowState(u"Hari pada baris %1 dihapus."_s.arg(row + 1));
}

void frmEditAbsensi::cmdLov_Click(QLineEdit& anchor, const QString& reason) {
    OpenPickList(
        program_, anchor, PickListQuery::SearchStatuses,
        [this](const QVariantMap& values) { editor_->TakePicked(values.value(u"Status"_s).toString()); },
        reason);
}

/// Says why where it is not allowed.
bool frmEditAbsensi::MayTypeInto(const QModelIndex& cell) {
    if (IsWrittenColumn(cell.column()))
        return true;
    ShowState(WhyNotWritten(cell.column()));
    return false;
}

bool frmEditAbsensi::MaySave(int row) {
    if (!MayStoreReversed(program_.dialogs, model_.index(row, Tcid).data().toString(),
                          model_.ReversedTimes(row)))
        return false;
    if (!model_.GetsForgottenDeparture(row))
        return true;
    const Dialogs::Answer answer = OfferOut(program_.dialogs);
    if (answer == Dialogs::Answer::Yes)
        model_.setData(model_.index(row, Status), CardStatus::Out.toString());
    return answer != Dialogs::Answer::Cancel;
}

/// A row that another desk changed is read anew: nothing of it is left to save.
bool frmEditAbsensi::SaveGridRow(int row) {
    if (!MaySave(row))
        return false;
    try {
        editor_->Blocks().Record(model_.SaveRow(row));
        ShowState(u"Baris %1 disimpan."_s.arg(row + 1));
    } catch (const ConflictError& conflict) {
        ReportError(program_, conflict, u"SaveGridRow"_s);
        if (!model_.IsEdited(row))
            ShowState(u"Baris %1 dimuat ulang."_s.arg(row + 1));
    }
    return !model_.IsEdited(row);
}

void frmEditAbsensi::LoadRowFromDb(int row) {
    Trapped(program_, u"LoadRowFromDb"_s, [&] {
        if (!model_.LoadRow(row))
            return program_.dialogs.Inform(u"Please refresh."_s);
        editor_->ForgetRow(row);
        ShowState(u"Baris %1 dimuat ulang."_s.arg(row + 1));
    });
}

bool frmEditAbsensi::SettleRows() {
    if (!editor_->MayLeave())
        return false;
    model_.DropEdits();
    ui_->MSHFlexGrid1->ForgetUnsaved();
    editor_->Forget();
    return true;
}

void frmEditAbsensi::cmdPrintGrid_Click() {
    Print(u"cmdPrintGrid_Click"_s,
          [](const FoundRows& rows, const LineSink& sink, const Progress&) { return GridPrint(rows, sink); });
}

void frmEditAbsensi::cmdPrintTCID_Click() {
    PrintMatrix(u"cmdPrintTCID_Click"_s, SheetPrint);
}

void frmEditAbsensi::cmdPrintNIK_Click() {
    PrintMatrix(u"cmdPrintNIK_Click"_s, EmployeePrint);
}

void frmEditAbsensi::PrintMatrix(const QString& procedure, const DatedPrint& print) {
    const WallTime now = program_.clock.Now();
    const QString printedAt = u"Dicetak: %1 %2"_s.arg(ShownDay(DayOf(now)), ShownMinute(now));
    Print(procedure, [=](const FoundRows& rows, const LineSink& sink, const Progress& progress) {
        return print(rows, printedAt, sink, progress);
    });
}

/// What is printed is what the search finds now, whether or not it was fetched for the grid.
void frmEditAbsensi::Print(const QString& procedure, const ResultPrint& print) {
    if (!SettleRows())
        return;
    Trapped(program_, procedure, [&] {
        bool printed = false;
        {
            WorkProgress progress(this, u"Menulis cetakan ..."_s);
            WholeResult rows(program_.Db(), model_.Clause(), std::ref(progress));
            printed = WriteReportFile(program_.folder, [&](const LineSink& sink) {
                return print(std::ref(rows), sink, std::ref(progress));
            });
        }
        if (!printed)
            return ShowState(u"Cetakan dibatalkan."_s);
        program_.dialogs.Warn(
            u"Data akan dicetak ke NOTEPAD,\nTolong format Wordwrap di notepad di non aktifkan."_s);
        program_.showReport(ReportFilePath(program_.folder));
        ShowState(u"Cetakan ditulis ke PRINT.TXT."_s);
    });
}

/// Not from within the grid's own call, which fetches while it paints and scrolls.
void frmEditAbsensi::TellLater(const std::exception_ptr& failure) {
    QMetaObject::invokeMethod(
        this,
        [this, failure] {
            Trapped(program_, u"fetchMore"_s, [&failure] { std::rethrow_exception(failure); });
            ShowState();
        },
        Qt::QueuedConnection);
}

QString frmEditAbsensi::Filter() const {
    QStringList filter;
    for (const Criterion& criterion : criteria_) {
        if (!criterion.fragment.isEmpty())
            filter << criterion.box->accessibleName() + u' ' + criterion.text;
    }
    return filter.isEmpty() ? u"semua data"_s : filter.join(u", "_s);
}

void frmEditAbsensi::ShowState(const QString& done) {
    const QString rows = model_.IsWhole() ? u"%1 baris · %2"_s : u"%1 baris pertama, masih ada lagi · %2"_s;
    ui_->lblRows->setText(model_.IsSearched() ? rows.arg(model_.rowCount()).arg(shownFilter_) : QString());
    ui_->lblDone->setText(done);
    for (QPushButton* button : {ui_->cmdCalcHrs, ui_->cmdPrintGrid, ui_->cmdPrintTCID, ui_->cmdPrintNIK})
        button->setEnabled(model_.rowCount() > 0);
    ShowCard();
}

/// Who the current row is of can be scrolled out of sight while its amounts are typed.
void frmEditAbsensi::ShowCard() {
    const QModelIndex cell = ui_->MSHFlexGrid1->currentIndex();
    ui_->lblCard->setText(cell.isValid() ? u"%1 · %2"_s.arg(cell.siblingAtColumn(Tcid).data().toString(),
                                                            cell.siblingAtColumn(Nama).data().toString())
                                         : QString());
}

void frmEditAbsensi::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    editor_->Blocks().ForgetSteps();
    ui_->txtTCID->setFocus();
    ui_->txtTCID->selectAll();
    // The window is kept while it is closed; the rows are those of the moment when it opens.
    if (model_.IsSearched())
        Search(model_.Clause(), shownFilter_);
}

void frmEditAbsensi::keyPressEvent(QKeyEvent* event) {
    const QModelIndex cell = ui_->MSHFlexGrid1->currentIndex();
    if (event->key() == Qt::Key_F5 && cell.isValid())
        LoadRowFromDb(cell.row());
    else
        QDialog::keyPressEvent(event);
}

void frmEditAbsensi::reject() {
    if (!SettleRows())
        return;
    SavePlace(*this);
    QDialog::reject();
}
