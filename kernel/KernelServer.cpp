#include "kernelapi/KernelServer.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/FileLogger.h"
#include "kernel/StationFolder.h"

// The embedded kernel's factory: one logger and one root for the process, over the station
// folder named by the environment. A root that failed to open is tried again on the next call.
namespace KernelServer {
std::shared_ptr<CLogger> ObtainLogger()
{
    static const std::shared_ptr<CLogger> logger = [] {
        const StationFolder folder = StationFolder::Default();
        return std::make_shared<FileLogger>(folder.IsStation() ? folder.LogDir() : QString());
    }();
    return logger;
}

std::shared_ptr<CKernel> ObtainKernel()
{
    static std::shared_ptr<CKernel> kernel;
    if (!kernel)
        kernel = EmbeddedKernel::Open(StationFolder::Default(), ObtainLogger());
    return kernel;
}
}
