#include "kernel/audio/NullInput.h"
#include "kernel/KernelLog.h"
#include "kernel/audio/SoundDecoder.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <cmath>
#include <numbers>

NullInput::NullInput(const Settings& settings, int sampleRate, const KernelLog& log)
    : m_settings(settings), m_sampleRate(sampleRate), m_amplitude(std::pow(10.0, settings.toneDb / 20.0))
{
    if (m_settings.kind != Settings::Kind::File)
        return;
    try {
        m_decoder = std::make_unique<SoundDecoder>(PlaySource{m_settings.file, 0, 0}, 0, sampleRate);
    } catch (const KernelError& e) {
        log.Error(QStringLiteral("AudioEngine"), QStringLiteral("NullInput"),
                  QStringLiteral("The Null device cannot play '%1' as its input: %2; it hears silence").arg(m_settings.file, e.Description()));
        m_settings.kind = Settings::Kind::Silence;
    }
}

NullInput::~NullInput() = default;

void NullInput::Fill(float* input, int channels, int frames)
{
    switch (m_settings.kind) {
    case Settings::Kind::Tone:
        FillTone(input, channels, frames);
        return;
    case Settings::Kind::File:
        FillFile(input, channels, frames);
        return;
    case Settings::Kind::Silence:
        break;
    }
    std::fill_n(input, frames * channels, 0.0f);
}

// The phase is kept within one turn, so that the tone stays clean however long it runs.
void NullInput::FillTone(float* input, int channels, int frames)
{
    const double step = 2 * std::numbers::pi * m_settings.toneHz / m_sampleRate;
    for (int i = 0; i < frames; ++i) {
        const auto sample = static_cast<float>(m_amplitude * std::sin(m_phase));
        std::fill_n(input + i * channels, channels, sample);
        m_phase = std::fmod(m_phase + step, 2 * std::numbers::pi);
    }
}

// The file's left channel goes to the first input, its right to the second; further inputs
// hear silence. After its end the file is silent.
void NullInput::FillFile(float* input, int channels, int frames)
{
    if (m_stereoFrames < frames) {
        m_stereo = std::make_unique<float[]>(static_cast<std::size_t>(frames) * 2);
        m_stereoFrames = frames;
    }
    const int read = m_decoder->Read(m_stereo.get(), frames, false);
    std::fill_n(input, frames * channels, 0.0f);
    for (int i = 0; i < read; ++i)
        for (int c = 0; c < std::min(channels, 2); ++c)
            input[i * channels + c] = m_stereo[static_cast<std::size_t>(i) * 2 + c];
}
