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

    /// Loads the main window and shows it, with the employees' window over it where a company was just
    /// founded; false when the program must end.
    bool Start();

private:
    /// Lets the user set a company up; false when there is none to go on with.
    bool SetUp();
    void OpenSettings();
    std::unique_ptr<QDialog> MakeBrowser(QWidget* over);
    std::unique_ptr<QDialog> MakeProblems(QWidget* over);
    /// True when the card was written.
    bool EditCard(const QString& tcid, const QString& nip, QWidget* over);

    Program& program_;
    b_form_skin::Backgrounds& skin_;
    std::unique_ptr<frmMain> desk_;
    bool founded_ = false;
    /// Made when it is first opened; it keeps the windows that it has opened.
    std::unique_ptr<frmSetting> settings_;
};
