#include "kernel/audio/PortAudioDevice.h"
#include "kernel/audio/AudioCallback.h"
#include "kernel/audio/DeviceRequest.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <thread>

PortAudioDevice::Library::Library()
{
    if (const PaError error = Pa_Initialize(); error != paNoError)
        throw KernelError(QStringLiteral("PortAudio does not start: %1").arg(Describe(error)));
}

// PortAudio's JACK support aborts the process when the library is terminated after its JACK
// server went away. While that support is loaded (a JACK server answered when the library
// started) the library stays initialised until the process ends.
PortAudioDevice::Library::~Library()
{
    if (Pa_HostApiTypeIdToHostApiIndex(paJACK) < 0)
        Pa_Terminate();
}

PortAudioDevice::PortAudioDevice(const DeviceRequest& request)
    : m_name(request.name), m_plays(request.plays), m_silentOutput(static_cast<std::size_t>(request.periodFrames) * 2)
{
    Open(request);
}

PortAudioDevice::~PortAudioDevice()
{
    Stop();
    if (m_stream)
        Pa_CloseStream(m_stream);
}

QString PortAudioDevice::Describe(PaError error)
{
    return QString::fromUtf8(Pa_GetErrorText(error));
}

// JACK's clients are passed over: PortAudio cannot close them once their server has gone.
PortAudioDevice::Listing PortAudioDevice::List()
{
    Listing listing;
    for (PaDeviceIndex i = 0; i < Pa_GetDeviceCount(); ++i) {
        const PaDeviceInfo* info = Pa_GetDeviceInfo(i);
        const bool jack = Pa_GetHostApiInfo(info->hostApi)->type == paJACK;
        listing.names << (jack ? QString() : QString::fromUtf8(info->name));
    }
    listing.defaultInput = Pa_GetDefaultInputDevice();
    listing.defaultOutput = Pa_GetDefaultOutputDevice();
    return listing;
}

int PortAudioDevice::Find(const Listing& listing, const QString& name, bool input)
{
    if (name.compare(QLatin1String("default"), Qt::CaseInsensitive) == 0) {
        const int device = input ? listing.defaultInput : listing.defaultOutput;
        if (device >= 0 && device < listing.names.size() && !listing.names[device].isEmpty())
            return device;
    }
    if (const int device = static_cast<int>(listing.names.indexOf(name)); device >= 0 && !name.isEmpty())
        return device;
    QStringList present = listing.names;
    present.removeAll(QString());
    throw KernelError(QStringLiteral("Device '%1' is absent (present: %2)")
                          .arg(name, present.isEmpty() ? QStringLiteral("none") : present.join(QStringLiteral(", "))));
}

const PaDeviceInfo& PortAudioDevice::Check(PaDeviceIndex device, bool input) const
{
    const PaDeviceInfo& info = *Pa_GetDeviceInfo(device);
    if (!input && info.maxOutputChannels < 2)
        throw KernelError(QStringLiteral("Device '%1' has no stereo output").arg(m_name));
    if (input && info.maxInputChannels < 1)
        throw KernelError(QStringLiteral("Device '%1' has no input").arg(m_name));
    return info;
}

void PortAudioDevice::Open(const DeviceRequest& request)
{
    const Listing listing = List();
    PaStreamParameters output{paNoDevice, 2, paFloat32, 0, nullptr};
    PaStreamParameters input{paNoDevice, 0, paFloat32, 0, nullptr};
    if (request.plays) {
        output.device = Find(listing, m_name, false);
        output.suggestedLatency = Check(output.device, false).defaultLowOutputLatency;
    }
    if (request.records) {
        input.device = Find(listing, m_name, true);
        const PaDeviceInfo& info = Check(input.device, true);
        input.suggestedLatency = info.defaultLowInputLatency;
        input.channelCount = m_inputChannels = std::min(info.maxInputChannels, 2);
    }
    const PaError error = Pa_OpenStream(&m_stream, request.records ? &input : nullptr, request.plays ? &output : nullptr,
                                        request.sampleRate, static_cast<unsigned long>(request.periodFrames), paNoFlag,
                                        &PortAudioDevice::OnAudio, this);
    if (error != paNoError) {
        m_stream = nullptr;
        throw KernelError(QStringLiteral("Device '%1' refuses %2 Hz: %3").arg(m_name).arg(request.sampleRate).arg(Describe(error)));
    }
}

void PortAudioDevice::Start(AudioCallback* callback)
{
    m_callback.store(callback, std::memory_order_seq_cst);
    if (const PaError error = Pa_StartStream(m_stream); error != paNoError)
        throw KernelError(QStringLiteral("Device '%1' does not start: %2").arg(m_name, Describe(error)));
}

// Abort rather than stop: a device that has gone away may never drain its buffers.
void PortAudioDevice::Stop()
{
    if (m_stream && Pa_IsStreamStopped(m_stream) == 0)
        Pa_AbortStream(m_stream);
}

// After this the callback is not called again: either PortAudio's thread saw it gone, or this
// thread waited until that call had left.
void PortAudioDevice::Detach()
{
    m_callback.store(nullptr, std::memory_order_seq_cst);
    while (m_inCallback.load(std::memory_order_seq_cst))
        std::this_thread::yield();
}

bool PortAudioDevice::Running() const
{
    return m_stream && Pa_IsStreamActive(m_stream) == 1;
}

int PortAudioDevice::OnAudio(const void* input, void* output, unsigned long frames, const PaStreamCallbackTimeInfo*,
                             PaStreamCallbackFlags flags, void* self)
{
    auto* device = static_cast<PortAudioDevice*>(self);
    float* out = device->m_plays ? static_cast<float*>(output) : device->m_silentOutput.data();
    if (!device->m_plays)
        frames = std::min<unsigned long>(frames, device->m_silentOutput.size() / 2);
    const bool outputGap = (flags & (paOutputUnderflow | paOutputOverflow)) != 0;
    const bool inputGap = (flags & (paInputUnderflow | paInputOverflow)) != 0;
    device->m_inCallback.store(true, std::memory_order_seq_cst);
    if (AudioCallback* callback = device->m_callback.load(std::memory_order_seq_cst)) {
        if (outputGap || inputGap)
            callback->Gap(outputGap, inputGap);
        callback->Process(static_cast<const float*>(input), device->m_inputChannels, out, static_cast<int>(frames));
    } else {
        std::fill_n(out, frames * 2, 0.0f);
    }
    device->m_inCallback.store(false, std::memory_order_release);
    return paContinue;
}
