#include "shifts/roster_fill_box.h"

#include "core/code_lists.h"
#include "core/error_words.h"
#include "ui/pick_list.h"
#include "ui/theme.h"
#include "ui/work_progress.h"
#include "ui_roster_fill_box.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString Titles[] = {u"Pola"_s, u"Tukar"_s, u"Salin bulan"_s, u"Jiplak"_s};

} // namespace

RosterFillBox::RosterFillBox(Program& program, RosterModel& roster, FillWay way, const FillArea& block,
                             Write write, QWidget* parent)
    : QDialog(parent), program_(program), roster_(roster), way_(way), block_(block), write_(std::move(write)),
      ui_(std::make_unique<Ui::RosterFillBox>()) {
    ui_->setupUi(this);
    Form_Load();
    ConnectControls();
    ShowPlan();
}

RosterFillBox::~RosterFillBox() {
    for (QObject* control : findChildren<QObject*>())
        control->disconnect(this);
    roster_.EndPreview();
}

void RosterFillBox::Form_Load() {
    setWindowTitle(Titles[static_cast<int>(way_)]);
    ShowFieldsOf(way_);
    ui_->lblMonth->setText(MonthName(*roster_.Month()));
    ui_->cmbCopy->addItems({u"Lanjutkan irama tiap karyawan (siklus dikenali)"_s,
                            u"Tanggal yang sama (1 seperti 1)"_s, u"Hari yang sama (Senin seperti Senin)"_s});
    const int last = static_cast<int>(DaysIn(*roster_.Month()));
    const bool someDays = block_.lastDay > block_.firstDay;
    for (QSpinBox* day : {ui_->spnFrom, ui_->spnTo})
        day->setMaximum(last);
    ui_->spnFrom->setValue(someDays ? static_cast<int>(block_.firstDay) : 1);
    ui_->spnTo->setValue(someDays ? static_cast<int>(block_.lastDay) : last);
    for (QLineEdit* nip : {ui_->txtFirst, ui_->txtSecond})
        nip->setFixedWidth(Theme::FieldWidth(*nip, u"000000000"_s));
    const auto nipOf = [this](int employee) {
        return roster_.Roster().Employees()[static_cast<size_t>(employee)].nip;
    };
    ui_->txtFirst->setText(nipOf(block_.employees.front()));
    if (block_.employees.size() > 1)
        ui_->txtSecond->setText(nipOf(block_.employees.back()));
    ui_->txtFirst->selectAll(); // where it has the focus, it is typed over
    OfferTargets();
    Trapped(program_, u"RosterFillBox.Form_Load"_s, [this] {
        OfferPatterns();
        if (way_ == FillWay::CopyMonth)
            ReadMonthBefore();
    });
    setMinimumWidth(fontMetrics().averageCharWidth() * 75);
    adjustSize();
    // Beside what it fills, as far as there is room.
    if (const QWidget* over = parentWidget())
        move(over->mapToGlobal(over->rect().bottomRight()) - QPoint(width(), height()) - QPoint(24, 40));
}

void RosterFillBox::ShowFieldsOf(FillWay way) {
    const bool pattern = way == FillWay::Pattern;
    const bool swap = way == FillWay::Swap;
    const std::pair<QWidget*, bool> rows[] = {{ui_->lblCycle, pattern},
                                              {ui_->lblKept, pattern},
                                              {ui_->lblName, pattern},
                                              {ui_->lblStart, pattern},
                                              {ui_->lblCopy, way == FillWay::CopyMonth},
                                              {ui_->lblFirst, swap || way == FillWay::SameAs},
                                              {ui_->lblSecond, swap},
                                              {ui_->lblTarget, !swap},
                                              {ui_->chkReplace, !swap}};
    for (const auto& [field, shown] : rows) {
        int row = 0;
        QFormLayout::ItemRole role{};
        ui_->fields->getWidgetPosition(field, &row, &role);
        ui_->fields->setRowVisible(row, shown);
    }
}

