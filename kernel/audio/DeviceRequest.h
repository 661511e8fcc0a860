#pragma once
#include <QString>
#include <functional>
#include <memory>

class AudioDevice;

// What the channels of one device need of it: the configured name ("default" for the system's
// default devices), the engine's rate and period, and whether it must play and record.
struct DeviceRequest
{
    QString name;
    int sampleRate = 48000;
    int periodFrames = 256;
    bool plays = true;
    bool records = false;
};

// Opens the device a request names, or throws KernelError saying why it cannot.
using DeviceFactory = std::function<std::unique_ptr<AudioDevice>(const DeviceRequest&)>;
