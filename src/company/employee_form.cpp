#include "company/employee_form.h"

#include "company/amount_text.h"
#include "company/employee_photo.h"
#include "company/frmPayFrom.h"
#include "core/code_lists.h"
#include "core/status_codes.h"
#include "core/typed_date.h"
#include "timecard/employee_details.h"
#include "ui/photo.h"
#include "ui/typing.h"
#include "ui_employee_form.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadFieldNumber = 13;

void OfferNamed(QComboBox& box, const std::vector<CodeName>& codes) {
    box.clear();
    box.addItem(u"(belum diisi)"_s, QString());
    for (const auto& [code, name] : codes)
        box.addItem(code == name ? code : code + u"  "_s + name, code);
}

/// A code that is not in the list is shown all the same.
void Choose(QComboBox& box, const QString& code) {
    if (box.findData(code) < 0)
        box.addItem(code, code);
    box.setCurrentIndex(box.findData(code));
}

QString DayText(const std::optional<Day>& day) {
    return day ? ShownDay(*day) : QString();
}

} // namespace

EmployeeForm::EmployeeForm(QWidget* parent) : QFrame(parent), ui_(std::make_unique<Ui::EmployeeForm>()) {
    ui_->setupUi(this);
    OfferNamed(*ui_->cboTipe, {{PayType::Daily.toString(), u"Harian"_s}, {u"BLN"_s, u"Bulanan"_s}});
    connect(ui_->cmdSimpan, &QPushButton::clicked, this, &EmployeeForm::Save);
    connect(ui_->cmdBatal, &QPushButton::clicked, this, &EmployeeForm::cmdBatal_Click);
    connect(ui_->cmdFoto, &QPushButton::clicked, this, &EmployeeForm::cmdFoto_Click);
    // What was typed is shown as it was understood.
    for (QLineEdit* field : {ui_->txtGP, ui_->txtRateOT, ui_->txtTMakan, ui_->txtSc})
        connect(field, &QLineEdit::editingFinished, this,
                [this, field] { Tidy(*field, ShownAmount(ReadAmount(field->text()))); });
    for (QLineEdit* field : {ui_->txtMasuk, ui_->txtKeluar})
        connect(field, &QLineEdit::editingFinished, this, [this, field] {
            const Day today = program_->clock.Today();
            Tidy(*field, DayText(ReadTypedDate(field->text().trimmed(), today, today)));
        });
}

EmployeeForm::~EmployeeForm() = default;

void EmployeeForm::Use(Program& program, std::function<QString()> choosePhoto) {
    program_ = &program;
    choosePhoto_ = std::move(choosePhoto);
}

void EmployeeForm::OfferCodes() {
    const auto refill = [](QComboBox& box, const std::vector<CodeName>& codes) {
        const QString chosen = box.currentData().toString();
        OfferNamed(box, codes);
        Choose(box, chosen);
    };
    refill(*ui_->cboDept, CodeLists::Departments(program_->Db(), CodeLists::DepartmentColumns::Joined));
    refill(*ui_->cboDivisi, CodeLists::Divisions(program_->Db()));
}

void EmployeeForm::ShowEmployee(const Employee& employee, const PayTerms& payToday,
                                const std::vector<PayRow>& payToCome) {
    before_ = employee;
    payBefore_ = payToday;
    Fill(employee, payToday);
    ui_->lblWho->setText(employee.nama.isEmpty() ? employee.nip : employee.nama);
    const bool left = employee.keluar && *employee.keluar < program_->clock.Today();
    QStringList state;
    if (left)
        state << u"Sudah keluar sejak %1"_s.arg(ShownDay(*employee.keluar));
    for (const PayRow& row : payToCome)
        state << u"Mulai %1: GP %2"_s.arg(ShownDay(row.from), ShownAmount(row.pay.gp));
    ui_->lblState->setText(state.join(u'\n'));
}

