#pragma once
#include "kernelapi/AudioLevels.h"
#include <atomic>

// The peak level of a stereo signal, measured by the audio callback and read by the UI
// thread. The reading holds each peak and lets it fall at a fixed rate, so that a meter read
// every 100 or 150 ms still sees the short peaks between its reads.
class PeakMeter
{
public:
    // How fast a held peak falls when the signal drops.
    static constexpr float ReleaseDbPerSecond = 24.0f;
    // Levels below this read as no signal.
    static constexpr float SilenceDb = -110.0f;

    explicit PeakMeter(int sampleRate) : m_sampleRate(sampleRate) {}

    // Callback: measures frames of interleaved stereo.
    void Measure(const float* stereo, int frames);
    // Callback: measures one or two channels of an interleaved input of the given width.
    void Measure(const float* input, int channels, int frames);
    // UI thread: the levels in dBFS; valid once something was measured.
    AudioLevels Read() const;

private:
    void Publish(float left, float right, int frames);
    float Release(int frames);

    const int m_sampleRate;
    float m_heldLeft = 0;  // callback only
    float m_heldRight = 0; // callback only
    int m_releaseFrames = 0;
    float m_releaseFactor = 1;
    std::atomic<float> m_left{0};
    std::atomic<float> m_right{0};
    std::atomic<bool> m_valid{false};
};
