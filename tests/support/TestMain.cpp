// The main of every test executable: a QApplication on the offscreen platform (widget tests
// need one, SQL drivers and timers need the event loop), headless dialogs, and the shell's
// form registry.
#include "foundation/ui/Dialogs.h"
#include "shell/Registry.h"
#include "shell/modMain.h"
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    Dialogs::InstallFromEnvironment();
    Registry::RegisterShell();
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    modMain::TearDown();
    return result;
}
