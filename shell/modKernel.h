#pragma once

// Reaches the kernel: the logger first, so that the kernel's own failure can be logged, then
// the root. Both are kept for the whole run.
namespace modKernel {
bool StartKernel();
}
