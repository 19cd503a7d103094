#include "timecard/refresh_failures.h"

using namespace Qt::StringLiterals;

void RefreshFailures::Report(const std::exception_ptr& failure, Cause cause) {
    const bool failedBefore = std::exchange(failing_, bool(failure));
    if (failure && cause == Cause::User) {
        Tell(failure);
    } else if (failure && !failedBefore && !telling_) {
        // Not from within the timer's own call: the clock would stand still for as long as it is shown.
        telling_ = true;
        QMetaObject::invokeMethod(
            this, [this, failure] { Tell(failure); }, Qt::QueuedConnection);
    }
}

void RefreshFailures::Tell(const std::exception_ptr& failure) {
    telling_ = true;
    Trapped(program_, u"RefreshSheet"_s, [&failure] { std::rethrow_exception(failure); });
    telling_ = false;
}
