#include "editing/frmImporAbsen.h"

#include "ui/typing.h"
#include "ui/work_progress.h"
#include "ui_frmImporAbsen.h"

#include <QFileDialog>
#include <QKeyEvent>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int CannotWriteNumber = 90032;

QString Routine(QStringView name) {
    return u"frmImporAbsen.%1"_s.arg(name);
}

QString ShownReading(const PunchReading& reading) {
    const QString direction = reading.direction == PunchDirection::In    ? u", masuk"_s
                              : reading.direction == PunchDirection::Out ? u", keluar"_s
                                                                         : u", tanpa arah"_s;
    return u"nomor %1, %2 %3"_s.arg(reading.number, ShownDay(DayOf(reading.moment)),
                                    ShownTime(reading.moment))
           + direction;
}

} // namespace

frmImporAbsen::frmImporAbsen(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), ui_(std::make_unique<Ui::frmImporAbsen>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Middle));
    listed_.SetHeaders({u"Yang perlu diperiksa"_s});
    ui_->grdList->setModel(&listed_);
    ui_->grdList->SetEmptyText(u"Belum ada yang perlu diperiksa."_s);
    ui_->grdList->StretchColumn(0, fontMetrics().averageCharWidth() * 60);
    connect(ui_->cmdPilih, &QPushButton::clicked, this, &frmImporAbsen::cmdPilih_Click);
    connect(ui_->txtFile, &QLineEdit::editingFinished, this, &frmImporAbsen::txtFile_Enter);
    connect(ui_->txtMesin, &QComboBox::activated, this, &frmImporAbsen::txtMesin_Click);
    connect(ui_->txtForm, &QLineEdit::textChanged, this, &frmImporAbsen::txtForm_Change);
    connect(ui_->cmdImpor, &QPushButton::clicked, this, &frmImporAbsen::cmdImpor_Click);
    connect(ui_->cmdSimpan, &QPushButton::clicked, this, &frmImporAbsen::cmdSimpan_Click);
    connect(ui_->cmdTutup, &QPushButton::clicked, this, &QDialog::close);
    OfferProfiles();
    txtForm_Change();
}

frmImporAbsen::~frmImporAbsen() = default;

void frmImporAbsen::OfferProfiles() {
    Trapped(program_, Routine(u"OfferProfiles"), [this] {
        profiles_ = PunchProfiles(program_.Db());
        const QString typed = ui_->txtMesin->currentText();
        ui_->txtMesin->clear();
        for (const PunchProfile& profile : profiles_)
            ui_->txtMesin->addItem(profile.name);
        ui_->txtMesin->setCurrentText(typed);
    });
}

void frmImporAbsen::cmdPilih_Click() {
    const QString file = QFileDialog::getOpenFileName(this, u"File mesin absen"_s, ui_->txtFile->text());
    if (file.isEmpty())
        return;
    ui_->txtFile->setText(file);
    txtFile_Enter();
}

/// A form that was chosen by its clock stays; else the file's own is recognised.
void frmImporAbsen::txtFile_Enter() {
    if (ui_->txtFile->text().isEmpty())
        return;
    Trapped(program_, Routine(u"txtFile_Enter"), [this] {
        firstLines_ = FirstLinesOf(ui_->txtFile->text());
        if (ui_->txtForm->text().isEmpty()) {
            const auto form = PunchForm::Recognised(firstLines_);
            ui_->txtForm->setText(form ? form->Text() : QString());
        }
        txtForm_Change();
    });
}

void frmImporAbsen::txtMesin_Click() {
    const auto chosen = std::ranges::find(profiles_, ui_->txtMesin->currentText(), &PunchProfile::name);
    if (chosen == profiles_.end())
        return;
    ui_->txtForm->setText(chosen->form.Text());
    ui_->chkPertama->setChecked(chosen->firstAndLast);
}

std::optional<PunchForm> frmImporAbsen::Form() const {
    return PunchForm::FromText(ui_->txtForm->text());
}

void frmImporAbsen::txtForm_Change() {
    const auto form = Form();
    const auto read = [&](const QString& line) { return form && form->Read(line); };
    const auto line = std::ranges::find_if(firstLines_, read);
    QString text = u"Pilih file mesin absen."_s;
    if (line != firstLines_.end())
        text = u"Dibaca: \"%1\" → %2"_s.arg(line->trimmed(), ShownReading(*form->Read(*line)));
    else if (!firstLines_.isEmpty())
        text =
            u"Bentuk ini tidak cocok. Contoh: nip,date,time,direction · nip tab moment · nip=1-8 moment=9-27"_s;
    ui_->lblForm->setText(text);
    ui_->cmdImpor->setEnabled(line != firstLines_.end());
}

PunchReport frmImporAbsen::Run(const PunchForm& form, PunchRun run) {
    WorkProgress progress(this, u"Impor absen ..."_s);
    return ImportPunches(program_.Db(), ReadPunchFile(ui_->txtFile->text(), form),
                         ui_->chkPertama->isChecked(), run, std::ref(progress));
}

void frmImporAbsen::cmdImpor_Click() {
    const auto form = Form();
    if (!form)
        return;
    Trapped(program_, Routine(u"cmdImpor"), [&] {
        const PunchReport planned = Run(*form, PunchRun::Dry);
        List(planned);
        if (program_.dialogs.Ask(
                u"Impor %1?\n\n%2"_s.arg(QFileInfo(ui_->txtFile->text()).fileName(), planned.Summary()))
            != Dialogs::Answer::Yes)
            return;
        const PunchReport report = Run(*form, PunchRun::Write);
        written_ = true;
        List(report);
        if (const QString name = ui_->txtMesin->currentText().trimmed(); !name.isEmpty())
            KeepPunchProfile(program_.Db(), {name, *form, ui_->chkPertama->isChecked()});
        ui_->lblDone->setText(u"Sudah diimpor: "_s + report.Summary());
    });
    OfferProfiles();
}

void frmImporAbsen::List(const PunchReport& report) {
    std::vector<QStringList> rows;
    for (const PunchLine& line : report.listed)
        rows.push_back({line.Text()});
    listed_.SetRows(std::move(rows));
    ui_->cmdSimpan->setEnabled(!report.listed.empty());
    ui_->lblDone->setText(report.Summary());
}

void frmImporAbsen::cmdSimpan_Click() {
    const QString path = QFileDialog::getSaveFileName(this, u"Simpan daftar"_s, u"impor-absen.txt"_s);
    if (path.isEmpty())
        return;
    Trapped(program_, Routine(u"cmdSimpan"), [&] {
        QSaveFile file(path);
        bool written = file.open(QIODevice::WriteOnly);
        for (int row = 0; written && row < listed_.rowCount(); ++row)
            written = file.write((listed_.Text(row, 0) + u"\r\n"_s).toUtf8()) >= 0;
        if (!written || !file.commit())
            throw ProgramError(CannotWriteNumber,
                               u"File %1 tidak dapat ditulis: %2"_s.arg(path, file.errorString()));
    });
}

void frmImporAbsen::keyPressEvent(QKeyEvent* event) {
    if (auto* button = IsEnter(event->key()) ? qobject_cast<QPushButton*>(focusWidget()) : nullptr)
        button->click();
    else if (IsEnter(event->key()))
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}
