#pragma once

#include <QStringList>

#include <functional>

/// The argument that turns a program of benchmarks into a process that does one piece of work and tells the
/// most memory that it needed; the work's own arguments follow.
inline constexpr const char* MemoryOption = "--memory-of";

/// Does the work and prints what this process has used of the machine's memory at most, in kilobytes; returns
/// its exit code.
int TellPeakMemory(const std::function<void()>& work);

/// The peak, in kilobytes, of a process of this program that is started with the option and these arguments.
int PeakMemoryOf(const QStringList& arguments);
