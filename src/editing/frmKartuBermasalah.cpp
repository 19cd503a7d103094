#include "editing/frmKartuBermasalah.h"

#include "cards/sheet_identifier.h"
#include "core/first_lines.h"
#include "editing/computation_words.h"
#include "ui/code_combo.h"
#include "ui/pick_list.h"
#include "ui/typing.h"
#include "ui/window_place.h"
#include "ui/work_progress.h"
#include "ui_frmKartuBermasalah.h"

#include <QKeyEvent>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize FirstSize(1320, 660);

} // namespace

frmKartuBermasalah::frmKartuBermasalah(Program& program, ProblemWindowNeeds needs,
                                       const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), needs_(std::move(needs)),
      ui_(std::make_unique<Ui::frmKartuBermasalah>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Middle));
    SetUpDateBoxes(*this, program_);
    SetUpGrid();
    ui_->txtMasalah->addItem(AllChoice.toString());
    for (int kind = 0; kind < ProblemKindCount; ++kind)
        ui_->txtMasalah->addItem(KindText(static_cast<ProblemKind>(kind)));
    ui_->cmdImpor->setEnabled(bool(needs_.importPunches));
    connect(ui_->cmdCari, &QPushButton::clicked, this, &frmKartuBermasalah::cmdCari_Click);
    connect(ui_->cmdLengkapi, &QPushButton::clicked, this, &frmKartuBermasalah::cmdLengkapi_Click);
    connect(ui_->cmdBuka, &QPushButton::clicked, this, &frmKartuBermasalah::cmdBuka_Click);
    connect(ui_->cmdImpor, &QPushButton::clicked, this, &frmKartuBermasalah::cmdImpor_Click);
    connect(ui_->cmdTutup, &QPushButton::clicked, this, &QDialog::close);
    connect(ui_->txtMasalah, &QComboBox::currentIndexChanged, this, &frmKartuBermasalah::txtMasalah_Click);
    RestorePlace(*this, FirstSize);
}

frmKartuBermasalah::~frmKartuBermasalah() = default;

void frmKartuBermasalah::SetUpGrid() {
    DataGrid& grid = *ui_->MSHFlexGrid1;
    grid.setModel(&problems_);
    grid.setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid.SetEmptyText(u"Tidak ada kartu bermasalah pada masa ini."_s);
    const QFontMetrics metrics = grid.fontMetrics();
    const auto width = [&](int column, const QString& sample) {
        grid.setColumnWidth(column, metrics.horizontalAdvance(sample) + metrics.horizontalAdvance(u"MM"_s));
    };
    width(ProblemModel::Tanggal, u"00-MMM-0000"_s);
    width(ProblemModel::Nip, u"00000000"_s);
    width(ProblemModel::Nama, u"Muhammad Ramadhan"_s);
    width(ProblemModel::Dept, u"MMMMM"_s);
    width(ProblemModel::Masalah, KindText(ProblemKind::NoCard));
    width(ProblemModel::Masuk, u"00:00 00-MMM"_s);
    width(ProblemModel::Keluar, u"00:00 00-MMM"_s);
    width(ProblemModel::Status, u"Status"_s);
    width(ProblemModel::Shift, u"MALAM"_s);
    grid.StretchColumn(ProblemModel::Usul, metrics.horizontalAdvance(u"buka kartu dan isi jam keluar"_s));
    connect(&grid, &DataGrid::RowChosen, this, &frmKartuBermasalah::cmdBuka_Click);
}

/// The window is kept; it opens on the month so far, which on its first day is the one before.
void frmKartuBermasalah::Form_Load() {
    const Day today = program_.clock.Today();
    const std::chrono::year_month_day yesterday{today - std::chrono::days{1}};
    ui_->txtTanggal1->SetValue(Day{yesterday.year() / yesterday.month() / 1});
    ui_->txtTanggal2->SetValue(today);
    Trapped(program_, u"frmKartuBermasalah.Form_Load"_s, [this] {
        OfferCodes(*ui_->txtDept,
                   CodeLists::Departments(program_.Db(), CodeLists::DepartmentColumns::Joined));
    });
    Find();
    ui_->MSHFlexGrid1->setFocus();
}

void frmKartuBermasalah::cmdCari_Click() {
    if (ReadTypedBoxes(*this))
        Find();
}

