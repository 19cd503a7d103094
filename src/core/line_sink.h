#pragma once

#include <QString>

#include <functional>

/// Takes the lines of a print one by one, as they go into the report file. The text is the caller's and is
/// filled anew for the next line.
using LineSink = std::function<void(const QString& line)>;
