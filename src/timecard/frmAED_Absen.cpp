#include "timecard/frmAED_Absen.h"

#include "core/code_lists.h"
#include "core/company_settings.h"
#include "core/passwords.h"
#include "ui/photo.h"
#include "ui/pick_list.h"
#include "ui/theme.h"
#include "ui/typing.h"
#include "ui_frmAED_Absen.h"

#include <QApplication>
#include <QButtonGroup>
#include <QFocusEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

enum Button { Detail, Simpan, Batal };

constexpr int CloseAfterMilliseconds = 2000;
constexpr Seconds LeaveAfter{60};
constexpr int LookForLeavingMilliseconds = 1000;

} // namespace

frmAED_Absen::frmAED_Absen(Program& program, const ClockEntry& entry, Gate gate,
                           const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), entry_(entry), gate_(std::move(gate)),
      ui_(std::make_unique<Ui::frmAED_Absen>()) {
    ui_->setupUi(this);
    ui_->txtPassword->SetCapsLockLabel(ui_->lblCapsLock);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Small));

    Timer1.setInterval(CloseAfterMilliseconds);
    Timer1.setSingleShot(true);
    Timer1.setTimerType(Qt::PreciseTimer);
    connect(&Timer1, &QTimer::timeout, this, &QDialog::accept);
    idle_.setInterval(LookForLeavingMilliseconds);
    connect(&idle_, &QTimer::timeout, this, &frmAED_Absen::CloseWhenLeft);
    // Keys count wherever they go: into a field, a list or a message over the window.
    qApp->installEventFilter(this);
    auto* cmdButtons = new QButtonGroup(this);
    cmdButtons->addButton(ui_->cmdButtons_0, Detail);
    cmdButtons->addButton(ui_->cmdButtons_1, Simpan);
    cmdButtons->addButton(ui_->cmdButtons_2, Batal);
    connect(cmdButtons, &QButtonGroup::idClicked, this, &frmAED_Absen::cmdButtons_Click);
}

frmAED_Absen::~frmAED_Absen() = default;

void frmAED_Absen::Form_Activate() {
    entry_.openedAt = lastKey_ = program_.clock.Now();
    idle_.start();
    const WallTime moment = entry_.Moment();
    ui_->lblMode->setText(entry_.IsClockIn() ? u"ABSEN MASUK"_s : u"ABSEN KELUAR"_s);
    for (QWidget* coloured : {static_cast<QWidget*>(ui_->modeBand), static_cast<QWidget*>(ui_->lblDone)})
        Theme::SetTone(*coloured, entry_.IsClockIn() ? u"in"_s : u"out"_s);
    ui_->lblMoment->setText(ShownDay(DayOf(moment)) + u"   "_s + ShownTime(moment));
    ShowEmployee({});
    ui_->lblNight->hide();
    SetRecorded(false);
    ClearEntry();
    Trapped(program_, u"Form_Activate"_s, [this] {
        LoadPassword();
        ui_->cmdButtons_1->setVisible(ReadCompanySettings(program_.Db()).saveWithoutPassword);
    });
}

bool frmAED_Absen::LoadPassword() {
    const std::optional<QString> stored = LoadStoredPassword(program_.Db(), ui_->txtNIK->text());
    storedPassword_ = stored.value_or(QString());
    return stored.has_value();
}

void frmAED_Absen::ShowNight() {
    entry_.night = NightOfDeparture(program_.Db(), entry_, ui_->txtNIK->text());
    ui_->lblNight->setVisible(entry_.night.has_value());
    ui_->lblNight->setText(entry_.night ? entry_.night->Text() : QString());
}

void frmAED_Absen::txtNIK_Enter() {
    focusNextChild();
}

bool frmAED_Absen::txtNIK_Validate() {
    if (ui_->txtNIK->text().isEmpty() || recorded_)
        return true;
    bool known = false;
    const bool read = Trapped(program_, u"txtNIK_Validate"_s, [&] {
        known = LoadPassword();
        ShowNight();
    });
    if (read && !known) {
        program_.dialogs.Warn(u"NIK tidak ada !"_s);
        ui_->txtNIK->setFocus();
        ui_->txtNIK->selectAll();
    }
    return known;
}

