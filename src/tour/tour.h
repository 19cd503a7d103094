#pragma once

#include "app/desk_windows.h"
#include "core/program.h"
#include "tour/keyboard_user.h"
#include "ui/guarded_application.h"
#include "ui/message_dialogs.h"

#include <QDir>
#include <QStringList>

/// A walk through the real windows by real keystrokes: an employee clocks in and out, is refused a second
/// time, and a supervisor closes and reopens the sheet, corrects attendance, keeps shifts and prints a
/// report. Every window on the way is kept as a picture.
class Tour {
public:
    /// The program folder holds a demo company whose attendance ends before the clock's day.
    Tour(GuardedApplication& application, const QString& programFolder, const QString& pictureFolder);

    /// False when a window did not come or show what it should; the reason was printed.
    bool Run();

private:
    class TourClock : public Clock {
    public:
        WallTime Now() const override { return now; }
        WallTime now{};
    };

    /// The entries of the desk's menu, counted from its top.
    enum MenuEntry { OfficeEntry = 3, CloseSheetEntry, ReopenSheetEntry, AdminModeEntry };

    void PunchInAndOut();
    void CloseAndReopenSheet();
    void TurnAdminModeOn();
    void CorrectACard();
    void FillForgottenDeparture();
    /// From the desk, in admin mode.
    void OpenCardOf(const QString& nip);

    // the windows that ADMIN leads to, in tour_office.cpp
    void VisitOffice();
    void PlanRoster();
    void PlanSearch();
    void PlanBrowser();
    void PlanReport();
    void PlanMasterData();
    void ShowSetup();

    /// Types keys in the window in front (Keys); a name in brackets keeps a picture of that window.
    void Type(const QString& script);
    /// Types them when a window of that name is in front.
    void In(const QString& window, const QString& script);
    /// Chooses from the desk's menu, logged in as a supervisor when that is asked for.
    void ChooseFromMenu(MenuEntry entry, const QString& pictureName = {});
    void LogInAsSupervisor(const QString& pictureName = {});
    void RecordColleagues();
    void Picture(QWidget& window, const QString& name);
    /// Notes a failure when the condition does not hold.
    void Expect(bool condition, const QString& what);
    void PrintRows();

    QDir pictures_;
    TourClock clock_;
    MessageDialogs dialogs_;
    modGeneral::ErrorLog log_;
    b_global::SharedConnection database_;
    b_form_skin::Backgrounds skin_;
    Program program_;
    KeyboardUser user_;
    DeskWindows windows_;
    frmMain* desk_;
    GuardedApplication::Guard guard_;
    int pictureCount_ = 0;
    QStringList failures_;
};
