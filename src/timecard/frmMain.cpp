#include "timecard/frmMain.h"

#include "cards/sheet_identifier.h"
#include "core/day_words.h"
#include "core/status_codes.h"
#include "core/supervisor_check.h"
#include "database/short_patience.h"
#include "timecard/desk_layout.h"
#include "timecard/frmAED_Absen.h"
#include "timecard/refresh_due.h"
#include "timecard/sheet_lifecycle.h"
#include "ui/busy_pointer.h"
#include "ui/typing.h"
#include "ui/window_place.h"
#include "ui_frmMain.h"

#include <QApplication>
#include <QButtonGroup>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;
using modGeneral::AskAdminPass;

namespace {

enum Button { In, Out, Admin };

constexpr QSize LeastFirstSize(1366, 768);
constexpr int TickMilliseconds = 1200;
/// The clock's refresh waits little for another program's lock: the next one comes soon.
constexpr std::chrono::milliseconds ClockPatience{200};
constexpr int FileNotFoundNumber = 53;

/// Ctrl with a digit stands for a press on the header of the column of that number, 0 for the tenth.
std::optional<int> ColumnOfKey(const QKeyEvent& event) {
    const int digit = event.key() - Qt::Key_0;
    if (!event.modifiers().testFlag(Qt::ControlModifier) || digit < 0 || digit > 9)
        return std::nullopt;
    return digit == 0 ? 9 : digit - 1;
}

} // namespace

frmMain::frmMain(Program& program, b_form_skin::Backgrounds& skin, MainWindowNeeds needs)
    : program_(program), skin_(skin), needs_(std::move(needs)), sheet_(program.clock), failures_(program),
      ui_(std::make_unique<Ui::frmMain>()) {
    ui_->setupUi(this);
    for (const auto& [label, name] : {std::pair{&lblCounts_, u"lblCounts"_s},
                                      {&lblRoster_, u"lblRoster"_s},
                                      {&lblUpdated_, u"lblUpdated"_s}}) {
        *label = new QLabel(this);
        (*label)->setObjectName(name);
    }
    ui_->statusbar->addWidget(lblCounts_);
    lblProblems_ = new ProblemCount(program_, needs_.countProblems, this);
    ui_->statusbar->addWidget(lblProblems_);
    // What is told of a row takes the room that there is: the window is no wider for it.
    lblRoster_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ui_->statusbar->addWidget(lblRoster_, 1);
    ui_->bandClock->Watch(program_);
    ui_->statusbar->addPermanentWidget(lblUpdated_);
    ui_->boxSheet->Connect(program_, *ui_->tabTgl);
    ui_->lblCloseTcid->setText(RefusalText(Refusal::SheetClosed));
    ui_->picCloseTcid->hide();
    ui_->lblOtherDay->hide();
    ui_->lblAdminMode->hide();
    ui_->lblNotRefreshed->hide();
    ConnectControls();
}

frmMain::~frmMain() {
    LeaveControls(*this);
}