void EmployeeForm::ShowNew() {
    before_.reset();
    payBefore_ = {};
    Employee fresh;
    fresh.masuk = program_->clock.Today();
    Fill(fresh, {});
    ui_->lblWho->setText(u"Karyawan baru"_s);
    ui_->lblState->setText(u"Isi NIK dan nama, lalu F6."_s);
    FocusFirst();
}

void EmployeeForm::ShowNobody() {
    before_.reset();
    Fill({}, {});
    ui_->lblWho->clear();
    ui_->lblState->setText(u"Belum ada karyawan yang dipilih. Tekan Tambah (Alt+T)."_s);
    shown_ = false;
    setEnabled(false);
}

void EmployeeForm::Fill(const Employee& employee, const PayTerms& pay) {
    shown_ = true;
    setEnabled(true);
    newPhoto_.clear();
    ui_->txtNIK->setText(employee.nip);
    ui_->txtNama->setText(employee.nama);
    Choose(*ui_->cboDept, employee.dept);
    Choose(*ui_->cboDivisi, employee.divisi);
    Choose(*ui_->cboTipe, pay.empType);
    ui_->txtGP->setText(ShownAmount(pay.gp));
    ui_->txtRateOT->setText(ShownAmount(pay.rateOT));
    ui_->txtTMakan->setText(ShownAmount(pay.tMakan));
    ui_->txtSc->setText(ShownAmount(employee.sc));
    ui_->txtIdMesin->setText(employee.idMesin);
    ui_->txtMasuk->setText(DayText(employee.masuk));
    ui_->txtKeluar->setText(DayText(employee.keluar));
    ShowPhoto(PhotoFile(program_->folder, employee.pathImage));
    filled_.clear();
    for (const QLineEdit* field : findChildren<QLineEdit*>())
        filled_ << field->text();
    for (const QComboBox* box : findChildren<QComboBox*>())
        filled_ << box->currentData().toString();
}

bool EmployeeForm::IsChanged() const {
    QStringList now;
    for (const QLineEdit* field : findChildren<QLineEdit*>())
        now << field->text();
    for (const QComboBox* box : findChildren<QComboBox*>())
        now << box->currentData().toString();
    return shown_ && (now != filled_ || !newPhoto_.isEmpty());
}

void EmployeeForm::ProposeLeaving() {
    ui_->txtKeluar->setText(ShownDay(program_->clock.Today()));
    ui_->txtKeluar->setFocus();
    ui_->txtKeluar->selectAll();
}

void EmployeeForm::FocusFirst() {
    QLineEdit& first = IsNew() ? *ui_->txtNIK : *ui_->txtNama;
    first.setFocus();
    first.selectAll();
}

void EmployeeForm::Tidy(QLineEdit& field, const QString& shown) {
    if (!shown.isEmpty())
        field.setText(shown);
}

std::optional<double> EmployeeForm::Amount(QLineEdit& field) const {
    if (field.text().trimmed().isEmpty())
        return std::nullopt;
    const auto amount = ReadAmount(field.text());
    if (amount)
        return amount;
    field.setFocus();
    throw ProgramError(BadFieldNumber, u"%1: \"%2\" bukan angka. Ketik misalnya 150000 atau 150.000."_s.arg(
                                           field.accessibleName(), field.text()));
}

std::optional<Day> EmployeeForm::TypedDay(QLineEdit& field) const {
    const QString typed = field.text().trimmed();
    const Day today = program_->clock.Today();
    const auto day = ReadTypedDate(typed, today, today);
    if (typed.isEmpty() || day)
        return typed.isEmpty() ? std::nullopt : day;
    field.setFocus();
    throw ProgramError(BadFieldNumber, u"%1: \"%2\" bukan tanggal. Ketik misalnya 31/1/2026."_s.arg(
                                           field.accessibleName(), typed));
}

PayTerms EmployeeForm::TypedPay() const {
    return {ui_->cboTipe->currentData().toString(), Amount(*ui_->txtGP), Amount(*ui_->txtRateOT),
            Amount(*ui_->txtTMakan)};
}

