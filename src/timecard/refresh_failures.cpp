#include "timecard/refresh_failures.h"

using namespace Qt::StringLiterals;

void RefreshFailures::Report(const std::exception_ptr& failure, Cause cause) {
    const bool failedBefore = std::exchange(failing_, bool(failure));
    if (failure && cause == Cause::User) {
        Tell(failure);
    } else if (failure && !failedBefore) {
        // Not from within the timer's own call: the clock would stand still for as long as it is shown.
        waiting_ = true;
        const auto tell = [this, failure] {
            if (waiting_)
                Tell(failure);
        };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    }
}

void RefreshFailures::NoteTold() {
    failing_ = true;
    waiting_ = false;
}

void RefreshFailures::Tell(const std::exception_ptr& failure) {
    NoteTold();
    Trapped(program_, u"RefreshSheet"_s, [&failure] { std::rethrow_exception(failure); });
}
