#pragma once
#include "kernel/audio/AudioDevice.h"
#include <QStringList>
#include <atomic>
#include <portaudio.h>
#include <vector>

struct DeviceRequest;

// A sound device reached through PortAudio (ALSA, PulseAudio), found by its name, or
// "default" for the system's default devices: the default output for playing, the default
// input for recording. It plays stereo when the device carries playing channels and records
// up to two channels when it carries a recording one. JACK's clients are left to JackDevice.
// Every call into PortAudio, this object's life included, belongs to the engine's device
// thread; only the callback runs elsewhere.
class PortAudioDevice : public AudioDevice
{
public:
    // The devices PortAudio lists, as the search by name sees them: a name per device index,
    // empty for one that is passed over, and the indices of the defaults (-1 for none).
    struct Listing
    {
        QStringList names;
        int defaultInput = -1;
        int defaultOutput = -1;
    };

    // Opens the device. Throws KernelError when it is absent or refuses the format.
    explicit PortAudioDevice(const DeviceRequest& request);
    ~PortAudioDevice() override;
    PortAudioDevice(const PortAudioDevice&) = delete;
    PortAudioDevice& operator=(const PortAudioDevice&) = delete;

    QString Name() const override { return m_name; }
    int InputChannels() const override { return m_inputChannels; }
    void Start(AudioCallback* callback) override;
    void Stop() override;
    void Detach() override;
    bool Running() const override;

    // The index of the device that a name means for input or for output. Throws KernelError
    // when no listed device has that name.
    static int Find(const Listing& listing, const QString& name, bool input);

private:
    static int OnAudio(const void* input, void* output, unsigned long frames, const PaStreamCallbackTimeInfo* time,
                       PaStreamCallbackFlags flags, void* self);
    static Listing List();
    static QString Describe(PaError error);
    void Open(const DeviceRequest& request);
    const PaDeviceInfo& Check(PaDeviceIndex device, bool input) const;

    // Pa_Initialize and Pa_Terminate, which PortAudio counts, for the life of the device.
    struct Library
    {
        Library();
        ~Library();
    };

    Library m_library;
    QString m_name;
    PaStream* m_stream = nullptr;
    int m_inputChannels = 0;
    bool m_plays = true;
    std::vector<float> m_silentOutput; // where a device that only records puts its output
    std::atomic<AudioCallback*> m_callback{nullptr};
    std::atomic<bool> m_inCallback{false};
};
