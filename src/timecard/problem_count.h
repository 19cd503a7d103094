#pragma once

#include "core/program.h"

#include <QPushButton>

#include <functional>

/// "3 kartu bermasalah" in the desk's status bar; pressing it leads a supervisor to them. It is counted now
/// and then, not at every refresh: the days' cards have to be read.
class ProblemCount : public QPushButton {
    Q_OBJECT
public:
    /// How many days want a person at this moment. Throws DatabaseError.
    using Counter = std::function<int(Connection& connection, WallTime now)>;

    /// Without a counter it stays away.
    ProblemCount(Program& program, Counter count, QWidget* parent);

    /// Counts if it is time to and anything was written since; at once when told to.
    void Tick(bool atOnce = false);

private:
    Program& program_;
    Counter count_;
    WallTime counted_{};
    ChangeStamp changes_;
};
