#pragma once

#include "core/program_folder.h"

#include <QString>

namespace b_global {

/// The value of a key in section "Main" of setting.ini in the program folder; "" when the file, the section
/// or the key is missing. Letter case of section and key does not matter, and the first entry of a name
/// counts.
QString ReadSetting(const ProgramFolder& folder, const QString& key);

} // namespace b_global
