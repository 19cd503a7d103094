#include "editing/frmEditAbsensiOne.h"

#include "cards/card_computation.h"
#include "compute/fixed_number.h"
#include "core/code_lists.h"
#include "core/query_values.h"
#include "core/status_codes.h"
#include "database/statement.h"
#include "editing/computation_words.h"
#include "editing/save_questions.h"
#include "ui/busy_pointer.h"
#include "ui/moment_box.h"
#include "ui/typing.h"
#include "ui_frmEditAbsensiOne.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

namespace {

enum Button { Simpan = 1, Batal = 2 };

/// The time that a box shows; what was loaded while the box does not count.
std::optional<WallTime> TimeOf(const MomentBox& box, bool given, const std::optional<WallTime>& loaded) {
    return given ? std::optional(box.Value()) : loaded;
}

void ShowTime(MomentBox& box, const std::optional<WallTime>& time, WallTime ifNone) {
    if (time)
        box.SetValue(*time);
    else
        box.Suggest(ifNone);
}

QString TimesHint(bool given, const MomentBox& in, const MomentBox& out) {
    return given && out.Value() < in.Value() ? u"Jam keluar mendahului jam masuk."_s : QString();
}

/// Says what part of a typed amount counts when it is not all of it.
QString AmountHint(const QString& amount) {
    const QStringView unread = UnreadPart(amount);
    return unread.isEmpty() ? QString() : u"Jumlah dibaca hanya sampai \"%1\"."_s.arg(unread[0]);
}

} // namespace

frmEditAbsensiOne::frmEditAbsensiOne(Program& program, const QString& tcid, const QString& nip,
                                     const b_form_skin::Backgrounds& skin, QWidget* parent)
    : QDialog(parent), program_(program), tcid_(tcid), nip_(nip),
      ui_(std::make_unique<Ui::frmEditAbsensiOne>()) {
    ui_->setupUi(this);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Middle));
    ui_->txtTCID->setText(tcid);
    ui_->txtNIK->setText(nip);

    auto* cmdButtons = new QButtonGroup(this);
    cmdButtons->addButton(ui_->cmdButtons_1, Simpan);
    cmdButtons->addButton(ui_->cmdButtons_2, Batal);
    connect(cmdButtons, &QButtonGroup::idClicked, this, &frmEditAbsensiOne::cmdButtons_Click);
    connect(ui_->cmdCalcHrs, &QPushButton::clicked, this, &frmEditAbsensiOne::cmdCalcHrs_Click);
    connect(ui_->chkTimeIO, &QCheckBox::toggled, this, &frmEditAbsensiOne::chkTimeIO_Click);
    connect(ui_->chkOTIO, &QCheckBox::toggled, this, &frmEditAbsensiOne::chkOTIO_Click);
    connect(ui_->txtStatus, &QComboBox::currentTextChanged, this, &frmEditAbsensiOne::ShowStatusText);
    SetUpDateBoxes(*this, program_);
    for (MomentBox* box : {ui_->txtTOUT, ui_->txtOTIN, ui_->txtOTOUT})
        box->ReadAfter([this] {
            return ui_->txtTIN->HoldsSuggestion() ? std::nullopt : std::optional(ui_->txtTIN->Value());
        });
    for (const MomentBox* box : {ui_->txtTIN, ui_->txtTOUT, ui_->txtOTIN, ui_->txtOTOUT})
        connect(box, &DateBox::Changed, this, &frmEditAbsensiOne::ShowHints);
    for (const QLineEdit* amount : {ui_->txtNAmount, ui_->txtOTAmount})
        connect(amount, &QLineEdit::textChanged, this, &frmEditAbsensiOne::ShowHints);
    ui_->txtOTAmount->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"[+-]?[0-9]*[.]?[0-9]*"_s), this));
    Form_Load();
}

frmEditAbsensiOne::~frmEditAbsensiOne() = default;

void frmEditAbsensiOne::Form_Load() {
    const WallTime today = program_.clock.Today();
    for (MomentBox* box : {ui_->txtTIN, ui_->txtTOUT, ui_->txtOTIN, ui_->txtOTOUT})
        box->Suggest(today);
    Trapped(program_, u"Form_Load"_s, [this] { FillStatusList(); });
    chkTimeIO_Click();
    chkOTIO_Click();
}

