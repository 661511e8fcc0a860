#pragma once
#include <QtGlobal>
#include <memory>

class iSoundEditor;
class iInterval;
class iEnergyReader;
class iDiscInfoHandler;

// The kernel objects that the client creates for itself instead of fetching them from the
// root: each call makes a new, independent object that lives as long as its holder keeps it.
// They need no root, so a control can make one at construction time. The embedded kernel
// defines these in kernel/; a kernel in another process would define them in its transport
// library, beside KernelServer. A kernel that cannot make the object throws KernelError.
namespace KernelFactory {
// An editor for one editing control, bound to no sound until SetSound.
std::shared_ptr<iSoundEditor> CreateSoundEditor();
// A free pair of positions, in whatever unit the holder uses (ms, disc frames, pixels).
std::shared_ptr<iInterval> CreateInterval(qint32 begin = 0, qint32 end = 0);
// A reader of energy files with no file open; the holder opens one with SetFileName.
std::shared_ptr<iEnergyReader> CreateEnergyReader();
// A holder of the description of one disc and of the object selected in it, with no drive.
std::shared_ptr<iDiscInfoHandler> CreateDiscInfoHandler();
}
