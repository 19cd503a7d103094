#pragma once

#include "core/program.h"
#include "timecard/clock_recording.h"
#include "timecard/problem_count.h"
#include "timecard/refresh_failures.h"
#include "timecard/sheet_model.h"
#include "ui/form_skin.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>

class QLabel;

namespace Ui {
class frmMain;
}

/// What the main window needs of the windows above it. A function that is not given leaves its entry
/// disabled.
struct MainWindowNeeds {
    /// Opens the editor of one card, filled with its header and day row.
    std::function<void(const QString& tcid, const QString& nip)> editCard = {};
    /// Opens the administrator's window and waits until it is closed.
    std::function<void()> openSettings = {};
    /// Opens the days that a supervisor has to look at.
    std::function<void()> openProblems = {};
    ProblemCount::Counter countProblems = {};
    std::function<QString()> userCountry = b_WinControlPanel::UserCountry;
    modAbsen::SetUpCompany setUp = {};
};

/// The attendance desk: the day's sheet, the running clock, and the ways to clock in and out and into
/// administration.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(Program& program, b_form_skin::Backgrounds& skin, MainWindowNeeds needs);
    ~frmMain() override;

    /// Runs the start-up checks and loads today's sheet; false when the program must end.
    bool Form_Load();

    bool AdminMode() const { return adminMode_; }
    void SetAdminMode(bool on);

    /// For windows that have changed a card.
    void RefreshSheetNow() { RefreshSheet(Cause::User); }
    void Timer1_Timer();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    using Cause = RefreshFailures::Cause;

    void ConnectControls();
    void SetUpGrid();

    void Form_KeyDown(int key);
    void cmdButtons_Click(int index);
    void mnIN_Click();
    void mnOUT_Click();
    void mnAdmin_Click();
    void lblProblems_Click();
    void mnTcidTutup_Click();
    void mnBukaTcid_Click();
    void mnAdminMode_Click();
    void MSHFlexGrid1_MouseDown(int column);
    void MSHFlexGrid1_DblClick(int row);

    /// Asks for a supervisor, unless one has turned the admin mode on.
    void OpenForSupervisor(const std::function<void()>& open);
    void OpenClockEntry(const QString& mode);
    /// What an entry of this mode is recorded on; nothing when none may be opened, which was told.
    std::optional<ClockEntry> BeginEntry(const QString& mode);
    /// Asks whether an arrival belongs on the sheet of a day that has gone by; false when it was called off.
    bool ConfirmDay();
    void ChangeSheet(bool close);
    /// Says that the identifier is no sheet's, and what was not done therefore.
    void WarnNoSheet(const QString& undone);
    void LoadEmployees(const QString& sortClause);
    /// False when it failed; the user is told.
    bool RefreshSheet(Cause cause);
    void ReadSheet(Cause cause);
    void ShowState(bool refreshed);
    void ShowCounts();
    void ShowRoster();

    Program& program_;
    b_form_skin::Backgrounds& skin_;
    MainWindowNeeds needs_;
    SheetModel sheet_;
    /// What the entry window is handed, copied from the fields at every tick.
    QString sheetIdentifier_;
    Day sheetDate_{};
    QString sortClause_;
    QString selectedNip_;
    bool adminMode_ = false;
    bool blink_ = false;
    RefreshFailures failures_;
    WallTime lastTick_{};
    WallTime lastRefresh_{};
    std::unique_ptr<Ui::frmMain> ui_;
    QLabel* lblCounts_ = nullptr;
    QLabel* lblRoster_ = nullptr;
    ProblemCount* lblProblems_ = nullptr;
    QLabel* lblUpdated_ = nullptr;
    QTimer Timer1;
};
