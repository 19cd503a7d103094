#pragma once

#include "database/connection.h"

#include <QString>

#include <functional>

/// Makes a database file that appears under its name whole or not at all: it is made and filled in a folder
/// beside it first. Throws ProgramError when the file exists or cannot be made, and what `fill` throws.
void MakeDatabaseFile(const QString& path, const std::function<void(Connection&)>& fill);
