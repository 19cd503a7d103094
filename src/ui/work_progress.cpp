#include "ui/work_progress.h"

#include <QCoreApplication>

#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int ShownAfterMilliseconds = 500;
constexpr int Steps = 1000;
} // namespace

WorkProgress::WorkProgress(QWidget* window, const QString& what)
    : dialog_(what, u"&Batal"_s, 0, Steps, window) {
    dialog_.setObjectName(u"WorkProgress"_s);
    dialog_.setWindowTitle(window ? window->windowTitle() : QString());
    dialog_.setWindowModality(Qt::WindowModal);
    dialog_.setMinimumDuration(std::numeric_limits<int>::max()); // shown by its own measure, below
    dialog_.setMinimumWidth(dialog_.fontMetrics().averageCharWidth() * 50);
    dialog_.setAutoClose(false);
    dialog_.setAutoReset(false);
    sinceStart_.start();
}

bool WorkProgress::operator()(qsizetype done, qsizetype total) {
    if (dialog_.wasCanceled())
        return false;
    dialog_.setMaximum(total > 0 ? Steps : 0);
    dialog_.setValue(total > 0 ? static_cast<int>(done * Steps / total) : 0);
    if (!dialog_.isVisible() && sinceStart_.elapsed() >= ShownAfterMilliseconds)
        dialog_.show();
    // Until the bar is seen no event may reach the window that the work was started from.
    if (dialog_.isVisible())
        QCoreApplication::processEvents();
    return !dialog_.wasCanceled();
}
