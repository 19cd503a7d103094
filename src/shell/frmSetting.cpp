#include "shell/frmSetting.h"

#include "ui/typing.h"
#include "ui_frmSetting.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmSetting::frmSetting(SettingNeeds needs, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), needs_(std::move(needs)), ui_(std::make_unique<Ui::frmSetting>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Small));
    auto* cmdButtons = new QButtonGroup(this);
    cmdButtons->addButton(ui_->cmdButtons_0, Browser);
    cmdButtons->addButton(ui_->cmdButtons_1, Roster);
    cmdButtons->addButton(ui_->cmdButtons_2, ShiftCodes);
    connect(cmdButtons, &QButtonGroup::idClicked, this, &frmSetting::cmdButtons_Click);
    connect(ui_->cmdEditAbsensi, &QPushButton::clicked, this, &frmSetting::cmdEditAbsensi_Click);
    ui_->cmdButtons_0->setEnabled(bool(needs_.browser));
    ui_->cmdButtons_1->setEnabled(bool(needs_.roster));
    ui_->cmdButtons_2->setEnabled(bool(needs_.shiftCodes));
    ui_->cmdEditAbsensi->setEnabled(bool(needs_.search));
}

frmSetting::~frmSetting() = default;

/// The window is kept, but its box is that of a fresh one.
void frmSetting::Form_Load() {
    ui_->chkAdminMode->setCheckState(Qt::Unchecked);
    for (QPushButton* button : {ui_->cmdButtons_0, ui_->cmdButtons_1, ui_->cmdButtons_2}) {
        if (!button->isEnabled())
            continue;
        button->setFocus();
        return;
    }
}

/// A cleared box leaves the desk as it was; one that is neither ticked nor cleared ends its admin mode.
void frmSetting::Form_QueryUnload() {
    const Qt::CheckState box = ui_->chkAdminMode->checkState();
    if (box != Qt::Unchecked && needs_.setAdminMode)
        needs_.setAdminMode(box == Qt::Checked);
}

void frmSetting::cmdButtons_Click(int index) {
    if (index >= Browser && index <= ShiftCodes)
        Open(static_cast<Entry>(index));
}

void frmSetting::cmdEditAbsensi_Click() {
    Open(Search);
}

void frmSetting::Open(Entry entry) {
    const SettingNeeds::MakeWindow* makers[] = {&needs_.browser, &needs_.roster, &needs_.shiftCodes,
                                                &needs_.search};
    std::unique_ptr<QDialog>& window = windows_.at(entry);
    if (!window && *makers[entry])
        window = (*makers[entry])(this);
    if (window)
        window->exec();
}

void frmSetting::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Load();
}

void frmSetting::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (auto* button = IsEnter(event->key()) ? qobject_cast<QAbstractButton*>(focusWidget()) : nullptr)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

void frmSetting::closeEvent(QCloseEvent* event) {
    Form_QueryUnload();
    QDialog::closeEvent(event);
}
