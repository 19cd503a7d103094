#include "company/frmSetup.h"

#include "company/typed_password.h"
#include "company/users.h"
#include "company/usual_codes.h"
#include "core/typed_date.h"
#include "ui/busy_pointer.h"
#include "ui/typing.h"
#include "ui/work_progress.h"
#include "ui_frmSetup.h"

#include <QFile>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadFieldNumber = 13;
constexpr int FiveDays = 5;
constexpr int SixDays = 6;

struct PageText {
    QStringView title;
    QStringView help;
};
constexpr PageText PageTexts[] = {
    {u"Selamat datang", u""},
    {u"Perusahaan baru – langkah 1 dari 3",
     u"Nama perusahaan dan supervisor pertama, yang mengurus data dan membuka jendela administrasi."},
    {u"Perusahaan baru – langkah 2 dari 3",
     u"Shift yang dipakai, dengan jamnya. Jam keluar yang mendahului jam masuk adalah jam hari berikutnya. "
     u"Semua dapat diubah lagi di SHIFT CODE."},
    {u"Perusahaan baru – langkah 3 dari 3",
     u"Kode lalu nama, misalnya \"PROD Produksi\"; daftar dari spreadsheet dapat ditempel. Semua dapat "
     u"diubah lagi di DATA MASTER."},
};

[[noreturn]] void Refuse(QWidget& field, const QString& text) {
    field.setFocus();
    throw ProgramError(BadFieldNumber, text);
}

WallTime TypedHour(QLineEdit& field, const std::optional<WallTime>& after) {
    const auto time = ReadTypedTime(field.text());
    if (!time)
        Refuse(field, u"\"%1\" bukan jam. Ketik jam sebagai hh:mm, misalnya 07:30."_s.arg(field.text()));
    return after ? time->On(DayZero, after) : time->On(DayZero);
}

} // namespace

frmSetup::frmSetup(Program& program, const QString& databaseFile, SetupNeeds needs, QWidget* parent)
    : QDialog(parent), program_(program), file_(databaseFile), needs_(std::move(needs)),
      ui_(std::make_unique<Ui::frmSetup>()) {
    ui_->setupUi(this);
    const bool exists = QFile::exists(file_);
    ui_->cmdDemo->setVisible(!exists && needs_.makeDemo);
    ui_->cmdAccess->setVisible(!exists && needs_.fromAccess);
    for (PasswordField* field : {ui_->txtPassword, ui_->txtAgain})
        field->SetCapsLockLabel(ui_->lblCapsLock);
    FillShifts();
    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmSetup::cmdNew_Click);
    connect(ui_->cmdDemo, &QPushButton::clicked, this, &frmSetup::cmdDemo_Click);
    connect(ui_->cmdAccess, &QPushButton::clicked, this, &frmSetup::cmdAccess_Click);
    connect(ui_->cmdQuit, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdNext, &QPushButton::clicked, this, &frmSetup::cmdNext_Click);
    connect(ui_->cmdBack, &QPushButton::clicked, this, &frmSetup::cmdBack_Click);
    ShowPage(Offer);
}

frmSetup::~frmSetup() = default;

void frmSetup::FillShifts() {
    shifts_ = {{ui_->chkShift_0, ui_->txtFrom_0, ui_->txtTo_0},
               {ui_->chkShift_1, ui_->txtFrom_1, ui_->txtTo_1},
               {ui_->chkShift_2, ui_->txtFrom_2, ui_->txtTo_2},
               {ui_->chkShift_3, ui_->txtFrom_3, ui_->txtTo_3},
               {ui_->chkShift_4, ui_->txtFrom_4, ui_->txtTo_4}};
    const std::vector<ShiftRow> usual = UsualCodes::Shifts();
    for (size_t i = 0; i < shifts_.size(); ++i) {
        const auto& [taken, from, to] = shifts_[i];
        taken->setText(usual[i].code);
        const bool dayOff = usual[i].timeIn == usual[i].timeOut;
        from->setText(dayOff ? QString() : ShownMinute(*usual[i].timeIn));
        to->setText(dayOff ? QString() : ShownMinute(*usual[i].timeOut));
        from->setVisible(!dayOff);
        to->setVisible(!dayOff);
        if (dayOff)
            taken->setText(usual[i].code + u"  (hari libur, tanpa jam)"_s);
    }
}

