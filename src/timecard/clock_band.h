#pragma once

#include "core/clock_watch.h"
#include "core/program.h"

#include <QFrame>

#include <memory>

class QLabel;

/// The band over the desk's sheet that says that the machine's clock is in doubt, until a supervisor confirms
/// it. Recording goes on.
class ClockBand : public QFrame {
    Q_OBJECT
public:
    explicit ClockBand(QWidget* parent = nullptr);

    /// To be called before the others.
    void Watch(Program& program);
    /// Looks at the clock, and compares it with the latest arrival that is stored today.
    void Look(const std::optional<WallTime>& latestArrival);
    bool IsInDoubt() const { return watch_ && watch_->IsInDoubt(); }

private:
    void cmdJamBenar_Click();
    void ShowDoubt();

    Program* program_ = nullptr;
    std::unique_ptr<ClockWatch> watch_;
    QLabel* text_ = nullptr;
};