void frmAED_Absen::txtPassword_Enter() {
    const QString typed = ui_->txtPassword->text();
    if (typed.isEmpty() || recorded_ || !txtNIK_Validate())
        return;
    const QString nip = ui_->txtNIK->text();
    const WallTime now = program_.clock.Now();
    QString refused = program_.passwordAttempts.WaitText(nip, now);
    if (refused.isNull() && !Passwords::MatchesAnyCase(typed, storedPassword_)) {
        program_.passwordAttempts.NoteWrong(nip, now);
        refused = u"Password salah !"_s;
    }
    if (!refused.isNull()) {
        program_.dialogs.Warn(refused);
        ui_->txtPassword->selectAll();
        return;
    }
    program_.passwordAttempts.NoteRight(nip);
    Record();
}

bool frmAED_Absen::Record() {
    const QString nip = ui_->txtNIK->text();
    if (nip.isEmpty())
        return false;
    std::optional<Refusal> refusal;
    bool recorded = false;
    Trapped(program_, u"Record"_s, [&] {
        if (!MayRecord(nip))
            return;
        refusal = RecordClockEntry(program_.Db(), entry_, nip);
        recorded = true;
    });
    if (!recorded)
        return false;
    if (refusal) {
        program_.dialogs.Warn(RefusalText(*refusal));
        // Nobody can record on that sheet any more; the desk shows its notice.
        if (refusal == Refusal::SheetClosed)
            reject();
        return false;
    }
    ShowRecorded();
    Timer1.start();
    return true;
}

/// A supervisor who is no employee stands on no sheet: whoever clocks in as one may have taken the wrong
/// number.
bool frmAED_Absen::MayRecord(const QString& nip) {
    if (!entry_.IsClockIn() || !IsSupervisorOnly(program_.Db(), nip))
        return true;
    const QString question = u"%1 adalah supervisor, bukan karyawan: absennya tidak muncul di lembar dan "
                             "laporan.\nCatat juga, sekarang dan seterusnya?"_s.arg(nip);
    if (program_.dialogs.Ask(question, Dialogs::Answer::No) != Dialogs::Answer::Yes)
        return false;
    LetClockIn(program_.Db(), nip);
    return true;
}

void frmAED_Absen::ShowRecorded() {
    ui_->txtPassword->clear();
    ui_->lblCapsLock->clear();
    setFocus();
    ui_->lblDone->setText(
        (entry_.IsClockIn() ? u"✓  Masuk tercatat pukul "_s : u"✓  Keluar tercatat pukul "_s)
        + ShownTime(entry_.Moment()));
    SetRecorded(true);
    Trapped(program_, u"ShowRecorded"_s,
            [this] { ShowEmployee(LoadEmployeeDetails(program_.Db(), ui_->txtNIK->text())); });
}

void frmAED_Absen::SetRecorded(bool recorded) {
    recorded_ = recorded;
    for (QWidget* input :
         {static_cast<QWidget*>(ui_->txtNIK), static_cast<QWidget*>(ui_->txtPassword),
          static_cast<QWidget*>(ui_->cmdButtons_1), static_cast<QWidget*>(ui_->cmdButtons_2)})
        input->setEnabled(!recorded);
    ui_->lblDone->setVisible(recorded);
    ui_->lblWho->setVisible(recorded);
    ui_->picFields->setVisible(!recorded);
    ui_->lblHelp->setVisible(!recorded);
    ShowDetail(recorded);
}

bool frmAED_Absen::BeginNext(const QKeyEvent& key) {
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool typed = !command && !key.text().isEmpty() && key.text().at(0).isLetterOrNumber();
    if (!recorded_ || (key.key() != Qt::Key_F2 && key.key() != Qt::Key_F8 && !typed))
        return false;
    Timer1.stop(); // the gate may ask
    const QStringView pressed = key.key() == Qt::Key_F2 ? ClockMode::In : ClockMode::Out;
    const std::optional<ClockEntry> next = gate_(typed ? entry_.mode : pressed.toString());
    if (!next) {
        accept();
        return true;
    }
    entry_ = *next;
    Form_Activate();
    if (typed)
        ui_->txtNIK->setText(key.text());
    return true;
}

void frmAED_Absen::ShowEmployee(const EmployeeDetails& employee) {
    ui_->txtNama->setText(employee.nama);
    ui_->lblWho->setText(employee.nama);
    ui_->txtDept->setText(employee.dept);
    ui_->txtDivisi->setText(employee.divisi);
    ShowPhoto(employee.pathImage);
}

