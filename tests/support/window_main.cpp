#include "ui/guarded_application.h"
#include "ui/theme.h"

#include <gtest/gtest.h>

#include <QStandardPaths>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    GuardedApplication application(argc, argv);
    Theme::Apply(application);
    return RUN_ALL_TESTS();
}
