#pragma once

#include "core/program.h"

#include <QObject>

#include <exception>

/// Tells the user that the sheet could not be read. While the clock's refreshes keep failing, one message is
/// enough; the user's own refresh is told each time.
class RefreshFailures : public QObject {
public:
    enum class Cause { User, Clock };

    explicit RefreshFailures(Program& program) : program_(program) {}

    /// Takes the outcome of a refresh: the failure, or null.
    void Report(const std::exception_ptr& failure, Cause cause);
    /// The user was told of a failure in another way: the clock need not say it again.
    void NoteTold();

private:
    void Tell(const std::exception_ptr& failure);

    Program& program_;
    bool failing_ = false;
    bool waiting_ = false; ///< the clock's failure will be told in a moment
};
