#pragma once

#include <QString>

/// A path as the settings and the connection text write it, with the separators of this system.
QString ToLocalPath(const QString& path);

/// The existing file that the path names; letter case does not matter in the last two parts of the path (the
/// file and its folder), on any system. An exact match wins. Empty when there is none.
QString FindFile(const QString& path);
