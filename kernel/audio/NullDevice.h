#pragma once
#include "kernel/audio/AudioDevice.h"
#include "kernel/audio/NullInput.h"
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

// A device with no hardware. On the real-time clock its own thread calls the callback once a
// period, keeping real time, and throws the output away. On the virtual clock nothing runs by
// itself: Advance calls the callback on the calling thread, so that tests step time exactly
// and never wait. Its input is silence unless it is given a NullInput.
class NullDevice : public AudioDevice
{
public:
    enum class Clock { RealTime, Virtual };

    NullDevice(int sampleRate, int periodFrames, int inputChannels, Clock clock);
    ~NullDevice() override;

    QString Name() const override { return QStringLiteral("null"); }
    int InputChannels() const override { return m_inputChannels; }
    // What the device hears from now on; before Start.
    void SetInput(std::unique_ptr<NullInput> input) { m_source = std::move(input); }
    void Start(AudioCallback* callback) override;
    void Stop() override;
    void Detach() override { Stop(); }
    bool Running() const override { return m_running.load(std::memory_order_acquire); }

    // Virtual clock: runs the callback for that many frames, a period at a time. A device
    // that stands for a real one in tests may hold its periods back.
    virtual void Advance(long long frames);
    // What the last period put out, interleaved stereo.
    const std::vector<float>& Output() const { return m_output; }

private:
    void RunPeriod(int frames);
    void RealTimeLoop();

    const int m_sampleRate;
    const int m_periodFrames;
    const int m_inputChannels;
    const Clock m_clock;
    AudioCallback* m_callback = nullptr;
    std::unique_ptr<NullInput> m_source;
    std::vector<float> m_input;
    std::vector<float> m_output;
    std::atomic<bool> m_running{false};
    std::thread m_thread;
};
