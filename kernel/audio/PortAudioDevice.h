#pragma once
#include "kernel/audio/AudioDevice.h"
#include <atomic>
#include <portaudio.h>
#include <vector>

// A sound device reached through PortAudio (ALSA, JACK, PulseAudio), found by its name, or
// "default" for the system's default output. It plays stereo when the device carries playing
// channels and records up to two channels when it carries a recording one.
class PortAudioDevice : public AudioDevice
{
public:
    // Opens the device. Throws KernelError when it is absent or refuses the format.
    PortAudioDevice(const QString& name, int sampleRate, int periodFrames, bool plays, bool records);
    ~PortAudioDevice() override;
    PortAudioDevice(const PortAudioDevice&) = delete;
    PortAudioDevice& operator=(const PortAudioDevice&) = delete;

    QString Name() const override { return m_name; }
    int InputChannels() const override { return m_inputChannels; }
    void Start(AudioCallback* callback) override;
    void Stop() override;
    void Detach() override;
    bool Running() const override;

private:
    static int OnAudio(const void* input, void* output, unsigned long frames, const PaStreamCallbackTimeInfo* time,
                       PaStreamCallbackFlags flags, void* self);
    static PaDeviceIndex Find(const QString& name);
    static QString Describe(PaError error);
    void Open(PaDeviceIndex device, int sampleRate, int periodFrames, bool plays, bool records);

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
