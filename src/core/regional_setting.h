#pragma once

#include <QString>

namespace b_WinControlPanel {

/// The English name of the country in the user's regional settings. Where systems keep those by category,
/// numbers and times decide; of two countries it is the one that is not the United States.
QString UserCountry();

/// True for "United States" in any letter case; what follows a NUL character does not count.
bool IsRegionalSettingUS(const QString& country = UserCountry());

} // namespace b_WinControlPanel
