#pragma once

#include "database/connection.h"

#include <QString>

#include <optional>

/// The code as [Employee Status] writes it, whatever the letter case it was typed in; nothing when it is not
/// listed. Throws DatabaseError.
std::optional<QString> ListedStatus(Connection& connection, const QString& code);
