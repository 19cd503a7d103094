#pragma once

#include <QtGlobal>

#include <functional>

/// Told how much of all the work is done; false asks it to stop.
using Progress = std::function<bool(qsizetype done, qsizetype total)>;
