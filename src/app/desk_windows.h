#pragma once

#include "core/program.h"
#include "shell/frmSetting.h"
#include "timecard/frmMain.h"
#include "ui/form_skin.h"

#include <functional>
#include <memory>

/// Makes the main window and the windows that open from it, and gives each what it needs of the others.
class DeskWindows {
public:
    DeskWindows(Program& program, b_form_skin::Backgrounds& skin,
                std::function<QString()> userCountry = b_WinControlPanel::UserCountry);

    frmMain& Desk() { return *desk_; }

private:
    void OpenSettings();
    std::unique_ptr<QDialog> MakeBrowser(QWidget* over);
    /// True when the card was written.
    bool EditCard(const QString& tcid, const QString& nip, QWidget* over);

    Program& program_;
    b_form_skin::Backgrounds& skin_;
    std::unique_ptr<frmMain> desk_;
    /// Made when it is first opened; it keeps the windows that it has opened.
    std::unique_ptr<frmSetting> settings_;
};
