#pragma once

#include "core/program.h"

#include <QApplication>

#include <memory>

/// The application object, which lets no failure of a handler end the program: what a handler did not trap
/// is logged under the object and event that it came from, and shown; the windows stay.
class GuardedApplication : public QApplication {
    Q_OBJECT
public:
    using QApplication::QApplication;

    struct Release {
        void operator()(GuardedApplication* application) const { application->program_ = nullptr; }
    };
    using Guard = std::unique_ptr<GuardedApplication, Release>;

    /// Where failures are logged and shown for as long as the guard lives. Without one they go on.
    [[nodiscard]] Guard ReportTo(Program& program);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void Report(const std::exception& failure, const QString& procedure);

    Program* program_ = nullptr;
    bool showing_ = false;
};
