#include "ui/guarded_application.h"

#include <QEvent>
#include <QMetaEnum>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

class UnknownFailure : public std::exception {
public:
    const char* what() const noexcept override { return "Kesalahan yang tidak dikenal."; }
};

QString ProcedureOf(const char* receiver, QEvent::Type event) {
    const char* name = QMetaEnum::fromType<QEvent::Type>().valueToKey(event);
    return QString::fromLatin1(receiver) + u'.' + (name ? QString::fromLatin1(name) : QString::number(event));
}

} // namespace

GuardedApplication::Guard GuardedApplication::ReportTo(Program& program) {
    program_ = &program;
    return Guard(this);
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    // Neither need be there any more when a handler has failed.
    const char* className = receiver->metaObject()->className();
    const QEvent::Type type = event->type();
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        if (!program_)
            throw;
        Report(failure, ProcedureOf(className, type));
    } catch (...) {
        if (!program_)
            throw;
        Report(UnknownFailure(), ProcedureOf(className, type));
    }
    return true;
}

/// What fails again and again, as painting does, is shown once at a time.
void GuardedApplication::Report(const std::exception& failure, const QString& procedure) {
    if (showing_) {
        program_->log.LogError(failure, procedure);
        return;
    }
    showing_ = true;
    const auto shown = qScopeGuard([this] { showing_ = false; });
    ReportError(*program_, failure, procedure);
}
