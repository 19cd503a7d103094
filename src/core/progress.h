#pragma once

#include <QtGlobal>

#include <functional>

/// Told how much of all the work is done; false asks it to stop.
using Progress = std::function<bool(qsizetype done, qsizetype total)>;

/// Asked at every row of long work, it asks the Progress, if there is one, now and then: often enough that
/// the user can stop the work, seldom enough that asking costs nothing.
inline bool ShouldContinue(const Progress& progress, qsizetype done, qsizetype total) {
    constexpr qsizetype AskEvery = 1000;
    return !progress || done % AskEvery != 0 || progress(done, total);
}
