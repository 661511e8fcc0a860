#pragma once
#include <QString>

class AudioCallback;

// A sound device that calls an AudioCallback in real time with stereo output (and input when
// it records). Opening happens in the concrete class; Start and Stop run and halt it.
class AudioDevice
{
public:
    virtual ~AudioDevice() = default;
    // The device's name as configured; "null" for the Null device.
    virtual QString Name() const = 0;
    // Channels of input that Process receives; 0 when the device records nothing.
    virtual int InputChannels() const = 0;
    // Begins calling the callback. Throws KernelError when the device refuses.
    virtual void Start(AudioCallback* callback) = 0;
    virtual void Stop() = 0;
    // Stops calling the callback at once without waiting on the device, which may have gone
    // away; what is left of it may then be closed on another thread.
    virtual void Detach() = 0;
    // Whether the device is running and has not reported a failure.
    virtual bool Running() const = 0;
};
