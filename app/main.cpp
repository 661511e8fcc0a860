#include "browse/BrowseControls.h"
#include "editing/EditingControls.h"
#include "foundation/ui/Dialogs.h"
#include "metering/MeteringControls.h"
#include "onair/OnAirControls.h"
#include "shell/Registry.h"
#include "shell/Theme.h"
#include "shell/modMain.h"
#include "web/WebForms.h"
#include <QApplication>

// The workstation reads no command line of its own: the station comes from KORVANE_STATION.
int main(int argc, char* argv[])
{
    Web::PrepareProcess();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Korvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    Theme::Apply(app);
    Dialogs::InstallFromEnvironment();
    Registry::RegisterShell();
    Metering::RegisterControls(Registry::Register);
    Browse::RegisterControls(Registry::Register);
    Editing::RegisterControls(Registry::Register);
    OnAir::RegisterControls(Registry::Register);
    Web::RegisterForms(Registry::Register);
    if (!modMain::Main())
        return modMain::EndedWith() < 0 ? 1 : modMain::EndedWith();
    return QApplication::exec();
}
