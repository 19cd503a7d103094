#include "shell/frmSetting.h"

#include "ui/card_button.h"
#include "ui/theme.h"
#include "ui/typing.h"
#include "ui_frmSetting.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int CardsBeside = 2;

struct Card {
    QStringView group;
    QStringView control;
    QStringView picture;
    QStringView caption;
    QStringView line;
    SettingNeeds::MakeWindow SettingNeeds::*window;
};

constexpr QStringView Groups[] = {u"Absensi", u"Jadwal", u"Data", u"Bulan"};

/// A further window is a further row here and a member of SettingNeeds.
constexpr Card Cards[] = {
    {u"Absensi", u"cmdButtons_0", u"report", u"&EDIT AND REPORT",
     u"Melihat, melengkapi dan mencetak absensi karyawan", &SettingNeeds::browser},
    {u"Jadwal", u"cmdButtons_1", u"calendar", u"&SHIFT", u"Mengisi jadwal shift karyawan untuk satu bulan",
     &SettingNeeds::roster},
    {u"Jadwal", u"cmdButtons_2", u"clock", u"SHIFT &CODE",
     u"Mengatur kode shift dengan jam masuk dan jam keluarnya", &SettingNeeds::shiftCodes},
    {u"Absensi", u"cmdEditAbsensi", u"search", u"Edit &Data Absensi",
     u"Mencari kartu absen dan memperbaikinya langsung di tabel", &SettingNeeds::search},
    {u"Data", u"cmdMaster", u"people", u"DATA &MASTER",
     u"Karyawan, departemen, divisi, kode absensi dan pengguna", &SettingNeeds::masterData},
    {u"Data", u"cmdPengaturan", u"settings", u"&PENGATURAN",
     u"Nama perusahaan dan aturan yang berlaku di semua komputer", &SettingNeeds::companySettings},
    {u"Absensi", u"cmdKartuBermasalah", u"warning", u"KARTU &BERMASALAH",
     u"Melengkapi kartu yang terlupa dan mengimpor mesin absen", &SettingNeeds::problems},
};

} // namespace

frmSetting::frmSetting(SettingNeeds needs, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), needs_(std::move(needs)), ui_(std::make_unique<Ui::frmSetting>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Small));
    LayCards();
}

frmSetting::~frmSetting() = default;

void frmSetting::LayCards() {
    QWidget* last = nullptr;
    int row = 0;
    for (const QStringView group : Groups) {
        auto* heading = new QLabel(group.toString(), this);
        heading->setProperty("look", u"section"_s);
        ui_->cards->addWidget(heading, row++, 0);
        int beside = 0;
        for (size_t index = 0; index < std::size(Cards); ++index) {
            const Card& card = Cards[index];
            if (card.group != group)
                continue;
            auto* button =
                new CardButton(card.picture.toString(), card.caption.toString(), card.line.toString(), this);
            button->setObjectName(card.control);
            button->setEnabled(bool(needs_.*card.window));
            ui_->cards->addWidget(button, row + beside / CardsBeside, beside % CardsBeside);
            connect(button, &QPushButton::clicked, this, [this, index] { cmdButtons_Click(index); });
            if (last)
                setTabOrder(last, button);
            last = button;
            ++beside;
        }
        heading->setVisible(beside > 0);
        row += (beside + CardsBeside - 1) / CardsBeside;
    }
    setTabOrder(last, ui_->chkAdminMode);
}

/// The window is kept, but its box is that of a fresh one.
void frmSetting::Form_Load() {
    ui_->chkAdminMode->setCheckState(Qt::Unchecked);
    for (CardButton* button : findChildren<CardButton*>()) {
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

void frmSetting::cmdButtons_Click(size_t index) {
    std::unique_ptr<QDialog>& window = windows_[index];
    if (!window)
        window = (needs_.*Cards[index].window)(this);
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