void RosterFillBox::OfferTargets() {
    const auto offer = [this](const QString& name, std::vector<int> employees) {
        if (!employees.empty())
            ui_->cmbTarget->addItem(u"%1 (%2 karyawan)"_s.arg(name).arg(employees.size()));
        if (!employees.empty())
            targets_.push_back(std::move(employees));
    };
    const auto& employees = roster_.Roster().Employees();
    const std::vector<int> all = roster_.Roster().Staff();
    const bool isBlock = block_.employees.size() > 1 || block_.lastDay > block_.firstDay;
    if (isBlock)
        offer(u"Blok yang dipilih"_s, block_.employees);
    if (roster_.Shown() != all)
        offer(u"Yang tampil"_s, roster_.Shown());
    offer(u"Semua karyawan"_s, all);
    if (!isBlock)
        offer(u"Hanya "_s + employees[static_cast<size_t>(block_.employees.front())].nama, block_.employees);
    Trapped(program_, u"RosterFillBox.OfferTargets"_s, [&] {
        using enum CodeLists::DepartmentColumns;
        for (const auto& [code, name] : CodeLists::Departments(program_.Db(), Joined)) {
            std::vector<int> members = all;
            std::erase_if(members, [&, code = code](int employee) {
                return employees[static_cast<size_t>(employee)].dept != code;
            });
            offer(u"Departemen "_s + (name.isEmpty() ? code : name), std::move(members));
        }
    });
}

void RosterFillBox::OfferPatterns() {
    patterns_ = RosterStore::Patterns(program_.Db());
    ui_->cmbKept->clear();
    ui_->cmbKept->addItem(patterns_.empty() ? u"(belum ada)"_s : u"(pilih)"_s);
    for (const auto& [name, cycle] : patterns_)
        ui_->cmbKept->addItem(u"%1: %2"_s.arg(name, cycle));
    ui_->cmbKept->setEnabled(!patterns_.empty());
    ui_->cmdForget->setEnabled(false);
}

void RosterFillBox::ConnectControls() {
    for (QLineEdit* typed : {ui_->txtCycle, ui_->txtFirst, ui_->txtSecond})
        connect(typed, &QLineEdit::textChanged, this, &RosterFillBox::ShowPlan);
    for (QSpinBox* number : {ui_->spnStart, ui_->spnStep, ui_->spnFrom, ui_->spnTo})
        connect(number, &QSpinBox::valueChanged, this, &RosterFillBox::ShowPlan);
    for (QComboBox* choice : {ui_->cmbCopy, ui_->cmbTarget})
        connect(choice, &QComboBox::currentIndexChanged, this, &RosterFillBox::ShowPlan);
    connect(ui_->chkReplace, &QCheckBox::toggled, this, &RosterFillBox::ShowPlan);
    connect(ui_->cmbKept, &QComboBox::currentIndexChanged, this, &RosterFillBox::cmbKept_Click);
    connect(ui_->cmdForget, &QPushButton::clicked, this, &RosterFillBox::cmdForget_Click);
    connect(ui_->cmdFill, &QPushButton::clicked, this, &RosterFillBox::cmdFill_Click);
    connect(ui_->cmdBatal, &QPushButton::clicked, this, &QDialog::reject);
}

FillWish RosterFillBox::Wish() const {
    const auto day = [](const QSpinBox& box) { return static_cast<unsigned>(box.value()); };
    return {
        way_,
        {targets_[static_cast<size_t>(ui_->cmbTarget->currentIndex())], day(*ui_->spnFrom), day(*ui_->spnTo)},
        ui_->txtCycle->text(),
        {ui_->spnStart->value(), ui_->spnStep->value()},
        static_cast<MonthCopy>(ui_->cmbCopy->currentIndex()),
        ui_->txtFirst->text(),
        ui_->txtSecond->text()};
}

void RosterFillBox::ReadMonthBefore() {
    before_ = roster_.Roster();
    WorkProgress progress(this, u"Membaca bulan sebelumnya ..."_s);
    before_.ReadMonth(program_.Db(), PeriodOf(*roster_.Month() - std::chrono::months{1}), std::ref(progress));
}

void RosterFillBox::ShowPlan() {
    ShowName(*ui_->txtFirst, *ui_->lblFirstName);
    ShowName(*ui_->txtSecond, *ui_->lblSecondName);
    ui_->cmdFill->setEnabled(false);
    try {
        const FillPlan plan = PlanFill(Wish(), roster_.Roster(), before_);
        using enum RosterMonth::Standing;
        const bool replaces = ui_->chkReplace->isChecked() || way_ == FillWay::Swap;
        const auto [filled, kept] = roster_.Preview(plan.cells, replaces ? Replaced : Kept);
        unlisted_ = plan.unlisted;
        QString told = filled == 0 ? u"Tidak ada sel yang perlu diisi."_s
                                   : u"%1 sel akan diisi; tampak lebih muda di jadwal."_s.arg(filled);
        if (kept > 0)
            told += u" %1 sel yang sudah terisi tetap."_s.arg(kept);
        ui_->lblPlan->setText((told + u'\n' + plan.note).trimmed());
        ui_->cmdFill->setEnabled(filled > 0);
    } catch (const ProgramError& error) {
        roster_.EndPreview();
        ui_->lblPlan->setText(UserText(error));
    }
}

