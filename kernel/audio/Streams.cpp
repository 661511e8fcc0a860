#include "kernel/audio/Streams.h"
#include "kernel/audio/Stream.h"
#include "kernelapi/KernelError.h"

std::shared_ptr<iStream> Streams::Item(int index) const
{
    if (index < 1 || index > Count())
        throw KernelError(QStringLiteral("There is no stream number %1: the channel has %2").arg(index).arg(Count()));
    return m_streams[static_cast<std::size_t>(index - 1)];
}
