#include "app/desk_windows.h"

#include "editing/frmAbsensi.h"
#include "editing/frmEditAbsensi.h"
#include "editing/frmEditAbsensiOne.h"
#include "reports/frmRptCriteria.h"
#include "shifts/frmShiftCode.h"
#include "shifts/frmShiftEmployee.h"

#include <QApplication>

DeskWindows::DeskWindows(Program& program, b_form_skin::Backgrounds& skin,
                         std::function<QString()> userCountry)
    : program_(program), skin_(skin) {
    MainWindowNeeds needs;
    needs.editCard = [this](const QString& tcid, const QString& nip) {
        if (EditCard(tcid, nip, desk_.get()))
            desk_->RefreshSheetNow();
    };
    needs.openSettings = [this] { OpenSettings(); };
    needs.userCountry = std::move(userCountry);
    desk_ = std::make_unique<frmMain>(program, skin, std::move(needs));
}

void DeskWindows::OpenSettings() {
    if (!settings_) {
        SettingNeeds needs;
        needs.browser = [this](QWidget* over) { return MakeBrowser(over); };
        needs.roster = [this](QWidget* over) {
            return std::make_unique<frmShiftEmployee>(program_, skin_, over);
        };
        needs.shiftCodes = [this](QWidget* over) {
            return std::make_unique<frmShiftCode>(program_, skin_, over);
        };
        needs.search = [this](QWidget* over) {
            return std::make_unique<frmEditAbsensi>(program_, skin_, over);
        };
        needs.setAdminMode = [this](bool on) { desk_->SetAdminMode(on); };
        settings_ = std::make_unique<frmSetting>(std::move(needs), skin_, desk_.get());
    }
    settings_->exec();
}

std::unique_ptr<QDialog> DeskWindows::MakeBrowser(QWidget* over) {
    AttendanceBrowserNeeds needs;
    needs.openReport = [this](const QString& name) {
        frmRptCriteria(program_, name, skin_, QApplication::activeWindow()).exec();
    };
    needs.editCard = [this](const QString& tcid, const QString& nip) {
        return EditCard(tcid, nip, QApplication::activeWindow());
    };
    return std::make_unique<frmAbsensi>(program_, std::move(needs), skin_, over);
}

bool DeskWindows::EditCard(const QString& tcid, const QString& nip, QWidget* over) {
    bool saved = false;
    frmEditAbsensiOne editor(program_, tcid, nip, skin_, over);
    QObject::connect(&editor, &frmEditAbsensiOne::Saved, &editor, [&saved] { saved = true; });
    editor.exec();
    return saved;
}
