#include "company/frmImpor.h"

#include "ui/date_box.h"
#include "ui/typing.h"
#include "ui/work_progress.h"
#include "ui_frmImpor.h"

#include <QFileInfo>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize FirstSize(1180, 640);

template<class Form>
std::optional<Form> ChosenForm(const QComboBox& box) {
    return box.currentIndex() == 0 ? std::nullopt : std::optional(static_cast<Form>(box.currentIndex()));
}

} // namespace

frmImpor::frmImpor(Program& program, EmployeeFile file, QWidget* parent)
    : QDialog(parent), program_(program), rows_(std::move(file)),
      fields_(MatchHeadings(rows_.File().headings)), ui_(std::make_unique<Ui::frmImpor>()) {
    ui_->setupUi(this);
    SetUpDateBoxes(*this, program);
    ui_->cmdCancel->setProperty("leaves", true);
    ui_->lblFile->setText(QFileInfo(rows_.File().path).fileName());
    ui_->lblForm->setText(FormText(rows_.File().form, std::ssize(rows_.File().rows)));
    ui_->grdImpor->setModel(&rows_);
    ui_->grdImpor->SetEmptyText(u"Berkas ini tidak berisi satu baris pun."_s);
    const std::chrono::year_month_day today{program.clock.Today()};
    ui_->txtFrom->SetValue(Day{today.year() / today.month() / 1});
    FillChoices();
    connect(ui_->cboColumn, &QComboBox::currentIndexChanged, this, &frmImpor::cboColumn_Change);
    connect(ui_->cboField, &QComboBox::activated, this, &frmImpor::cboField_Change);
    for (QComboBox* box : {ui_->cboNumbers, ui_->cboDates})
        connect(box, &QComboBox::currentIndexChanged, this, &frmImpor::Plan);
    for (QCheckBox* box : {ui_->chkMake, ui_->chkEmpty})
        connect(box, &QCheckBox::toggled, this, &frmImpor::Plan);
    connect(ui_->txtFrom, &DateBox::Changed, this, &frmImpor::Plan);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmImpor::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    resize(FirstSize);
    cboColumn_Change();
    Plan();
    ui_->grdImpor->setFocus();
}

frmImpor::~frmImpor() = default;

void frmImpor::FillChoices() {
    ui_->cboColumn->addItems(rows_.File().headings);
    ui_->cboField->addItem(u"(tidak dipakai)"_s);
    for (int field = 1; field < EmployeeFieldCount; ++field)
        ui_->cboField->addItem(EmployeeFieldName(static_cast<EmployeeField>(field)));
    ui_->cboNumbers->addItems({u"menurut berkas"_s, u"1,000.5"_s, u"1.000,5"_s});
    ui_->cboDates->addItems({u"menurut berkas"_s, u"hari/bulan/tahun"_s, u"bulan/hari/tahun"_s});
}

void frmImpor::cboColumn_Change() {
    const int column = ui_->cboColumn->currentIndex();
    ui_->cboField->setCurrentIndex(column < 0 ? 0 : static_cast<int>(fields_[static_cast<size_t>(column)]));
}

void frmImpor::cboField_Change() {
    const int column = ui_->cboColumn->currentIndex();
    if (column < 0)
        return;
    fields_[static_cast<size_t>(column)] = static_cast<EmployeeField>(ui_->cboField->currentIndex());
    Plan();
}

ImportOptions frmImpor::Options() const {
    return {ui_->chkEmpty->isChecked(), ui_->chkMake->isChecked(), DayOf(ui_->txtFrom->Value()),
            ChosenForm<NumberForm>(*ui_->cboNumbers), ChosenForm<DateForm>(*ui_->cboDates)};
}

void frmImpor::Plan() {
    Trapped(program_, u"frmImpor.Plan"_s, [this] {
        const BusyPointer busy;
        const ImportOptions options = Options();
        plan_ = PlanImport(program_.Db(), rows_.File(), fields_, options, program_.clock.Today());
        rows_.Show(fields_, plan_.findings);
        ui_->lblStatus->setText(PlanText(plan_, options.payFrom));
        ui_->cmdOK->setEnabled(plan_.findings.empty());
        ui_->grdImpor->selectRow(std::max(0, rows_.FirstProblem()));
        ui_->grdImpor->setColumnWidth(ImportModel::Problems, plan_.findings.empty() ? 80 : 420);
    });
}

void frmImpor::cmdOK_Click() {
    if (!ReadTypedBoxes(*this) || !plan_.findings.empty())
        return;
    bool done = false;
    Trapped(program_, u"frmImpor.cmdOK_Click"_s, [&] {
        WorkProgress progress(this, u"Menyimpan karyawan ..."_s);
        done = RunImport(program_.Db(), plan_, std::ref(progress));
    });
    if (done)
        accept();
}

void frmImpor::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F6)
        cmdOK_Click();
    else if (auto* button = IsEnter(event->key()) ? qobject_cast<QPushButton*>(focusWidget()) : nullptr)
        button->click();
    else if (!IsEnter(event->key()))
        QDialog::keyPressEvent(event);
}