void RosterFillBox::ShowName(const QLineEdit& nip, QLabel& name) {
    const int employee = roster_.Roster().EmployeeOf(nip.text().trimmed());
    name.setText(employee < 0 ? QString() : roster_.Roster().Employees()[static_cast<size_t>(employee)].nama);
}

void RosterFillBox::cmbKept_Click() {
    const int kept = ui_->cmbKept->currentIndex() - 1;
    ui_->cmdForget->setEnabled(kept >= 0);
    if (kept < 0)
        return;
    ui_->txtName->setText(patterns_[static_cast<size_t>(kept)].name);
    ui_->txtCycle->setText(patterns_[static_cast<size_t>(kept)].cycle);
}

void RosterFillBox::cmdForget_Click() {
    const int kept = ui_->cmbKept->currentIndex() - 1;
    const QString name = kept < 0 ? QString() : patterns_[static_cast<size_t>(kept)].name;
    if (kept < 0
        || program_.dialogs.Ask(u"Hapus pola \"%1\" dari daftar? Jadwal yang sudah diisi tetap."_s.arg(name),
                                Dialogs::Answer::No)
               != Dialogs::Answer::Yes)
        return;
    Trapped(program_, u"RosterFillBox.cmdForget_Click"_s, [&] {
        RosterStore::ForgetPattern(program_.Db(), name);
        ui_->txtName->clear();
        OfferPatterns();
    });
}

/// What is to be kept is asked before anything is written; nothing where the answer is to write nothing.
std::optional<KeptPattern> RosterFillBox::PatternToKeep() {
    const KeptPattern wanted{ui_->txtName->text().trimmed(), ui_->txtCycle->text().simplified()};
    const auto same = std::ranges::find(patterns_, wanted.name, &KeptPattern::name);
    if (way_ != FillWay::Pattern || wanted.name.isEmpty()
        || (same != patterns_.end() && same->cycle == wanted.cycle))
        return KeptPattern();
    if (same == patterns_.end())
        return wanted;
    const auto answer = program_.dialogs.Ask(
        u"Pola \"%1\" sudah ada: %2. Ganti dengan %3?"_s.arg(wanted.name, same->cycle, wanted.cycle));
    if (answer == Dialogs::Answer::Cancel)
        return std::nullopt;
    return answer == Dialogs::Answer::Yes ? wanted : KeptPattern();
}

bool RosterFillBox::MayUseUnlisted() {
    return unlisted_.isEmpty()
           || program_.dialogs.Ask(
                  u"Kode %1 tidak ada di Shift: jam kerjanya tidak dapat dihitung. Isi juga?"_s.arg(
                      unlisted_.join(u", "_s)),
                  Dialogs::Answer::No)
                  == Dialogs::Answer::Yes;
}

/// When another desk was quicker, nothing was written, and the preview is that of what stands now.
void RosterFillBox::cmdFill_Click() {
    // A tick that was given by its key comes a moment later: what is filled is what was asked for.
    if (ui_->chkReplace->isDown())
        ui_->chkReplace->click();
    const auto pattern = MayUseUnlisted() ? PatternToKeep() : std::nullopt;
    if (!pattern)
        return;
    const std::vector<CellChange> changes = roster_.PreviewedChanges();
    roster_.EndPreview();
    if (!write_(changes, windowTitle()))
        return ShowPlan();
    Trapped(program_, u"RosterFillBox.cmdFill_Click"_s, [&] {
        if (!pattern->name.isEmpty())
            RosterStore::KeepPattern(program_.Db(), *pattern);
    });
    accept();
}

void RosterFillBox::keyPressEvent(QKeyEvent* event) {
    auto* nip = qobject_cast<QLineEdit*>(focusWidget());
    if (event->key() == Qt::Key_F9 && (nip == ui_->txtFirst || nip == ui_->txtSecond))
        OpenPickList(program_, *nip, PickListQuery::BrowserEmployees,
                     [nip](const QVariantMap& values) { nip->setText(values.value(u"NIP"_s).toString()); });
    else
        QDialog::keyPressEvent(event);
}
