#pragma once
#include <QString>
#include <memory>

class KernelLog;
class SoundDecoder;

// What the Null device hears: silence, a sine tone, or an audio file played once from its
// start as if it came from a microphone (then silence), so that a recording on a station
// without hardware, or in a test, captures known audio. The device's thread fills its input
// with it before every period.
class NullInput
{
public:
    struct Settings
    {
        enum class Kind { Silence, Tone, File };
        Kind kind = Kind::Silence;
        double toneHz = 1000;
        double toneDb = -18;
        QString file; // absolute
    };

    NullInput(const Settings& settings, int sampleRate, const KernelLog& log);
    ~NullInput();
    NullInput(const NullInput&) = delete;
    NullInput& operator=(const NullInput&) = delete;

    // Writes frames of interleaved input of that many channels.
    void Fill(float* input, int channels, int frames);

private:
    void FillTone(float* input, int channels, int frames);
    void FillFile(float* input, int channels, int frames);

    Settings m_settings;
    const int m_sampleRate;
    double m_amplitude = 0;
    double m_phase = 0;
    std::unique_ptr<SoundDecoder> m_decoder;
    std::unique_ptr<float[]> m_stereo;
    int m_stereoFrames = 0;
};
