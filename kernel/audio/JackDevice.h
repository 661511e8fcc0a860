#pragma once
#include "kernel/audio/AudioDevice.h"
#include <atomic>
#include <jack/jack.h>
#include <memory>
#include <vector>

struct DeviceRequest;

// A client of a JACK server: the device is named after the JACK client whose ports it
// connects to ("system" for the sound card the server drives). JACK is reached directly
// rather than through PortAudio, whose JACK support cannot outlive its server: once the server
// has gone, stopping a stream there waits ten minutes and terminating the library aborts the
// process. This client closes at once after its server went away, and a new one opens on the
// server that takes its place. Like every device it is opened, started, polled, stopped and
// closed on the engine's device thread; only OnProcess runs on JACK's thread.
class JackDevice : public AudioDevice
{
public:
    // The most frames one period may have; a longer period is put out as silence.
    static constexpr int MaxFrames = 8192;

    // The device, or null when no JACK server answers or the server has no client of that
    // name. Throws KernelError when the client is there but cannot serve the request.
    static std::unique_ptr<JackDevice> Open(const DeviceRequest& request);
    ~JackDevice() override;
    JackDevice(const JackDevice&) = delete;
    JackDevice& operator=(const JackDevice&) = delete;

    QString Name() const override { return m_name; }
    int InputChannels() const override { return static_cast<int>(m_inputs.size()); }
    void Start(AudioCallback* callback) override;
    void Stop() override;
    void Detach() override;
    bool Running() const override;

private:
    JackDevice(const QString& name, jack_client_t* client);
    bool Find(const DeviceRequest& request);
    void Register();
    void Connect();
    static int OnProcess(jack_nframes_t frames, void* self);
    static void OnShutdown(jack_status_t code, const char* reason, void* self);
    static int OnXrun(void* self);
    void Process(int frames, int offset, int count);

    QString m_name;
    jack_client_t* m_client;
    std::vector<QByteArray> m_playbackPorts; // the named client's ports that we play into
    std::vector<QByteArray> m_capturePorts;  // the named client's ports that we record from
    std::vector<jack_port_t*> m_outputs;
    std::vector<jack_port_t*> m_inputs;
    std::vector<float> m_output; // interleaved, MaxFrames
    std::vector<float> m_input;  // interleaved, MaxFrames
    bool m_active = false;
    std::atomic<bool> m_serverGone{false};
    std::atomic<int> m_xruns{0};
    std::atomic<AudioCallback*> m_callback{nullptr};
    std::atomic<bool> m_inCallback{false};
};
