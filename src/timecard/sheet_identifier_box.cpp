#include "timecard/sheet_identifier_box.h"

#include "cards/sheet_identifier.h"
#include "core/supervisor_check.h"
#include "ui/day_tabs.h"
#include "ui/theme.h"
#include "ui/typing.h"
#include "ui_sheet_identifier_box.h"

#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

SheetIdentifierBox::SheetIdentifierBox(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::SheetIdentifierBox>()) {
    ui_->setupUi(this);
    ui_->txtTcIDRight->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), ui_->txtTcIDRight));
    // Cards carry their identifier in upper case: it is shown as it will stand on them.
    for (QLineEdit* field : {ui_->txtExt, ui_->txtTCID})
        TypeUpperCase(*field);
}

SheetIdentifierBox::~SheetIdentifierBox() {
    LeaveControls(*this);
}

void SheetIdentifierBox::Connect(Program& program, DayTabs& tabs) {
    program_ = &program;
    tabTgl_ = &tabs;
    SizeFields();
    ShowLock();
    connect(ui_->cmdTCID, &QPushButton::clicked, this, &SheetIdentifierBox::cmdTCID_Click);
    connect(ui_->txtTCID, &QLineEdit::textChanged, this, &SheetIdentifierBox::txtTCID_Change);
    connect(ui_->txtTCID, &QLineEdit::editingFinished, this, &SheetIdentifierBox::txtTCID_LostFocus);
    for (const QLineEdit* field : {ui_->txtTcIDRight, ui_->txtExt})
        connect(field, &QLineEdit::editingFinished, this, &SheetIdentifierBox::txtTcIDRight_LostFocus);
    connect(tabTgl_, &DayTabs::DayChosen, this, &SheetIdentifierBox::tabTgl_Click);
    connect(ui_->UpDown1_Up, &QToolButton::clicked, this, [this] { UpDown1_Change(+1); });
    connect(ui_->UpDown1_Down, &QToolButton::clicked, this, [this] { UpDown1_Change(-1); });
}

void SheetIdentifierBox::SizeFields() {
    const std::pair<QLineEdit*, QString> samples[] = {{ui_->txtTcIDLeft, u"T000000"_s},
                                                      {ui_->txtTcIDRight, u"00"_s},
                                                      {ui_->txtExt, u"W"_s},
                                                      {ui_->txtTCID, u"T00000000-W"_s}};
    for (const auto& [field, sample] : samples)
        field->setFixedWidth(Theme::FieldWidth(*field, sample));
    const int height = ui_->txtTcIDRight->sizeHint().height() / 2;
    for (QToolButton* button : {ui_->UpDown1_Up, ui_->UpDown1_Down})
        button->setFixedSize(height * 3 / 2, height);
}

void SheetIdentifierBox::SetSheet(const QString& sheet) {
    ui_->txtTCID->setText(sheet);
}

void SheetIdentifierBox::StartDay(Day today) {
    ui_->txtTcIDLeft->setText(MonthPartOf(today));
    tabTgl_->ShowMonthOf(today);
    ShowDayTab();
}

void SheetIdentifierBox::cmdTCID_Click() {
    const bool unlock = !choice_.IsUnlocked();
    if (unlock && !modGeneral::AskAdminPass(*program_))
        return;
    choice_.SetUnlocked(unlock);
    for (QWidget* field : {ui_->txtTCID, ui_->txtTcIDRight, ui_->txtExt})
        field->setEnabled(unlock);
    ShowLock();
    if (unlock)
        ui_->txtTcIDRight->setFocus();
}

void SheetIdentifierBox::ShowLock() {
    const bool unlocked = choice_.IsUnlocked();
    ui_->cmdTCID->setText(unlocked ? u"&Kunci"_s : u"Buka &kunci"_s);
    ui_->cmdTCID->setProperty("picture", unlocked ? u"unlock"_s : u"lock"_s);
    Theme::Restyle(*ui_->cmdTCID);
}

void SheetIdentifierBox::txtTCID_Change(const QString& sheet) {
    choice_.SetSheet(Today(), sheet);
    ui_->txtTcIDLeft->setText(MonthPartOf(Today()));
    ui_->txtTcIDRight->setText(choice_.DayText());
    ShowDayTab();
}

void SheetIdentifierBox::txtTCID_LostFocus() {
    // An identifier that is confirmed as it stands was chosen, too.
    choice_.SetSheet(Today(), choice_.Sheet());
    Q_EMIT SheetEntered();
}

void SheetIdentifierBox::txtTcIDRight_LostFocus() {
    Compose(ui_->txtTcIDRight->text());
}

void SheetIdentifierBox::Compose(const QString& day) {
    choice_.Compose(Today(), day, ui_->txtExt->text());
    ui_->txtTCID->setText(choice_.Sheet());
    ui_->txtTcIDRight->setText(choice_.DayText());
    Q_EMIT SheetEntered();
}

void SheetIdentifierBox::SwitchToDay(const QString& day) {
    const bool mayGo = !choice_.IsOfDay(Today(), day)
                       && (!choice_.NeedsSupervisor(Today(), day) || modGeneral::AskAdminPass(*program_));
    if (mayGo)
        Compose(day);
    ShowDayTab();
}

void SheetIdentifierBox::tabTgl_Click(int day) {
    SwitchToDay(TwoDigitDay(QString::number(day)));
}

void SheetIdentifierBox::UpDown1_Change(int step) {
    if (const auto day = SheetChoice::Step(ui_->txtTcIDRight->text(), step))
        SwitchToDay(*day);
}

void SheetIdentifierBox::ShowDayTab() {
    tabTgl_->ShowDay(choice_.MarkedDay(Today()));
}