void frmAED_Absen::ShowPhoto(const QString& pathImage) {
    const QSize room = (ui_->imgEmp->minimumSize() - QSize(4, 4)) * devicePixelRatioF();
    QImage photo = ReadPhoto(PhotoFile(program_.folder, pathImage), room);
    const bool refused = photo.isNull() || NamesNoFile(program_.folder, pathImage);
    ui_->lblPhoto->setVisible(refused && !pathImage.isEmpty());
    ui_->lblPhoto->setText(u"Foto tidak dapat ditampilkan, bukan file gambar: %1"_s.arg(pathImage));
    if (photo.isNull())
        photo = ReadPhoto(program_.folder.Existing(u"\\NoImage.gif"), room);
    photo.setDevicePixelRatio(devicePixelRatioF());
    ui_->imgEmp->setPixmap(QPixmap::fromImage(photo));
}

void frmAED_Absen::ShowDetail(bool shown) {
    ui_->picDetail->setVisible(shown);
    adjustSize();
}

void frmAED_Absen::ClearEntry() {
    ui_->txtNIK->clear();
    ui_->txtPassword->clear();
    ui_->txtNIK->setFocus();
}

void frmAED_Absen::cmdButtons_Click(int index) {
    switch (index) {
    case Detail:
        ShowDetail(ui_->picDetail->isHidden());
        break;
    case Simpan:
        // The number was checked when its field lost the focus, but a mnemonic leaves the focus where it is.
        if (!recorded_ && txtNIK_Validate() && !Record())
            program_.dialogs.Warn(u"Gagal Simpan Record ini."_s);
        break;
    case Batal:
        ClearEntry();
        break;
    default:
        break;
    }
}

void frmAED_Absen::ShowEmployeeList() {
    if (!recorded_)
        OpenPickList(program_, *ui_->txtNIK, PickListQuery::EntryEmployees(entry_.sheetDate),
                     [this](const QVariantMap& values) { LOV_AfterListClose(values); });
}

void frmAED_Absen::LOV_AfterListClose(const QVariantMap& values) {
    ui_->txtNIK->setText(values.value(u"NIP"_s).toString());
    if (txtNIK_Validate())
        ui_->txtPassword->setFocus();
}

void frmAED_Absen::keyPressEvent(QKeyEvent* event) {
    if (BeginNext(*event))
        return;
    switch (event->key()) {
    case Qt::Key_Escape:
        ui_->txtNIK->clear();
        ui_->txtPassword->clear();
        reject();
        break;
    case Qt::Key_F9:
        ShowEmployeeList();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Fields answer Enter themselves; a recorded entry has nothing left but to close.
        if (recorded_)
            accept();
        else if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
            button->click();
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

void frmAED_Absen::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(activated_, true))
        Form_Activate();
}

bool frmAED_Absen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        if (CloseWhenLeft())
            return true;
        lastKey_ = program_.clock.Now();
        const bool inField = watched == ui_->txtNIK || watched == ui_->txtPassword;
        if (inField && IsEnter(static_cast<QKeyEvent*>(event)->key())) {
            watched == ui_->txtNIK ? txtNIK_Enter() : txtPassword_Enter();
            return true;
        }
    }
    if (watched == ui_->txtNIK && event->type() == QEvent::FocusOut)
        txtNIK_LostFocus(static_cast<QFocusEvent*>(event)->reason());
    return QDialog::eventFilter(watched, event);
}

/// Whoever comes to a window that was left open must not be given the time at which it was opened.
bool frmAED_Absen::CloseWhenLeft() {
    if (recorded_ || !isVisible() || program_.clock.Now() - lastKey_ < LeaveAfter)
        return false;
    for (QWidget* over : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        if (over && over != this)
            over->close();
    }
    reject();
    return true;
}

/// The number is checked when the focus went to another field of this window, but not on the way out by the
/// "Batal" button. The focus has to arrive there before it can be called back.
void frmAED_Absen::txtNIK_LostFocus(Qt::FocusReason reason) {
    const bool moved = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                       || reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
    if (!moved)
        return;
    const auto check = [this] {
        if (isVisible() && focusWidget() != ui_->cmdButtons_2)
            txtNIK_Validate();
    };
    QMetaObject::invokeMethod(this, check, Qt::QueuedConnection);
}
