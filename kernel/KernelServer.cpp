#include "kernelapi/KernelServer.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/FileLogger.h"
#include "kernel/StationFolder.h"

// The embedded kernel's factory: one logger and one root for the process while anyone holds
// them, over the station folder named by the environment. Once every holder has let go (the
// workstation ended), the next call opens the station anew. A root that failed to open is
// tried again on the next call.
namespace KernelServer {
std::shared_ptr<CLogger> ObtainLogger()
{
    static std::weak_ptr<CLogger> held;
    std::shared_ptr<CLogger> logger = held.lock();
    if (!logger) {
        const StationFolder folder = StationFolder::Default();
        logger = std::make_shared<FileLogger>(folder.IsStation() ? folder.LogDir() : QString());
        held = logger;
    }
    return logger;
}

std::shared_ptr<CKernel> ObtainKernel()
{
    static std::weak_ptr<CKernel> held;
    std::shared_ptr<CKernel> kernel = held.lock();
    if (!kernel) {
        kernel = EmbeddedKernel::Open(StationFolder::Default(), ObtainLogger());
        held = kernel;
    }
    return kernel;
}
}