void frmEditAbsensiOne::FillStatusList() {
    ui_->txtStatus->clear();
    for (const auto& list :
         {CodeLists::AbsenceTypes(program_.Db()), CodeLists::EmployeeStatuses(program_.Db())}) {
        for (const CodeName& status : list) {
            if (ui_->txtStatus->findText(status.code, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0)
                ui_->txtStatus->addItem(status.code, status.name);
        }
    }
}

void frmEditAbsensiOne::Form_Activate() {
    Trapped(program_, u"LoadTimeCard"_s, [this] { LoadTimeCard(); });
    ui_->txtStatus->setFocus();
}

void frmEditAbsensiOne::LoadTimeCard() {
    auto card = std::make_unique<EditedCard>(program_.Db(), tcid_, nip_);
    const QString name = EmployeeName(program_.Db(), nip_).value_or(QString());
    card_ = std::move(card);
    ui_->lblNama->setText(name);
    ShowFields(card_->Fields(program_.clock.Today()));
    ui_->txtNHrs->setText(card_->NormalHours());
    ui_->txtOTHrs->setText(card_->OvertimeHours());
    ui_->lblTotalUangMakan->setText(card_->MealAllowance());
    untouched_ = TypedFields();
}

void frmEditAbsensiOne::ShowFields(const CardFields& fields) {
    ui_->txtTanggal->SetValue(fields.tanggal);
    const WallTime today = program_.clock.Today();
    ShowTime(*ui_->txtTIN, fields.timeIn, today);
    ShowTime(*ui_->txtTOUT, fields.timeOut, today);
    ShowTime(*ui_->txtOTIN, fields.overtimeIn, today);
    ShowTime(*ui_->txtOTOUT, fields.overtimeOut, today);
    ui_->chkTimeIO->setChecked(fields.normalGiven);
    ui_->chkOTIO->setChecked(fields.overtimeGiven);
    ui_->chkUangMakan->setChecked(fields.mealAllowance);
    ui_->txtNAmount->setText(fields.normalAmount);
    ui_->txtOTAmount->setText(fields.otAmount);
    ui_->txtKeterangan->setText(fields.keterangan);
    ShowStatus(fields.status);
    ShowHints();
}

void frmEditAbsensiOne::ShowStatus(const QString& status) {
    QComboBox& list = *ui_->txtStatus;
    // A status such as IN stands on cards but is no type of absence: it is offered for this card alone, and
    // only as long as the card has it.
    if (list.count() > 0 && !list.itemData(0).isValid())
        list.removeItem(0);
    if (list.findText(status) < 0)
        list.insertItem(0, status);
    list.setCurrentText(status);
    ShowStatusText();
}

CardFields frmEditAbsensiOne::TypedFields() const {
    const CardFields read = card_->Fields(program_.clock.Today());
    CardFields fields;
    fields.tanggal = DayOf(ui_->txtTanggal->Value());
    fields.status = ui_->txtStatus->currentText();
    fields.keterangan = ui_->txtKeterangan->text();
    fields.mealAllowance = ui_->chkUangMakan->isChecked();
    fields.normalGiven = ui_->chkTimeIO->isChecked();
    fields.timeIn = TimeOf(*ui_->txtTIN, fields.normalGiven, read.timeIn);
    fields.timeOut = TimeOf(*ui_->txtTOUT, fields.normalGiven, read.timeOut);
    fields.overtimeGiven = ui_->chkOTIO->isChecked();
    fields.overtimeIn = TimeOf(*ui_->txtOTIN, fields.overtimeGiven, read.overtimeIn);
    fields.overtimeOut = TimeOf(*ui_->txtOTOUT, fields.overtimeGiven, read.overtimeOut);
    fields.normalAmount = ui_->txtNAmount->text();
    fields.otAmount = ui_->txtOTAmount->text();
    return fields;
}

/// Asks about what is typed and can hardly be meant, and what goes with it.
bool frmEditAbsensiOne::MaySave(const CardFields& fields) {
    Dialogs& dialogs = program_.dialogs;
    if (!MayStoreReversed(dialogs, tcid_, ReversedTimes(fields))
        || (fields.normalAmount != untouched_.normalAmount && !MayCutNumber(dialogs, fields.normalAmount))
        || (fields.otAmount != untouched_.otAmount && !MayCutNumber(dialogs, fields.otAmount)))
        return false;
    if (!fields.normalGiven || fields.timeOut == untouched_.timeOut || fields.status != CardStatus::In)
        return true;
    const Dialogs::Answer answer = OfferOut(dialogs);
    if (answer == Dialogs::Answer::Yes)
        ShowStatus(CardStatus::Out.toString());
    return answer != Dialogs::Answer::Cancel;
}

/// Sentences on typed times of which the departure lies before the arrival.
QStringList frmEditAbsensiOne::ReversedTimes(const CardFields& fields) const {
    QStringList reversed;
    const auto compare = [&](bool given, const MomentBox& in, const MomentBox& out, bool typed) {
        if (given && typed && out.Value() < in.Value())
            reversed << u"%1 %2 mendahului %3 %4."_s.arg(out.accessibleName(), out.text(),
                                                         in.accessibleName(), in.text());
    };
    compare(fields.normalGiven, *ui_->txtTIN, *ui_->txtTOUT,
            fields.timeIn != untouched_.timeIn || fields.timeOut != untouched_.timeOut);
    compare(fields.overtimeGiven, *ui_->txtOTIN, *ui_->txtOTOUT,
            fields.overtimeIn != untouched_.overtimeIn || fields.overtimeOut != untouched_.overtimeOut);
    return reversed;
}

bool frmEditAbsensiOne::SaveTimeCard() {
    if (!ReadTypedBoxes(*this) || !card_ || !MaySave(TypedFields()))
        return false;
    bool saved = false;
    Trapped(program_, u"SaveTimeCard"_s, [&] {
        const BusyPointer busy;
        saved = card_->Save(TypedFields());
    });
    if (saved) {
        untouched_ = TypedFields();
        Q_EMIT Saved();
    }
    return saved;
}

void frmEditAbsensiOne::cmdCalcHrs_Click() {
    if (IsChanged()) {
        const auto answer =
            program_.dialogs.Ask(u"Perubahan belum disimpan.\nSimpan dulu sebelum dihitung?"_s);
        if (answer == Dialogs::Answer::Cancel || (answer == Dialogs::Answer::Yes && !SaveTimeCard()))
            return;
    }
    Trapped(program_, u"cmdCalcHrs_Click"_s, [this] {
        const modAbsen::ComputationReport report = modAbsen::CalculateTimeCard(program_.Db(), tcid_);
        for (const modAbsen::CardNotComputed& left : report.notComputed) {
            if (left.reason)
                std::rethrow_exception(left.reason);
            program_.dialogs.Warn(NoDataText(left));
        }
        Q_EMIT Saved();
        LoadTimeCard();
        if (!report.unknownShifts.empty())
            program_.dialogs.Warn(ComplaintsText(report));
    });
}

void frmEditAbsensiOne::cmdButtons_Click(int index) {
    if (index == Batal)
        reject();
    else if (SaveTimeCard())
        accept();
}

void frmEditAbsensiOne::chkTimeIO_Click() {
    EnableTimes(ui_->chkTimeIO->isChecked(), {ui_->txtTIN, ui_->txtTOUT}, *ui_->txtNHrs);
}

void frmEditAbsensiOne::chkOTIO_Click() {
    EnableTimes(ui_->chkOTIO->isChecked(), {ui_->txtOTIN, ui_->txtOTOUT}, *ui_->txtOTHrs);
}

void frmEditAbsensiOne::EnableTimes(bool given, const std::array<MomentBox*, 2>& boxes, QWidget& hours) {
    for (MomentBox* box : boxes) {
        box->setEnabled(given);
        // A forgotten time is most likely of the card's day, whatever day it is now.
        if (given && box->HoldsSuggestion())
            box->Suggest(DayOf(ui_->txtTanggal->Value()));
    }
    hours.setEnabled(given);
    ShowHints();
}

void frmEditAbsensiOne::ShowStatusText() {
    ui_->lblStatusText->setText(ui_->txtStatus->currentData().toString());
}

void frmEditAbsensiOne::ShowHints() {
    const QString normal = TimesHint(ui_->chkTimeIO->isChecked(), *ui_->txtTIN, *ui_->txtTOUT);
    ui_->lblNormalHint->setText(normal.isEmpty() ? AmountHint(ui_->txtNAmount->text()) : normal);
    const QString overtime = TimesHint(ui_->chkOTIO->isChecked(), *ui_->txtOTIN, *ui_->txtOTOUT);
    ui_->lblOvertimeHint->setText(overtime.isEmpty() ? AmountHint(ui_->txtOTAmount->text()) : overtime);
}

bool frmEditAbsensiOne::IsChanged() const {
    return card_ && (!ReadTypedBoxes(*this, Unreadable::Quiet) || TypedFields() != untouched_);
}

bool frmEditAbsensiOne::MayLeave() {
    if (!IsChanged())
        return true;
    switch (program_.dialogs.Ask(u"Perubahan belum disimpan.\nSimpan sebelum ditutup?"_s)) {
    case Dialogs::Answer::Yes:
        return SaveTimeCard();
    case Dialogs::Answer::No:
        return true;
    case Dialogs::Answer::Cancel:
        break;
    }
    return false;
}

void frmEditAbsensiOne::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(activated_, true))
        Form_Activate();
}

void frmEditAbsensiOne::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Escape)
        close();
    else if (!IsEnter(key))
        QDialog::keyPressEvent(event);
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
    else
        focusNextChild();
}

void frmEditAbsensiOne::closeEvent(QCloseEvent* event) {
    if (MayLeave())
        QDialog::closeEvent(event);
    else
        event->ignore();
}
