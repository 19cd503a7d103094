#include "ui/guarded_application.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    // What one test's window remembers is not for those that run beside it.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    GuardedApplication application(argc, argv);
    Theme::Apply(application);
    return RUN_ALL_TESTS();
}
