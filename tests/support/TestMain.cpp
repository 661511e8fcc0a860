// The main of every test executable: a QApplication on the offscreen platform (widget tests
// need one, SQL drivers and timers need the event loop), headless dialogs, and the shell's
// form registry.
#include "browse/BrowseControls.h"
#include "editing/EditingControls.h"
#include "foundation/ui/Dialogs.h"
#include "metering/MeteringControls.h"
#include "onair/OnAirControls.h"
#include "shell/Registry.h"
#include "shell/modMain.h"
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("KORVANE_DIALOGS"))
        qputenv("KORVANE_DIALOGS", "print");
    QApplication app(argc, argv);
    Dialogs::InstallFromEnvironment();
    Registry::RegisterShell();
    Metering::RegisterControls(Registry::Register);
    Browse::RegisterControls(Registry::Register);
    Editing::RegisterControls(Registry::Register);
    OnAir::RegisterControls(Registry::Register);
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    modMain::TearDown();
    return result;
}
