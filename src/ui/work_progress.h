#pragma once

#include "ui/busy_pointer.h"

#include <QElapsedTimer>
#include <QProgressDialog>

/// What the user sees of long work: the hourglass at once, after half a second a bar with "Batal". It is told
/// how far the work is, as a Progress, and answers whether to go on.
class WorkProgress {
public:
    WorkProgress(QWidget* window, const QString& what);

    /// A total of 0 means that it is not known how much there is.
    bool operator()(qsizetype done, qsizetype total);

private:
    BusyPointer busy_;
    QProgressDialog dialog_;
    QElapsedTimer sinceStart_;
};