Employee EmployeeForm::Typed() const {
    Employee employee = before_.value_or(Employee());
    employee.nip = ui_->txtNIK->text().trimmed();
    employee.nama = ui_->txtNama->text().trimmed();
    employee.dept = ui_->cboDept->currentData().toString();
    employee.divisi = ui_->cboDivisi->currentData().toString();
    employee.sc = Amount(*ui_->txtSc);
    employee.masuk = TypedDay(*ui_->txtMasuk);
    employee.keluar = TypedDay(*ui_->txtKeluar);
    employee.idMesin = ui_->txtIdMesin->text().trimmed();
    return employee;
}

bool EmployeeForm::Save() {
    return shown_ && Trapped(*program_, u"EmployeeForm.Save"_s, [this] { Write(); });
}

void EmployeeForm::Write() {
    Employee employee = Typed();
    const PayTerms pay = TypedPay();
    EmployeeEntry entry;
    if (!before_) {
        employee.pay = pay;
    } else if (pay != payBefore_) {
        const auto from = AskPayFrom();
        if (!from)
            return;
        entry.pay = PayRow{employee.nip, *from, pay};
    }
    std::optional<NewPhoto> photo;
    if (!newPhoto_.isEmpty() && !employee.nip.isEmpty()) {
        photo.emplace(newPhoto_, program_->Db().FileName(), employee.nip);
        employee.pathImage = photo->PathFrom(program_->folder);
    }
    entry.change = {before_, employee};
    SaveEmployee(program_->Db(), entry);
    if (photo)
        photo->Keep();
    ShowEmployee(employee, pay, {});
    Q_EMIT Saved(employee.nip);
}

std::optional<Day> EmployeeForm::AskPayFrom() {
    frmPayFrom ask(*program_, before_->nama.isEmpty() ? before_->nip : before_->nama, this);
    const bool answered = ask.exec() == QDialog::Accepted;
    window()->activateWindow(); // not every window manager gives the focus back
    return answered ? std::optional(ask.From()) : std::nullopt;
}

bool EmployeeForm::MayLeave() {
    if (!IsChanged())
        return true;
    switch (program_->dialogs.Ask(u"Data %1 belum disimpan. Simpan sekarang?"_s.arg(ui_->lblWho->text()))) {
    case Dialogs::Answer::Yes:
        return Save() && !IsChanged();
    case Dialogs::Answer::No:
        return true;
    case Dialogs::Answer::Cancel:
        break;
    }
    return false;
}

void EmployeeForm::ShowPhoto(const QString& file) {
    const QSize room = (ui_->imgFoto->minimumSize() - QSize(4, 4)) * devicePixelRatioF();
    QImage photo = file.isEmpty() ? QImage() : ReadPhoto(file, room);
    photo.setDevicePixelRatio(devicePixelRatioF());
    ui_->imgFoto->setPixmap(QPixmap::fromImage(photo));
}

void EmployeeForm::cmdFoto_Click() {
    const QString file = choosePhoto_();
    if (file.isEmpty())
        return;
    if (ReadPhoto(file, QSize(8, 8)).isNull()) {
        program_->dialogs.Warn(u"%1 bukan file gambar. Pilih foto JPG, PNG atau GIF."_s.arg(file));
        return;
    }
    newPhoto_ = file;
    ShowPhoto(file);
}

void EmployeeForm::cmdBatal_Click() {
    Q_EMIT Left();
}

void EmployeeForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F6)
        Save();
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT Left();
    else if (!IsEnter(event->key()))
        QFrame::keyPressEvent(event);
    else if (auto* button = qobject_cast<QAbstractButton*>(focusWidget()))
        button->click();
    else if (focusWidget() == ui_->txtKeluar)
        ui_->cmdSimpan->setFocus();
    else
        focusNextChild();
}
