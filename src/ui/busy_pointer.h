#pragma once

#include <QApplication>

/// The hourglass, for as long as the object lives.
class BusyPointer {
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

/// The ordinary pointer, also while something holds the hourglass: for what waits for the user meanwhile.
class ReadyPointer {
public:
    ReadyPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ReadyPointer() { QApplication::restoreOverrideCursor(); }
    ReadyPointer(const ReadyPointer&) = delete;
    ReadyPointer& operator=(const ReadyPointer&) = delete;
};
