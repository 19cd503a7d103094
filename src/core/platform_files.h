#pragma once

#include <QFileDevice>

/// Lets a write beyond the limit for the size of files fail like one on a full disk; without this, Unix ends
/// the program there. To be called once, when a program starts.
void TellFileSizeLimitAsError();

/// Waits until the disk, or the server that the file is on, has taken what was written. False when it
/// refuses: a network drive may tell only here that there is no room.
bool HasReachedDisk(const QFileDevice& file);
