#pragma once

#include "core/program.h"

#include <QString>

namespace modGeneral {

/// Asks for a supervisor's user ID and password; true only for a known user of the group "SPV". Every other
/// outcome is told to the user. A failure is logged and shown, and refuses.
bool AskAdminPass(Program& program);

/// True when the user exists and has exactly that password. Throws DatabaseError.
bool CheckUserPassword(Connection& connection, const QString& userId, const QString& password);

} // namespace modGeneral
