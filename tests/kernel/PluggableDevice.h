#pragma once
#include "kernel/audio/AudioCallback.h"
#include "kernel/audio/DeviceRequest.h"
#include "kernel/audio/NullDevice.h"
#include "kernelapi/KernelError.h"
#include <memory>

// A sound card that a test plugs in and pulls out, on the virtual clock: a Null device under
// the configured name. While the socket is empty the device is absent and a device already
// open stops; a quiet socket keeps the device running without periods; the gap counts are
// reported to the callback, one a period, as a real device reports lost audio.
class PluggableDevice : public NullDevice
{
public:
    struct Socket
    {
        bool plugged = true;
        bool quiet = false;
        int outputGaps = 0;
        int inputGaps = 0;
        int opened = 0;
    };

    // Opens devices on the socket.
    static DeviceFactory Factory(std::shared_ptr<Socket> socket)
    {
        return [socket](const DeviceRequest& request) -> std::unique_ptr<AudioDevice> {
            if (!socket->plugged)
                throw KernelError(QStringLiteral("Device '%1' is absent (present: none)").arg(request.name));
            ++socket->opened;
            return std::make_unique<PluggableDevice>(request, socket);
        };
    }

    PluggableDevice(const DeviceRequest& request, std::shared_ptr<Socket> socket)
        : NullDevice(request.sampleRate, request.periodFrames, request.records ? 2 : 0, Clock::Virtual), m_name(request.name),
          m_socket(std::move(socket))
    {
    }

    QString Name() const override { return m_name; }
    bool Running() const override { return m_socket->plugged && NullDevice::Running(); }

    void Start(AudioCallback* callback) override
    {
        m_callback = callback;
        NullDevice::Start(callback);
    }

    void Advance(long long frames) override
    {
        if (m_socket->quiet || !Running())
            return;
        const bool output = m_socket->outputGaps > 0;
        const bool input = m_socket->inputGaps > 0;
        if (output || input)
            m_callback->Gap(output, input);
        m_socket->outputGaps -= output ? 1 : 0;
        m_socket->inputGaps -= input ? 1 : 0;
        NullDevice::Advance(frames);
    }

private:
    QString m_name;
    std::shared_ptr<Socket> m_socket;
    AudioCallback* m_callback = nullptr;
};
