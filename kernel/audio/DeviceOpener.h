#pragma once
#include "kernel/audio/DeviceRequest.h"

// Opens a configured device on the real-time clock: the JACK client of that name when a JACK
// server has one, otherwise the PortAudio device. Once a device has opened one way it is
// looked for that way alone, so that waiting for a JACK server to come back does not start
// PortAudio (and probe every sound card) every few seconds.
class DeviceOpener
{
public:
    std::unique_ptr<AudioDevice> operator()(const DeviceRequest& request);

private:
    enum class Way { Unknown, Jack, PortAudio };
    Way m_way = Way::Unknown;
};
