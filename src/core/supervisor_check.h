#pragma once

#include "core/program.h"

#include <QString>

namespace modGeneral {

/// Asks for a supervisor's user ID and password; true only for a known user of the group "SPV". Every other
/// outcome is told to the user. A failure is logged and shown, and refuses.
bool AskAdminPass(Program& program);

/// True when the user exists and has exactly that password. Throws DatabaseError.
bool CheckUserPassword(Connection& connection, const QString& userId, const QString& password);

/// Whether there is a user whom the check lets pass. Throws DatabaseError.
bool AnySupervisor(Connection& connection);

/// Whether the demo's supervisor, of whom the login window tells, is still there. Throws DatabaseError.
bool HasDemoUser(Connection& connection);

} // namespace modGeneral