void frmKartuBermasalah::Find(const QString& done) {
    CardFilter filter;
    filter.days = DayRange{DayOf(ui_->txtTanggal1->Value()), DayOf(ui_->txtTanggal2->Value())};
    if (const QString nip = ui_->txtNIK->text().trimmed(); !nip.isEmpty())
        filter.nip = nip;
    filter.dept = ChosenCode(*ui_->txtDept);
    const int row = ui_->MSHFlexGrid1->currentIndex().row();
    Trapped(program_, u"frmKartuBermasalah.Find"_s, [&] {
        const BusyPointer busy;
        problems_.SetProblems(FindProblems(program_.Db(), filter, program_.clock.Now()));
        // Where a row is gone, the next one stands in its place.
        ui_->MSHFlexGrid1->selectRow(std::clamp(row, 0, std::max(0, problems_.rowCount() - 1)));
        ui_->lblRows->setText(u"%1 · %2 s/d %3"_s.arg(problems_.CountText(), ShownDay(filter.days->first),
                                                      ShownDay(filter.days->last)));
        ui_->lblDone->setText(done);
    });
}

void frmKartuBermasalah::txtMasalah_Click() {
    const int kind = ui_->txtMasalah->currentIndex() - 1;
    problems_.ShowKind(kind < 0 ? std::nullopt : std::optional(static_cast<ProblemKind>(kind)));
    ui_->MSHFlexGrid1->selectRow(0);
}

std::vector<CardProblem> frmKartuBermasalah::Chosen() {
    QModelIndexList rows = ui_->MSHFlexGrid1->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    std::vector<CardProblem> chosen;
    for (const QModelIndex& row : rows) {
        if (problems_.At(row.row()).CanBeTaken())
            chosen.push_back(problems_.At(row.row()));
    }
    if (chosen.empty())
        program_.dialogs.Warn(
            u"Tidak ada usul yang dapat dijalankan pada baris yang dipilih.\nPilih baris yang "
            "usulnya \"keluar ...\" atau \"hitung\", atau buka kartunya dengan Enter."_s);
    return chosen;
}

void frmKartuBermasalah::cmdLengkapi_Click() {
    const std::vector<CardProblem> chosen = Chosen();
    if (chosen.empty()
        || program_.dialogs.Ask(
               u"Lengkapi %1 kartu ini?\n\n%2"_s.arg(chosen.size())
                   .arg(FirstLines(chosen, u"kartu"_s, std::mem_fn(&CardProblem::OldAndNew)).join(u'\n')))
               != Dialogs::Answer::Yes)
        return;
    TakenProposals taken;
    const bool written = Trapped(program_, u"frmKartuBermasalah.cmdLengkapi"_s, [&] {
        WorkProgress progress(this, u"Melengkapi kartu ..."_s);
        taken = TakeProposals(program_.Db(), chosen, std::ref(progress));
    });
    Find(written ? u"%1 kartu dilengkapi, %2 kartu dihitung."_s.arg(taken.completed)
                       .arg(taken.computation.computed)
                 : QString());
    if (written)
        TellTaken(taken);
}

void frmKartuBermasalah::TellTaken(const TakenProposals& taken) {
    if (!taken.changedMeanwhile.empty())
        program_.dialogs.Warn(
            u"%1 kartu sudah diubah dari komputer lain dan tidak disentuh:\n%2"_s
                .arg(taken.changedMeanwhile.size())
                .arg(FirstLines(taken.changedMeanwhile, u"kartu"_s, std::mem_fn(&CardProblem::Line))
                         .join(u'\n')));
    if (const QString complaints = ComplaintsText(taken.computation); !complaints.isEmpty())
        program_.dialogs.Warn(complaints);
}

void frmKartuBermasalah::cmdBuka_Click() {
    const int row = ui_->MSHFlexGrid1->currentIndex().row();
    if (row < 0 || !needs_.editCard)
        return;
    const CardProblem problem = problems_.At(row);
    // A day without a card gets one when it is saved.
    const QString tcid =
        problem.tcid.isEmpty() ? CardIdentifier(SheetIdentifierOf(problem.day), problem.nip) : problem.tcid;
    if (needs_.editCard(tcid, problem.nip))
        Find(u"Kartu %1 disimpan."_s.arg(tcid));
}

void frmKartuBermasalah::cmdImpor_Click() {
    if (needs_.importPunches && needs_.importPunches())
        Find(u"Absen diimpor."_s);
}

void frmKartuBermasalah::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Load();
}

void frmKartuBermasalah::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F4)
        cmdLengkapi_Click();
    else if (event->key() == Qt::Key_F9 && ui_->txtNIK->hasFocus())
        OpenPickList(
            program_, *ui_->txtNIK, PickListQuery::BrowserEmployees,
            [this](const QVariantMap& values) { ui_->txtNIK->setText(values.value(u"NIP"_s).toString()); });
    else if (auto* button = IsEnter(event->key()) ? qobject_cast<QPushButton*>(focusWidget()) : nullptr)
        button->click();
    else
        QDialog::keyPressEvent(event); // where Enter presses the default button
}

void frmKartuBermasalah::closeEvent(QCloseEvent* event) {
    SavePlace(*this);
    QDialog::closeEvent(event);
}
