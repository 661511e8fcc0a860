#pragma once
#include <memory>

class CLogger;
class CKernel;

// How the client reaches the kernel: obtain the logger, then the root. The embedded kernel
// defines these in kernel/; a kernel in another process would define them in a transport
// library instead. Both throw KernelError when the kernel cannot be reached.
namespace KernelServer {
std::shared_ptr<CLogger> ObtainLogger();
std::shared_ptr<CKernel> ObtainKernel();
}
