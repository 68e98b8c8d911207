// The tests in an application of Qt's: in the session that there is, or off-screen where there is none.
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const bool hasSession = KivoTest::HasDisplay() || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasSession && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