void frmMain::ConnectControls() {
    auto* cmdButtons = new QButtonGroup(this);
    cmdButtons->addButton(ui_->cmdButtons_0, In);
    cmdButtons->addButton(ui_->cmdButtons_1, Out);
    cmdButtons->addButton(ui_->cmdButtons_2, Admin);
    connect(cmdButtons, &QButtonGroup::idClicked, this, &frmMain::cmdButtons_Click);
    ui_->cmdButtons_2->setEnabled(bool(needs_.openSettings));
    ui_->mnAdmin->setEnabled(bool(needs_.openSettings));

    connect(lblProblems_, &QPushButton::clicked, this, &frmMain::lblProblems_Click);
    connect(ui_->mnIN, &QAction::triggered, this, &frmMain::mnIN_Click);
    connect(ui_->mnOUT, &QAction::triggered, this, &frmMain::mnOUT_Click);
    connect(ui_->mnAdmin, &QAction::triggered, this, &frmMain::mnAdmin_Click);
    connect(ui_->mnTcidTutup, &QAction::triggered, this, &frmMain::mnTcidTutup_Click);
    connect(ui_->mnBukaTcid, &QAction::triggered, this, &frmMain::mnBukaTcid_Click);
    connect(ui_->mnAdminMode, &QAction::triggered, this, &frmMain::mnAdminMode_Click);
    connect(ui_->mnExit, &QAction::triggered, this, &QWidget::close);

    connect(ui_->boxSheet, &SheetIdentifierBox::SheetEntered, this, [this] { RefreshSheet(Cause::User); });
    connect(ui_->MSHFlexGrid1, &DataGrid::HeaderPressed, this, &frmMain::MSHFlexGrid1_MouseDown);
    connect(ui_->MSHFlexGrid1, &DataGrid::RowChosen, this, &frmMain::MSHFlexGrid1_DblClick);
    Timer1.setInterval(TickMilliseconds);
    connect(&Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
}

bool frmMain::Form_Load() {
    if (!modAbsen::InitApplication(program_, skin_, needs_.userCountry, needs_.setUp))
        return false;
    b_form_skin::SkinWindow(*this, skin_.Picture(modAbsen::Background::Big));
    const Day today = program_.clock.Today();
    lastTick_ = program_.clock.Now();
    ui_->boxSheet->StartDay(today);
    ui_->boxSheet->SetSheet(SheetIdentifierOf(today));
    ui_->txtTanggal->setDate(ToQDate(today));
    SetUpGrid();
    LoadEmployees(SheetModel::FirstOrder());
    Timer1_Timer();
    Timer1.start();
    RestorePlace(*this, LeastFirstSize);
    ui_->MSHFlexGrid1->setFocus();
    return true;
}

void frmMain::SetUpGrid() {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    grid.setModel(&sheet_);
    // Whoever was selected stays so when the employees are read anew.
    connect(&sheet_, &QAbstractItemModel::modelAboutToBeReset, this, [this, &grid] {
        const int row = grid.currentIndex().row();
        selectedNip_ = row < 0 ? QString() : sheet_.NipAt(row);
    });
    connect(&sheet_, &QAbstractItemModel::modelReset, this,
            [this, &grid] { grid.selectRow(selectedNip_.isEmpty() ? 0 : sheet_.RowOf(selectedNip_)); });
    grid.SetEmptyText(u"Belum ada karyawan dalam database."_s);
    grid.setMouseTracking(true); // the status bar tells of the row under the mouse
    connect(grid.selectionModel(), &QItemSelectionModel::currentRowChanged, this, &frmMain::ShowRoster);
    grid.AnswerHeaders(SheetModel::SortableColumns());
    grid.horizontalHeader()->setToolTip(
        u"Klik judul Dept, NIP atau Nama, atau Ctrl+2, Ctrl+3, Ctrl+4, untuk mengurutkan"_s);
}

void frmMain::SetAdminMode(bool on) {
    adminMode_ = on;
    ui_->mnAdminMode->setChecked(on);
    ui_->lblAdminMode->setVisible(on);
}

void frmMain::Timer1_Timer() {
    const WallTime now = program_.clock.Now();
    sheetIdentifier_ = ui_->boxSheet->Sheet();
    sheetDate_ = FromQDate(ui_->txtTanggal->date());
    const Seconds rest = SinceRefresh(now);
    ui_->lblTimer->setText(ShownTime(now) + u'-' + QString::number(rest.count()));
    ui_->lblDay->setText(DayInWords(DayOf(now)));
    if (DayOf(lastTick_) != DayOf(now))
        ui_->boxSheet->StartDay(DayOf(now));
    const bool due = RefreshIsDue(lastTick_, now);
    lastTick_ = now;
    if (due) {
        blink_ = !blink_;
        RefreshSheet(Cause::Clock);
        lblProblems_->Tick();
    }
}

bool frmMain::RefreshSheet(Cause cause) {
    ui_->lblAdminMode->setVisible(adminMode_);
    std::exception_ptr failure;
    try {
        ReadSheet(cause);
        lastRefresh_ = program_.clock.Now();
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    ShowState(!failure);
    // Under another window the clock keeps quiet: what failed there has been told there.
    if (!failure || cause == Cause::User || !QApplication::activeModalWidget())
        failures_.Report(failure, cause);
    return !failure;
}

void frmMain::ReadSheet(Cause cause) {
    const BusyPointer busy;
    Connection& connection = program_.Db();
    if (connection.FileName().isEmpty())
        throw ProgramError(FileNotFoundNumber,
                           u"File database tidak ditemukan lagi. Kembalikan file itu, lalu "
                           "tutup dan buka lagi program ini."_s);
    std::optional<ShortPatience> patience;
    if (cause == Cause::Clock)
        patience.emplace(connection, ClockPatience);
    sheet_.Refresh(connection, ui_->boxSheet->Sheet());
    if (sheet_.IsClosed())
        return;
    ui_->txtTanggal->setDate(ToQDate(sheet_.SheetDay()));
    sheetDate_ = sheet_.SheetDay();
}

void frmMain::ShowState(bool refreshed) {
    ui_->picCloseTcid->setVisible(sheet_.IsClosed());
    ui_->lblOtherDay->setVisible(!ui_->boxSheet->IsOfToday());
    ui_->lblOtherDay->setText(u"Perhatian: ini lembar %1, bukan lembar hari ini."_s.arg(
        DayInWords(FromQDate(ui_->txtTanggal->date()))));
    ui_->lblNotRefreshed->setVisible(!refreshed);
    ui_->lblNotRefreshed->setText(
        u"Lembar ini tidak dapat diperbarui sejak pukul %1. Yang tampil mungkin sudah berubah."_s.arg(
            ShownTime(lastRefresh_)));
    ui_->bandClock->Look(sheet_.LatestArrival());
    ShowCounts();
    ShowRoster();
    const QString file = QFileInfo(program_.Db().FileName()).fileName();
    lblUpdated_->setText((refreshed ? u"diperbarui %1 · %2"_s : u"TIDAK dapat diperbarui sejak %1 · %2"_s)
                             .arg(ShownTime(lastRefresh_), file));
}

/// A closed sheet is not read: what its cards say is not known.
void frmMain::ShowCounts() {
    const SheetModel::Counts counts = sheet_.Count();
    for (const auto& [label, count] : {std::pair{ui_->lblIn, counts.in},
                                       {ui_->lblOut, counts.out},
                                       {ui_->lblOthers, counts.others},
                                       {ui_->lblAbsent, counts.absent}})
        label->setText(sheet_.IsClosed() ? u"–"_s : QString::number(count));
    lblCounts_->setText(
        (sheet_.IsClosed() ? u"%1 karyawan · lembar ditutup"_s : u"%1 karyawan"_s).arg(counts.employees));
}

void frmMain::ShowRoster() {
    const int row = ui_->MSHFlexGrid1->currentIndex().row();
    lblRoster_->setText(row < 0 ? QString() : sheet_.RosterText(row));
    lblRoster_->setToolTip(lblRoster_->text());
}

void frmMain::LoadEmployees(const QString& sortClause) {
    const bool loaded = Trapped(program_, u"LoadEmployees"_s, [&] {
        const BusyPointer busy;
        sheet_.LoadEmployees(program_.Db(), sortClause);
        sortClause_ = sortClause;
    });
    if (loaded)
        RefreshSheet(Cause::User);
    else
        failures_.NoteTold();
}

void frmMain::MSHFlexGrid1_MouseDown(int column) {
    const QString clause = sheet_.OrderBy(column);
    if (ui_->MSHFlexGrid1->HeaderAnswers(column) && clause != sortClause_)
        LoadEmployees(clause);
}

void frmMain::MSHFlexGrid1_DblClick(int row) {
    if (adminMode_ && needs_.editCard)
        needs_.editCard(CardIdentifier(ui_->boxSheet->Sheet(), sheet_.NipAt(row)), sheet_.NipAt(row));
}

void frmMain::Form_KeyDown(int key) {
    // F3, though it stands on the button, is not bound: administration is no matter of one stray key.
    if (key == Qt::Key_F2)
        mnIN_Click();
    else if (key == Qt::Key_F8)
        mnOUT_Click();
    else if (key == Qt::Key_F10)
        ui_->mnEdit->popup(ui_->menubar->mapToGlobal(QPoint(0, ui_->menubar->height())));
}

void frmMain::cmdButtons_Click(int index) {
    if (index == In)
        mnIN_Click();
    else if (index == Out)
        mnOUT_Click();
    else if (index == Admin)
        mnAdmin_Click();
}

void frmMain::mnIN_Click() {
    OpenClockEntry(ClockMode::In.toString());
}

void frmMain::mnOUT_Click() {
    OpenClockEntry(ClockMode::Out.toString());
}

void frmMain::OpenClockEntry(const QString& mode) {
    const std::optional<ClockEntry> entry = BeginEntry(mode);
    if (!entry)
        return;
    frmAED_Absen(
        program_, *entry, [this](const QString& next) { return BeginEntry(next); }, skin_, this)
        .exec();
    // Where a message closed together with the entry, the window manager may give the focus to none.
    activateWindow();
    RefreshSheet(Cause::User);
}

std::optional<ClockEntry> frmMain::BeginEntry(const QString& mode) {
    if (mode == ClockMode::In && !ConfirmDay())
        return std::nullopt;
    sheetIdentifier_ = ui_->boxSheet->Sheet();
    if (!IsSheetIdentifier(sheetIdentifier_)) {
        WarnNoSheet(u"absen yang dicatat"_s);
        return std::nullopt;
    }
    // The date that the window shows may be that of another sheet, or older than another desk's recording: it
    // must not go onto a card unless it was read.
    if (!RefreshSheet(Cause::User) || sheet_.IsClosed())
        return std::nullopt;
    return ClockEntry{sheetIdentifier_,     sheetDate_, mode,
                      program_.clock.Now(), {},         ui_->bandClock->IsInDoubt()};
}

void frmMain::WarnNoSheet(const QString& undone) {
    program_.dialogs.Warn(
        u"\"%1\" bukan kode lembar absen, jadi tidak ada %2.\nPilih tanggal lembar, atau minta supervisor "
        "membetulkan kode itu."_s.arg(ui_->boxSheet->Sheet(), undone));
}

bool frmMain::ConfirmDay() {
    if (!ui_->boxSheet->IsLeftOver())
        return true;
    const Day day = DayOfIdentifier(ui_->boxSheet->Sheet()).value_or(sheetDate_);
    const Dialogs::Answer answer = program_.dialogs.Ask(
        u"Lembar ini tanggal %1. Pindah ke lembar hari ini?"_s.arg(ShownDay(day)), Dialogs::Answer::Yes);
    if (answer == Dialogs::Answer::Yes)
        ui_->boxSheet->SetSheet(SheetIdentifierOf(program_.clock.Today()));
    return answer != Dialogs::Answer::Cancel;
}

void frmMain::mnAdmin_Click() {
    OpenForSupervisor(needs_.openSettings);
}

void frmMain::lblProblems_Click() {
    OpenForSupervisor(needs_.openProblems);
}

void frmMain::OpenForSupervisor(const std::function<void()>& open) {
    if (!open || (!adminMode_ && !AskAdminPass(program_)))
        return;
    open();
    RefreshSheet(Cause::User);
    lblProblems_->Tick(true);
}

void frmMain::mnTcidTutup_Click() {
    ChangeSheet(true);
}

void frmMain::mnBukaTcid_Click() {
    ChangeSheet(false);
}

void frmMain::ChangeSheet(bool close) {
    if (!AskAdminPass(program_))
        return;
    const QString sheet = ui_->boxSheet->Sheet();
    if (sheet.isEmpty())
        return;
    if (!IsSheetIdentifier(sheet)) {
        WarnNoSheet(close ? u"lembar yang ditutup"_s : u"lembar yang dibuka"_s);
        return;
    }
    const bool written = Trapped(program_, u"ChangeSheet"_s, [&] {
        close ? CloseSheet(program_.Db(), sheet) : ReopenSheet(program_.Db(), sheet);
    });
    if (!written) {
        failures_.NoteTold();
        return;
    }
    RefreshSheet(Cause::User);
    ui_->statusbar->showMessage((close ? u"Lembar %1 ditutup."_s : u"Lembar %1 dibuka lagi."_s).arg(sheet),
                                4000);
}

void frmMain::mnAdminMode_Click() {
    SetAdminMode(!adminMode_ && AskAdminPass(program_));
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (const auto column = ColumnOfKey(*event))
        MSHFlexGrid1_MouseDown(*column);
    Form_KeyDown(event->key());
    QMainWindow::keyPressEvent(event);
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (!isVisible()) // later the widths are the user's
        SizeSheetColumns(*ui_->MSHFlexGrid1, width());
    LayDesk(*ui_, *this);
}

void frmMain::closeEvent(QCloseEvent* event) {
    SavePlace(*this);
    QMainWindow::closeEvent(event);
}
