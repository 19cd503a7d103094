#include "company/frmPassword.h"

#include "company/typed_password.h"
#include "ui/typing.h"
#include "ui_frmPassword.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmPassword::frmPassword(Dialogs& dialogs, const QString& whose, QWidget* parent)
    : QDialog(parent), dialogs_(dialogs), ui_(std::make_unique<Ui::frmPassword>()) {
    ui_->setupUi(this);
    ui_->lblWhose->setText(u"Password untuk %1"_s.arg(whose));
    for (PasswordField* field : {ui_->txtPassword, ui_->txtAgain})
        field->SetCapsLockLabel(ui_->lblCapsLock);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmPassword::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmPassword::~frmPassword() = default;

QString frmPassword::Password() const {
    return ui_->txtPassword->text();
}

void frmPassword::cmdOK_Click() {
    const QString refused = PasswordRefusal(ui_->txtPassword->text(), ui_->txtAgain->text());
    if (refused.isNull())
        return accept();
    dialogs_.Warn(refused);
    ui_->txtPassword->clear();
    ui_->txtAgain->clear();
    ui_->txtPassword->setFocus();
}

void frmPassword::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F6)
        cmdOK_Click();
    else if (IsEnter(event->key()) && focusWidget() == ui_->txtPassword)
        ui_->txtAgain->setFocus();
    else
        QDialog::keyPressEvent(event);
}
