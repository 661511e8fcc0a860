#include "kernel/audio/PortAudioDevice.h"
#include "kernel/audio/AudioCallback.h"
#include "kernelapi/KernelError.h"
#include <QStringList>
#include <algorithm>
#include <thread>

PortAudioDevice::Library::Library()
{
    if (const PaError error = Pa_Initialize(); error != paNoError)
        throw KernelError(QStringLiteral("PortAudio does not start: %1").arg(Describe(error)));
}

PortAudioDevice::Library::~Library()
{
    Pa_Terminate();
}

PortAudioDevice::PortAudioDevice(const QString& name, int sampleRate, int periodFrames, bool plays, bool records)
    : m_name(name), m_plays(plays), m_silentOutput(static_cast<std::size_t>(periodFrames) * 2)
{
    Open(Find(name), sampleRate, periodFrames, plays, records);
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

PaDeviceIndex PortAudioDevice::Find(const QString& name)
{
    if (name.compare(QLatin1String("default"), Qt::CaseInsensitive) == 0 && Pa_GetDefaultOutputDevice() != paNoDevice)
        return Pa_GetDefaultOutputDevice();
    QStringList present;
    for (PaDeviceIndex i = 0; i < Pa_GetDeviceCount(); ++i) {
        const QString deviceName = QString::fromUtf8(Pa_GetDeviceInfo(i)->name);
        if (deviceName == name)
            return i;
        present << deviceName;
    }
    throw KernelError(QStringLiteral("Device '%1' is absent (present: %2)")
                          .arg(name, present.isEmpty() ? QStringLiteral("none") : present.join(QStringLiteral(", "))));
}

void PortAudioDevice::Open(PaDeviceIndex device, int sampleRate, int periodFrames, bool plays, bool records)
{
    const PaDeviceInfo* info = Pa_GetDeviceInfo(device);
    if (plays && info->maxOutputChannels < 2)
        throw KernelError(QStringLiteral("Device '%1' has no stereo output").arg(m_name));
    if (records && info->maxInputChannels < 1)
        throw KernelError(QStringLiteral("Device '%1' has no input").arg(m_name));
    m_inputChannels = records ? std::min(info->maxInputChannels, 2) : 0;

    PaStreamParameters output{device, 2, paFloat32, info->defaultLowOutputLatency, nullptr};
    PaStreamParameters input{device, m_inputChannels, paFloat32, info->defaultLowInputLatency, nullptr};
    const PaError error = Pa_OpenStream(&m_stream, records ? &input : nullptr, plays ? &output : nullptr, sampleRate,
                                        static_cast<unsigned long>(periodFrames), paNoFlag, &PortAudioDevice::OnAudio, this);
    if (error != paNoError) {
        m_stream = nullptr;
        throw KernelError(QStringLiteral("Device '%1' refuses %2 Hz: %3").arg(m_name).arg(sampleRate).arg(Describe(error)));
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
                             PaStreamCallbackFlags, void* self)
{
    auto* device = static_cast<PortAudioDevice*>(self);
    float* out = device->m_plays ? static_cast<float*>(output) : device->m_silentOutput.data();
    if (!device->m_plays)
        frames = std::min<unsigned long>(frames, device->m_silentOutput.size() / 2);
    device->m_inCallback.store(true, std::memory_order_seq_cst);
    if (AudioCallback* callback = device->m_callback.load(std::memory_order_seq_cst))
        callback->Process(static_cast<const float*>(input), device->m_inputChannels, out, static_cast<int>(frames));
    else
        std::fill_n(out, frames * 2, 0.0f);
    device->m_inCallback.store(false, std::memory_order_release);
    return paContinue;
}
