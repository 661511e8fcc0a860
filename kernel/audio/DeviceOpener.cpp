#include "kernel/audio/DeviceOpener.h"
#include "kernel/audio/JackDevice.h"
#include "kernel/audio/PortAudioDevice.h"
#include "kernelapi/KernelError.h"

std::unique_ptr<AudioDevice> DeviceOpener::operator()(const DeviceRequest& request)
{
    if (m_way != Way::PortAudio) {
        if (std::unique_ptr<AudioDevice> device = JackDevice::Open(request)) {
            m_way = Way::Jack;
            return device;
        }
        if (m_way == Way::Jack)
            throw KernelError(QStringLiteral("Device '%1' is absent: no JACK server has it").arg(request.name));
    }
    auto device = std::make_unique<PortAudioDevice>(request);
    m_way = Way::PortAudio;
    return device;
}
