#include "browse/drag/DragControls.h"
#include "shell/CInterface.h"
#include "shell/ConfigForm.h"
#include "shell/FrmChangePassword.h"
#include "shell/FrmGeneric.h"
#include "shell/FrmLanguage.h"
#include "shell/FrmLevels.h"
#include "shell/FrmModalDelay.h"
#include "shell/IFFileSystemMonitor.h"
#include "shell/IFKernel.h"
#include "shell/IFMenu.h"
#include "shell/IFStationID.h"
#include "shell/IFUserInfo.h"
#include "shell/PasswordForm.h"
#include "shell/Registry.h"
#include "shell/modInterface.h"

namespace Registry {
namespace {
template <typename T>
void RegisterForm(const char* name)
{
    Register(QString::fromLatin1(name), [](QWidget*) -> QWidget* { return new T; });
}

template <typename T>
void RegisterControl(const char* name)
{
    Register(QStringLiteral("Korvane_Interface.") + QString::fromLatin1(name), [](QWidget* parent) -> QWidget* { return new T(parent); });
}
}

void RegisterShell()
{
    RegisterControl<IFMenu>("IFMenu");
    RegisterControl<IFStationID>("IFStationID");
    RegisterControl<IFUserInfo>("IFUserInfo");
    RegisterForm<PasswordForm>("PasswordForm");
    RegisterForm<FrmChangePassword>("FrmChangePassword");
    RegisterForm<ConfigForm>("ConfigForm");
    RegisterForm<FrmModalDelay>("FrmModalDelay");
    RegisterForm<FrmLevels>("FrmLevels");
    RegisterForm<FrmGeneric>("FrmGeneric");
    RegisterForm<FrmLanguage>("FrmLanguage");
    RegisterControl<IFFileSystemMonitor>("IFFileSystemMonitor");
    RegisterControl<IFKernel>("IFKernel");
    DragControls::RegisterControls(Register, [] {
        CInterface* ui = modInterface::Interface();
        return ui ? &ui->Drag() : nullptr;
    });
}
}
