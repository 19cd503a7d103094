#pragma once

#include "core/dialogs.h"
#include "core/program_folder.h"
#include "database/connection.h"

#include <exception>
#include <memory>

namespace b_global {

/// The one database connection of the program: none until OpenConnection succeeds, then the same to the end.
class SharedConnection {
public:
    bool Exists() const { return connection_ != nullptr; }
    /// Throws ProgramError when the connection was never opened.
    Connection& Get() const;

private:
    friend bool OpenConnection(SharedConnection&, const ProgramFolder&, Dialogs&);
    std::unique_ptr<Connection> connection_;
};

/// The file that OpenConnection opens; empty when there is none.
QString DatabaseFile(const ProgramFolder& folder);

/// Opens the shared connection unless it is open already: DATA.mdb in the program folder when it is there in
/// any letter case, else in the folder UI beside the program folder. A failure is shown and gives false.
bool OpenConnection(SharedConnection& shared, const ProgramFolder& folder, Dialogs& dialogs);

/// The message that ShowDatabaseError shows for an error while the connection is open.
QString ErrorMessage(const std::exception& error);

/// Shows the pending error: the database's own failures one by one, or a general error by number and text.
/// Shows nothing when none is pending (null).
void ShowDatabaseError(const SharedConnection& shared, Dialogs& dialogs, const std::exception* pending);

} // namespace b_global