void frmSetup::ShowPage(int page) {
    ui_->stkPages->setCurrentIndex(page);
    const PageText& text = PageTexts[page];
    ui_->lblTitle->setText(text.title.toString());
    ui_->lblHelp->setText(page != Offer ? text.help.toString()
                          : QFile::exists(file_)
                              ? u"Database %1 belum punya supervisor. Buat perusahaan di dalamnya; yang "
                                "sudah ada tetap ada."_s.arg(file_)
                              : u"Belum ada database di %1. Apa yang ingin dibuka?"_s.arg(file_));
    ui_->cmdBack->setVisible(page != Offer);
    ui_->cmdNext->setVisible(page != Offer);
    ui_->cmdNext->setText(page == Codes ? u"&Selesai - F6"_s : u"&Lanjut - F6"_s);
    QWidget* const first[] = {ui_->cmdNew, ui_->txtName, ui_->chkShift_0, ui_->txtDept};
    first[page]->setFocus();
}

void frmSetup::cmdNew_Click() {
    ShowPage(Company);
}

void frmSetup::cmdDemo_Click() {
    Trapped(program_, u"frmSetup.cmdDemo_Click"_s, [this] {
        WorkProgress progress(this, u"Membuat perusahaan contoh ..."_s);
        needs_.makeDemo(file_, std::ref(progress));
        accept();
    });
}

void frmSetup::cmdAccess_Click() {
    Trapped(program_, u"frmSetup.cmdAccess_Click"_s, [this] {
        if (needs_.fromAccess(file_, this))
            accept();
    });
}

void frmSetup::cmdBack_Click() {
    ShowPage(ui_->stkPages->currentIndex() - 1);
}

void frmSetup::cmdNext_Click() {
    Trapped(program_, u"frmSetup.cmdNext_Click"_s, [this] {
        CheckPage();
        const int page = ui_->stkPages->currentIndex();
        if (page == Codes)
            Found();
        else
            ShowPage(page + 1);
    });
}

void frmSetup::CheckPage() const {
    switch (ui_->stkPages->currentIndex()) {
    case Company:
        if (ui_->txtName->text().trimmed().isEmpty())
            Refuse(*ui_->txtName, u"Nama perusahaan harus diisi."_s);
        ui_->txtUser->setFocus();
        CheckUserId(ui_->txtUser->text().trimmed());
        if (const QString refused = PasswordRefusal(ui_->txtPassword->text(), ui_->txtAgain->text());
            !refused.isNull())
            Refuse(*ui_->txtPassword, refused);
        break;
    case Shifts:
        TypedShifts();
        break;
    default:
        break;
    }
}

std::vector<ShiftRow> frmSetup::TypedShifts() const {
    std::vector<ShiftRow> typed = UsualCodes::Shifts();
    for (size_t i = shifts_.size(); i-- > 0;) {
        const auto& [taken, from, to] = shifts_[i];
        if (!taken->isChecked()) {
            typed.erase(typed.begin() + static_cast<ptrdiff_t>(i));
        } else if (!from->isHidden()) {
            typed[i].timeIn = TypedHour(*from, {});
            typed[i].timeOut = TypedHour(*to, typed[i].timeIn);
        }
    }
    return typed;
}

NewCompany frmSetup::Typed() const {
    NewCompany company;
    company.settings.name = ui_->txtName->text().trimmed();
    company.settings.saveWithoutPassword = ui_->chkSave->isChecked();
    company.settings.workDays = ui_->chkSixDays->isChecked() ? SixDays : FiveDays;
    company.supervisor = ui_->txtUser->text().trimmed();
    company.password = ui_->txtPassword->text();
    company.shifts = TypedShifts();
    if (ui_->chkCodes->isChecked()) {
        company.statuses = UsualCodes::Statuses();
        company.absenceTypes = UsualCodes::AbsenceTypes();
    }
    ui_->txtDept->setFocus();
    company.departments = ReadCodeLines(ui_->txtDept->toPlainText());
    ui_->txtDivisi->setFocus();
    company.divisions = ReadCodeLines(ui_->txtDivisi->toPlainText());
    return company;
}

void frmSetup::Found() {
    const BusyPointer busy;
    FoundCompany(file_, Typed());
    founded_ = true;
    accept();
}

void frmSetup::keyPressEvent(QKeyEvent* event) {
    const int page = ui_->stkPages->currentIndex();
    if (event->key() == Qt::Key_Escape)
        page == Offer ? reject() : cmdBack_Click();
    else if (event->key() == Qt::Key_F6 && page != Offer)
        cmdNext_Click();
    else if (!IsEnter(event->key()))
        QDialog::keyPressEvent(event);
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
    else
        focusNextChild();
}
