#include "shell/modKernel.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/KernelServer.h"

namespace modKernel {
bool StartKernel()
{
    return GuardedWith(QStringLiteral("StartKernel"), [](Step& step) {
        step(QStringLiteral("CLogger"));
        Log::SetLogger(KernelServer::ObtainLogger());
        step(QStringLiteral("CKernel"));
        Globals::SetKernel(KernelServer::ObtainKernel());
    }, [](const QString& step, const QString& description) {
        Dialogs::MessageBox(QStringLiteral("Korvane_Interface.modKernel.StartKernel()\r\n") + step
                            + QStringLiteral("\r\n") + description);
    });
}
}
