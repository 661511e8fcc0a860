#include "kernel/audio/JackDevice.h"
#include "kernel/audio/AudioCallback.h"
#include "kernel/audio/DeviceRequest.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <cerrno>
#include <mutex>
#include <thread>

namespace {
const char* const ClientName = "Korvane";

void Quiet(const char*) {}

// JACK prints every failed attempt to reach a server on stderr; the engine says itself, once,
// what it could not open.
void SilenceJack()
{
    static std::once_flag once;
    std::call_once(once, [] {
        jack_set_error_function(Quiet);
        jack_set_info_function(Quiet);
    });
}

// The full names of a client's audio ports that take audio in (JackPortIsInput) or give it out.
std::vector<QByteArray> PortsOf(jack_client_t* client, const QString& name, unsigned long direction)
{
    std::vector<QByteArray> ports;
    const QByteArray prefix = name.toUtf8() + ':';
    if (const char** all = jack_get_ports(client, nullptr, JACK_DEFAULT_AUDIO_TYPE, direction)) {
        for (int i = 0; all[i]; ++i)
            if (QByteArray(all[i]).startsWith(prefix))
                ports.emplace_back(all[i]);
        jack_free(all);
    }
    return ports;
}
}

std::unique_ptr<JackDevice> JackDevice::Open(const DeviceRequest& request)
{
    SilenceJack();
    jack_status_t status{};
    jack_client_t* client = jack_client_open(ClientName, JackNoStartServer, &status);
    if (!client)
        return nullptr;
    std::unique_ptr<JackDevice> device(new JackDevice(request.name, client));
    if (!device->Find(request))
        return nullptr;
    device->Register();
    return device;
}

JackDevice::JackDevice(const QString& name, jack_client_t* client)
    : m_name(name), m_client(client), m_output(static_cast<std::size_t>(MaxFrames) * 2),
      m_input(static_cast<std::size_t>(MaxFrames) * 2)
{
}

// Closing returns at once even when the server has gone away.
JackDevice::~JackDevice()
{
    Stop();
    jack_client_close(m_client);
}

// False when the server has no client of that name.
bool JackDevice::Find(const DeviceRequest& request)
{
    m_playbackPorts = PortsOf(m_client, m_name, JackPortIsInput);
    m_capturePorts = PortsOf(m_client, m_name, JackPortIsOutput);
    if (m_playbackPorts.empty() && m_capturePorts.empty())
        return false;
    if (const jack_nframes_t rate = jack_get_sample_rate(m_client); rate != static_cast<jack_nframes_t>(request.sampleRate))
        throw KernelError(QStringLiteral("Device '%1' runs at %2 Hz, not %3 Hz").arg(m_name).arg(rate).arg(request.sampleRate));
    if (request.plays && m_playbackPorts.size() < 2)
        throw KernelError(QStringLiteral("Device '%1' has no stereo output").arg(m_name));
    if (request.records && m_capturePorts.empty())
        throw KernelError(QStringLiteral("Device '%1' has no input").arg(m_name));
    m_playbackPorts.resize(request.plays ? 2 : 0);
    m_capturePorts.resize(request.records ? std::min<std::size_t>(m_capturePorts.size(), 2) : 0);
    return true;
}

void JackDevice::Register()
{
    const auto add = [this](std::vector<jack_port_t*>& ports, const char* stem, unsigned long direction) {
        const QByteArray name = stem + QByteArray::number(static_cast<int>(ports.size()) + 1);
        jack_port_t* port = jack_port_register(m_client, name.constData(), JACK_DEFAULT_AUDIO_TYPE, direction, 0);
        if (!port)
            throw KernelError(QStringLiteral("Device '%1': JACK refuses the port %2").arg(m_name, QString::fromUtf8(name)));
        ports.push_back(port);
    };
    for (std::size_t i = 0; i < m_playbackPorts.size(); ++i)
        add(m_outputs, "out_", JackPortIsOutput);
    for (std::size_t i = 0; i < m_capturePorts.size(); ++i)
        add(m_inputs, "in_", JackPortIsInput);
    jack_set_process_callback(m_client, &JackDevice::OnProcess, this);
    jack_set_xrun_callback(m_client, &JackDevice::OnXrun, this);
    jack_on_info_shutdown(m_client, &JackDevice::OnShutdown, this);
}

