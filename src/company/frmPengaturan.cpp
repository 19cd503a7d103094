#include "company/frmPengaturan.h"

#include "ui_frmPengaturan.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {
constexpr int FiveDays = 5;
constexpr int SixDays = 6;
} // namespace

frmPengaturan::frmPengaturan(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), ui_(std::make_unique<Ui::frmPengaturan>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Small));
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmPengaturan::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmPengaturan::~frmPengaturan() = default;

void frmPengaturan::Form_Load() {
    Trapped(program_, u"frmPengaturan.Form_Load"_s, [this] {
        const CompanySettings settings = ReadCompanySettings(program_.Db());
        ui_->txtName->setText(settings.name);
        ui_->chkHead->setChecked(settings.nameHeadsReports);
        ui_->chkSave->setChecked(settings.saveWithoutPassword);
        ui_->chkSixDays->setChecked(settings.workDays == SixDays);
    });
    ui_->txtName->setFocus();
}

void frmPengaturan::cmdOK_Click() {
    const bool written = Trapped(program_, u"frmPengaturan.cmdOK_Click"_s, [this] {
        WriteCompanySettings(program_.Db(),
                             {ui_->txtName->text().trimmed(), ui_->chkHead->isChecked(),
                              ui_->chkSave->isChecked(), ui_->chkSixDays->isChecked() ? SixDays : FiveDays});
    });
    if (written)
        accept();
}

void frmPengaturan::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Load();
}

void frmPengaturan::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F6)
        cmdOK_Click();
    else
        QDialog::keyPressEvent(event);
}
