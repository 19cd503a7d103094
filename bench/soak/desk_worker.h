#pragma once

#include "app/desk_windows.h"
#include "soak/account.h"
#include "tour/keyboard_user.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <map>
#include <optional>

class QTableView;

/// What a worker was shown, counted by text.
class CountingDialogs : public Dialogs {
public:
    void Show(Icon, const QString& text) override {
        ++shown[text.simplified()];
        ++count;
    }
    Answer Ask(const QString& question, Answer) override {
        ++asked[question.simplified()];
        return Answer::Yes;
    }
    std::map<QString, int> shown;
    std::map<QString, int> asked;
    int count = 0;
};

/// Somebody at a desk, who does one thing after the other and reports what was recorded.
class DeskWorker {
public:
    /// The fault is one of FaultNames, or empty.
    DeskWorker(const QString& folder, int number, int employees, const QString& fault);

    bool Start();
    void Work(QDeadlineTimer until);

private:
    void DoSomething(int what);
    void Punch(Qt::Key key);
    void EditInBrowser();
    void EditInSearch();
    void ComputeSearched(QWidget& search);
    void FillRoster();
    void PrintReport();
    void CloseAndReopen();

    void LogIn();
    /// Opens one of the supervisor's windows and leaves all of them when the action is done.
    void InOffice(Qt::Key mnemonic, const QString& window, const KeyboardUser::Action& action);
    /// Types into the current cell and leaves the row, which saves it.
    void TypeIntoCell(QTableView& grid, const QString& text, Writing writing);
    void LeaveStuckWindow();
    void TellWhatWasShown();

    int employees_;
    QString fault_;
    SystemClock clock_;
    CountingDialogs dialogs_;
    modGeneral::ErrorLog log_;
    b_global::SharedConnection database_;
    b_form_skin::Backgrounds skin_;
    Program program_;
    DeskWindows windows_;
    std::optional<KeyboardUser> user_;
    QTimer watchdog_;
    QElapsedTimer began_;
    std::map<QString, int> done_;
    QByteArrayList leaked_; ///< for the fault "memory"
    int reportsShown_ = 0;
};
