#include "reports/frmRptCriteria.h"

#include "core/company_settings.h"
#include "reports/report_file.h"
#include "ui/code_combo.h"
#include "ui/date_box.h"
#include "ui/pick_list.h"
#include "ui/theme.h"
#include "ui/work_progress.h"
#include "ui_frmRptCriteria.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

const QString All = AllChoice.toString();
const QString ReversedHint = u"Tanggal akhir mendahului tanggal awal: laporan tidak memuat satu hari pun."_s;

QString Routine(QStringView name) {
    return u"frmRptCriteria.%1"_s.arg(name);
}

ReportChoice ChoiceOf(const QComboBox& list) {
    const std::optional<QString> code = ChosenCode(list);
    return code ? ReportChoice{*code, list.currentText()} : ReportChoice{};
}

/// The month so far, or today alone.
Day FirstDay(Day today, bool ofTheMonth) {
    if (!ofTheMonth)
        return today;
    const std::chrono::year_month_day date{today};
    return Day{date.year() / date.month() / 1};
}

} // namespace

frmRptCriteria::frmRptCriteria(Program& program, const QString& reportName,
                               const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), report_(FindReport(reportName)),
      ui_(std::make_unique<Ui::frmRptCriteria>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Small));
    connect(ui_->cmdOk, &QPushButton::clicked, this, &frmRptCriteria::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmRptCriteria::cmdCancel_Click);
    connect(ui_->cmdLov, &QToolButton::clicked, this, &frmRptCriteria::cmdLov_Click);
    connect(ui_->txtEmpl, &QLineEdit::editingFinished, this, &frmRptCriteria::txtEmpl_LostFocus);
    SetUpDateBoxes(*this, program_);
    for (const DateBox* date : {ui_->txtDate1, ui_->txtDate2})
        connect(date, &DateBox::Changed, this, &frmRptCriteria::txtDate_Change);
    Form_Load();
}

frmRptCriteria::~frmRptCriteria() = default;

void frmRptCriteria::Form_Load() {
    const Day today = program_.clock.Today();
    ui_->txtDate1->SetValue(FirstDay(today, report_ && report_->takesPeriod));
    ui_->txtDate2->SetValue(today);
    ui_->txtEmpl->setText(All);
    Trapped(program_, Routine(u"Form_Load"), [this] { FillLists(); });
    EnableCriteria();
    ui_->lblReport->setText(report_ ? report_->title.toString() : u"Laporan tidak dikenal"_s);
    // Room for the hint from the start, so that nothing moves when it is shown.
    ui_->lblDateHint->setMinimumWidth(Theme::FieldWidth(*ui_->lblDateHint, ReversedHint));
}

void frmRptCriteria::FillLists() {
    ui_->txtSort->clear();
    for (const auto& [sort, shown] :
         {std::pair{u"NIP"_s, u"NIP"_s}, std::pair{u"Nama"_s, u"Nama"_s},
          std::pair{u"Dept,Nama"_s, u"Departemen"_s}, std::pair{u"Divisi,Nama"_s, u"Divisi"_s}})
        ui_->txtSort->addItem(shown, sort);
    ui_->txtSort->setCurrentIndex(ui_->txtSort->findData(u"Nama"_s));
    using enum CodeLists::DepartmentColumns;
    OfferCodes(*ui_->txtDept, CodeLists::Departments(program_.Db(), Spaced));
    OfferCodes(*ui_->txtDivisi, CodeLists::Divisions(program_.Db()));
}

void frmRptCriteria::EnableCriteria() {
    const auto enable = [](bool taken, std::initializer_list<QWidget*> parts) {
        for (QWidget* part : parts)
            part->setEnabled(taken);
    };
    const Report none{};
    const Report& report = report_ ? *report_ : none;
    enable(report_ != nullptr, {ui_->lblDate, ui_->txtDate1, ui_->cmdOk});
    enable(report.takesPeriod, {ui_->lblDate2, ui_->txtDate2});
    enable(report.takesEmployee, {ui_->lblEmpl, ui_->txtEmpl, ui_->cmdLov, ui_->lblEmplName});
    enable(report.takesDepartment, {ui_->lblDept, ui_->txtDept, ui_->lblDivisi, ui_->txtDivisi});
    enable(report.takesSort, {ui_->lblSort, ui_->txtSort});
    (report_ ? static_cast<QWidget*>(ui_->txtDate1) : ui_->cmdCancel)->setFocus();
}

void frmRptCriteria::txtDate_Change() {
    const bool reversed = ui_->txtDate2->isEnabled() && ui_->txtDate2->Value() < ui_->txtDate1->Value();
    ui_->lblDateHint->setText(reversed ? ReversedHint : QString());
}

void frmRptCriteria::txtEmpl_LostFocus() {
    const QString typed = ui_->txtEmpl->text().trimmed();
    ui_->txtEmpl->setText(typed.isEmpty() || typed.compare(All, Qt::CaseInsensitive) == 0 ? All : typed);
    Trapped(program_, Routine(u"txtEmpl_LostFocus"), [this] { ShowEmployeeName(); });
}

void frmRptCriteria::ShowEmployeeName() {
    ui_->lblEmplName->clear();
    if (ui_->txtEmpl->text() == All)
        return;
    ui_->lblEmplName->setText(
        EmployeeName(program_.Db(), ui_->txtEmpl->text()).value_or(u"NIK ini tidak terdaftar."_s));
}

void frmRptCriteria::cmdLov_Click() {
    OpenPickList(program_, *ui_->txtEmpl, PickListQuery::ReportEmployees,
                 [this](const QVariantMap& values) { LOV_AfterListClose(values); });
}

void frmRptCriteria::LOV_AfterListClose(const QVariantMap& values) {
    ui_->txtEmpl->setText(values.value(u"NIP"_s).toString());
    txtEmpl_LostFocus();
}

ReportCriteria frmRptCriteria::Criteria() const {
    return {.date1 = DayOf(ui_->txtDate1->Value()),
            .date2 = DayOf(ui_->txtDate2->Value()),
            .employee = ui_->txtEmpl->text(),
            .department = ChoiceOf(*ui_->txtDept),
            .division = ChoiceOf(*ui_->txtDivisi),
            .sort = ui_->txtSort->currentData().toString()};
}

void frmRptCriteria::cmdOK_Click() {
    if (!report_)
        return;
    ui_->lblDone->clear();
    if (!ReadTypedBoxes(*this))
        return;
    txtEmpl_LostFocus();
    Trapped(program_, Routine(report_->routine), [this] { PrintReport(); });
}

void frmRptCriteria::PrintReport() {
    ListedCount listed;
    {
        WorkProgress progress(this, report_->title.toString());
        listed = WriteReportFile(program_.folder, [&](const LineSink& sink) {
            if (const QString head = ReportHead(program_.Db()); !head.isNull())
                sink(head);
            return report_->print(program_.Db(), Criteria(), sink, std::ref(progress));
        });
    }
    if (!listed) {
        ui_->lblDone->setText(u"Dibatalkan. Laporan sebelumnya tetap ada."_s);
        return;
    }
    program_.showReport(ReportFilePath(program_.folder));
    ui_->lblDone->setText(*listed > 0 ? u"Laporan dengan %L1 karyawan sudah dibuat."_s.arg(*listed)
                                      : u"Tidak ada data untuk kriteria ini."_s);
}

void frmRptCriteria::cmdCancel_Click() {
    close();
}

void frmRptCriteria::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_F9:
        if (ui_->cmdLov->isEnabled())
            cmdLov_Click();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
            button->click();
        else
            focusNextChild();
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}
