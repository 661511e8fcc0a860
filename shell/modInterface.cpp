#include "shell/modInterface.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/ui/Dialogs.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/components/CComponents.h"
#include <memory>

namespace modInterface {
namespace {
std::unique_ptr<CInterface> g_interface;
int g_started = 0;
}

CInterface* Interface() { return g_interface.get(); }
int InterfaceStarted() { return g_started; }

bool StartInterface()
{
    return GuardedWith(QStringLiteral("StartInterface"), [](Step&) {
        auto created = std::make_unique<CInterface>();
        g_interface = std::move(created);
        LogOk(QStringLiteral("modInterface"), QStringLiteral("StartInterface"),
              QStringLiteral("Interface version = ") + CInterface::Version());
        g_started = 1;
    }, [](const QString&, const QString&) {
        Dialogs::MessageBox(QStringLiteral("Korvane_Interface.modInterface.StartInterface().Profiles"));
    });
}

void StopInterface()
{
    g_started = 0;
    GuardedWith(QStringLiteral("StopInterface"), [](Step&) {
        if (g_interface)
            g_interface->CleanUp();
        g_interface.reset();
    }, [](const QString&, const QString&) {
        Dialogs::MessageBox(QStringLiteral("Korvane_Interface.modInterface.StopInterface()"));
    });
}

void NotifyDrag(const std::shared_ptr<CComponent>& component, qint32 notificationType, const QMouseEvent* event)
{
    if (CInterface* ui = Interface())
        ui->Drag().NotifyMouse(component, notificationType, event);
}

void AddComponent(const QString& name, std::shared_ptr<CComponent>& component)
{
    if (CInterface* ui = Interface())
        ui->Components().Add(name, component, CComponents::MakeUnique);
    else
        component->SetName(name);
}

void RemoveComponent(const std::shared_ptr<CComponent>& component)
{
    if (CInterface* ui = Interface())
        ui->Components().Remove(component->Name());
    QObject::disconnect(component.get(), &CComponent::DragDrop, nullptr, nullptr);
    component->SetControl(nullptr);
    component->SetSharedObject(nullptr);
}
}
