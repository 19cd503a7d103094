#pragma once

#include "core/program.h"
#include "core/regional_setting.h"

#include <QString>

namespace modAbsen {

/// The pictures that the windows stand on.
enum class Background { Big, Small, Middle, Plain };

/// What the start-up routine needs of the screen.
class StartScreen {
public:
    virtual ~StartScreen() = default;
    virtual void SetHourglass(bool on) = 0;
    /// Throws ProgramError, naming the file, when the picture cannot be loaded.
    virtual void LoadPicture(Background which, const QString& path) = 0;
};

/// Sets a company up where the program finds none, and answers whether to go on with it.
using SetUpCompany = std::function<bool()>;

/// Loads the pictures, checks the regional settings (unless setting.ini says "regional=any") and opens the
/// shared connection, in this order. False when the program must not go on; the user has been told why. Where
/// the database is missing, or has no supervisor, `setUp` is asked, if it is given, and nothing else told.
bool InitApplication(Program& program, StartScreen& screen,
                     const std::function<QString()>& userCountry = b_WinControlPanel::UserCountry,
                     const SetUpCompany& setUp = {});

} // namespace modAbsen