void JackDevice::Start(AudioCallback* callback)
{
    m_callback.store(callback, std::memory_order_seq_cst);
    if (jack_activate(m_client) != 0)
        throw KernelError(QStringLiteral("Device '%1' does not start: JACK refuses to run the client").arg(m_name));
    m_active = true;
    Connect();
}

void JackDevice::Connect()
{
    const auto connect = [this](const char* from, const char* to) {
        if (const int result = jack_connect(m_client, from, to); result != 0 && result != EEXIST)
            throw KernelError(QStringLiteral("Device '%1' does not start: JACK does not connect %2 to %3")
                                  .arg(m_name, QString::fromUtf8(from), QString::fromUtf8(to)));
    };
    for (std::size_t i = 0; i < m_outputs.size(); ++i)
        connect(jack_port_name(m_outputs[i]), m_playbackPorts[i].constData());
    for (std::size_t i = 0; i < m_inputs.size(); ++i)
        connect(m_capturePorts[i].constData(), jack_port_name(m_inputs[i]));
}

void JackDevice::Stop()
{
    if (m_active)
        jack_deactivate(m_client);
    m_active = false;
}

// After this the callback is not called again: either JACK's thread saw it gone, or this
// thread waited until that call had left.
void JackDevice::Detach()
{
    m_callback.store(nullptr, std::memory_order_seq_cst);
    while (m_inCallback.load(std::memory_order_seq_cst))
        std::this_thread::yield();
}

bool JackDevice::Running() const
{
    return m_active && !m_serverGone.load(std::memory_order_acquire);
}

int JackDevice::OnProcess(jack_nframes_t frames, void* self)
{
    auto* device = static_cast<JackDevice*>(self);
    for (int done = 0; done < static_cast<int>(frames);) {
        const int block = std::min(static_cast<int>(frames) - done, MaxFrames);
        device->Process(static_cast<int>(frames), done, block);
        done += block;
    }
    return 0;
}

// One block of a period: JACK's separate port buffers in and out of the interleaved ones
// that the callback takes.
void JackDevice::Process(int frames, int offset, int count)
{
    const int inputs = InputChannels();
    for (int c = 0; c < inputs; ++c) {
        const auto* in = static_cast<const float*>(jack_port_get_buffer(m_inputs[c], frames)) + offset;
        for (int i = 0; i < count; ++i)
            m_input[static_cast<std::size_t>(i * inputs + c)] = in[i];
    }
    m_inCallback.store(true, std::memory_order_seq_cst);
    if (AudioCallback* callback = m_callback.load(std::memory_order_seq_cst)) {
        if (m_xruns.exchange(0, std::memory_order_relaxed) > 0)
            callback->Gap(true, true);
        callback->Process(inputs > 0 ? m_input.data() : nullptr, inputs, m_output.data(), count);
    } else {
        std::fill_n(m_output.data(), count * 2, 0.0f);
    }
    m_inCallback.store(false, std::memory_order_release);
    for (std::size_t c = 0; c < m_outputs.size(); ++c) {
        auto* out = static_cast<float*>(jack_port_get_buffer(m_outputs[c], frames)) + offset;
        for (int i = 0; i < count; ++i)
            out[i] = m_output[static_cast<std::size_t>(i) * 2 + c];
    }
}

void JackDevice::OnShutdown(jack_status_t, const char*, void* self)
{
    static_cast<JackDevice*>(self)->m_serverGone.store(true, std::memory_order_release);
}

int JackDevice::OnXrun(void* self)
{
    static_cast<JackDevice*>(self)->m_xruns.fetch_add(1, std::memory_order_relaxed);
    return 0;
}
