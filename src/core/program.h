#pragma once

#include "core/clock.h"
#include "core/dialogs.h"
#include "core/error_log.h"
#include "core/password_attempts.h"
#include "core/program_folder.h"
#include "core/shared_connection.h"

#include <QString>

#include <functional>
#include <utility>

/// The channel from the login window to the supervisor check. What was typed goes through here and nowhere
/// else: it is held until it is taken, once.
class LoginHandOver {
public:
    void Put(const QString& text) { text_ = text; }
    QString Take() { return std::exchange(text_, QString()); }

private:
    QString text_;
};

/// What the program's windows and rules share, made once in main.
struct Program {
    ProgramFolder folder;
    const Clock& clock;
    Dialogs& dialogs;
    modGeneral::ErrorLog& log;
    b_global::SharedConnection& database;
    /// Shows the login window until it is closed; what was typed is put into the channel.
    std::function<void(LoginHandOver&)> askLogin;
    /// Shows the written report file to the user and does not wait until it is closed. Throws ProgramError
    /// when nothing can show it.
    std::function<void(const QString& path)> showReport;
    PasswordAttempts passwordAttempts = {};

    Connection& Db() const { return database.Get(); }
};

/// Logs an error under the name of the procedure that trapped it and shows it.
void ReportError(Program& program, const std::exception& error, const QString& procedure);

/// Runs the action of a window's handler. A failure is logged and shown and the action dropped: the window
/// stays open. Returns whether the action went through.
template<class Action>
bool Trapped(Program& program, const QString& procedure, Action&& action) {
    try {
        std::forward<Action>(action)();
        return true;
    } catch (const std::exception& error) {
        ReportError(program, error, procedure);
        return false;
    }
}
