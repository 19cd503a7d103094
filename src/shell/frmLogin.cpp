#include "shell/frmLogin.h"

#include "ui_frmLogin.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmLogin::frmLogin(const Clock& clock, LoginHandOver& channel, const b_form_skin::Backgrounds& skin,
                   QWidget* parent, bool tellsDemo)
    : QDialog(parent), clock_(clock), channel_(channel), ui_(std::make_unique<Ui::frmLogin>()) {
    ui_->setupUi(this);
    if (!tellsDemo)
        ui_->Label4->setText(ui_->Label4->text().section(u" (untuk"_s, 0, 0));
    ui_->txtPassword->SetCapsLockLabel(ui_->lblCapsLock);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmLogin::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmLogin::cmdCancel_Click);
    connect(ui_->txtUsername, &QLineEdit::returnPressed, this, &frmLogin::txtUsername_Enter);
    connect(ui_->txtPassword, &QLineEdit::returnPressed, this, &frmLogin::cmdOK_Click);
    // The window sees its keys before its fields do.
    for (QWidget* field : findChildren<QWidget*>())
        field->installEventFilter(this);
    Form_Load(skin);
}

frmLogin::~frmLogin() = default;

void frmLogin::Form_Load(const b_form_skin::Backgrounds& skin) {
    ui_->txtTanggal->setText(ShownShortDay(clock_.Today()));
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Small));
    setFixedSize(sizeHint());
}

void frmLogin::Form_Activate() {
    ui_->txtUsername->setFocus();
}

void frmLogin::cmdOK_Click() {
    channel_.Put(ui_->txtUsername->text() + u'~' + ui_->txtPassword->text() + u'~' + ui_->txtTanggal->text());
    ui_->txtPassword->clear();
    accept();
}

void frmLogin::cmdCancel_Click() {
    channel_.Put(u"<CANCEL>"_s);
    ui_->txtPassword->clear();
    reject();
}

void frmLogin::txtUsername_Enter() {
    ui_->txtPassword->setFocus();
}

bool frmLogin::Form_KeyDown(int key) {
    if (key == Qt::Key_F4)
        cmdCancel_Click();
    else if (key == Qt::Key_F6)
        cmdOK_Click();
    else
        return false;
    return true;
}

void frmLogin::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        cmdCancel_Click();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // User ID and password answered it themselves.
        if (ui_->cmdCancel->hasFocus())
            cmdCancel_Click();
        else if (ui_->txtTanggal->hasFocus())
            ui_->cmdOK->setFocus();
        break;
    default:
        if (!Form_KeyDown(event->key()))
            QDialog::keyPressEvent(event);
    }
}

void frmLogin::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Form_Activate();
}

bool frmLogin::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && Form_KeyDown(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QDialog::eventFilter(watched, event);
}
