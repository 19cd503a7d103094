#pragma once

#include "database/connection.h"

#include <QString>

#include <memory>

/// Throw the ProgramError of a file that is not made because it exists or because of the reason.
[[noreturn]] void RefuseExisting(const QString& path);
[[noreturn]] void RefuseUnmade(const QString& path, const QString& reason);

/// Makes a file with an empty database of the newest version, ready to be opened. Throws ProgramError when
/// the file exists or cannot be made.
void CreateDatabase(const QString& path);

/// Opens an existing database file as it is, whatever it holds. Throws DatabaseError.
std::unique_ptr<Connection> ConnectToFile(const QString& path, const QString& connectionText = {});

/// Opens an existing database file and prepares its schema (PrepareSchema). Throws DatabaseError.
std::unique_ptr<Connection> OpenDatabaseFile(const QString& path, const QString& connectionText = {});
