#include "platform/qt_application.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the tests inside the program's application, as an operator who has never run anything, and
/// with no window on the desktop unless the caller names a display's platform.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qunsetenv(variable);
    ::testing::InitGoogleTest(&argc, argv);
    const tarvex::platform::Application application(argc, argv);
    // Two pictures of a window differ by what a test does, not by a caret that blinks.
    QApplication::setCursorFlashTime(0);
    return RUN_ALL_TESTS();
}
