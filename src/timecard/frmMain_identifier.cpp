// The sheet's identifier in the main window: its fields, its lock, the spinner and the day tabs.

#include "cards/sheet_identifier.h"
#include "core/supervisor_check.h"
#include "timecard/frmMain.h"
#include "ui_frmMain.h"

using namespace Qt::StringLiterals;
using modGeneral::AskAdminPass;

namespace {
constexpr int LastDayOfAnyMonth = 31;
}

/// The month of every sheet that is chosen from now on is that of this day.
void frmMain::StartDay(Day today) {
    ui_->txtTcIDLeft->setText(MonthPartOf(today));
    ui_->tabTgl->ShowMonthOf(today);
    ShowDayTab();
}

bool frmMain::IsUnlocked() const {
    return ui_->txtTCID->isEnabled();
}

void frmMain::cmdTCID_Click() {
    const bool unlock = !IsUnlocked();
    if (unlock && !AskAdminPass(program_))
        return;
    for (QWidget* field : {ui_->txtTCID, ui_->txtTcIDRight, ui_->txtExt})
        field->setEnabled(unlock);
    ui_->cmdTCID->setText(unlock ? u"&Kunci"_s : u"Buka &kunci"_s);
    if (unlock)
        ui_->txtTcIDRight->setFocus();
}

void frmMain::txtTCID_Change() {
    const QString sheet = ui_->txtTCID->text();
    ui_->txtTcIDLeft->setText(MonthPartOf(program_.clock.Today()));
    if (!sheet.contains(u'-'))
        ui_->txtTcIDRight->setText(TrailingDay(sheet));
    ShowDayTab();
}

void frmMain::txtTcIDRight_LostFocus() {
    ComposeIdentifier();
}

void frmMain::ComposeIdentifier() {
    const QString day = ui_->txtTcIDRight->text().trimmed();
    if (day.isEmpty()) {
        ui_->txtTcIDRight->setText(DayPartOf(ui_->txtTCID->text()));
    } else {
        ui_->txtTcIDRight->setText(TwoDigitDay(day));
        ui_->txtTCID->setText(ComposeSheetIdentifier(ui_->txtTcIDLeft->text(), day, ui_->txtExt->text()));
    }
    RefreshSheet(Cause::User);
}

/// Only a supervisor may switch the sheet to another day; back to today everybody may.
bool frmMain::MaySwitchTo(const QString& day) {
    return IsUnlocked() || day == TrailingDay(SheetIdentifierOf(program_.clock.Today()))
           || AskAdminPass(program_);
}

void frmMain::SwitchToDay(const QString& day) {
    const QString month = MonthPartOf(program_.clock.Today());
    const bool isShown = ui_->txtTCID->text().startsWith(month + day);
    if (!isShown && MaySwitchTo(day)) {
        ui_->txtTcIDRight->setText(day);
        ComposeIdentifier();
    }
    ShowDayTab();
}

void frmMain::tabTgl_Click(int day) {
    SwitchToDay(TwoDigitDay(QString::number(day)));
}

void frmMain::UpDown1_Change(int step) {
    const int day = ui_->txtTcIDRight->text().toInt() + step;
    if (day >= 1 && day <= LastDayOfAnyMonth)
        SwitchToDay(TwoDigitDay(QString::number(day)));
}

void frmMain::ShowDayTab() {
    const QString sheet = ui_->txtTCID->text();
    const bool ofThisMonth = sheet.startsWith(MonthPartOf(program_.clock.Today()));
    ui_->tabTgl->ShowDay(ofThisMonth ? DayPartOf(sheet).toInt() : 0);
}
