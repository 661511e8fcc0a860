#include "kernel/audio/Take.h"
#include "kernel/EnergyMeter.h"
#include "kernel/audio/TakeFile.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <cmath>

Take::Take(const RecordFormat& format, const QString& path, int sampleRate) : m_format(format), m_path(path)
{
    m_info.rate = sampleRate;
    m_info.channels = format.channels;
    Open();
}

Take::~Take() = default;

void Take::Open()
{
    m_meter.reset();
    m_file.reset();
    m_info.frames = 0;
    m_info.energy.clear();
    m_info.peaks.clear();
    m_file = TakeFile::Create(m_format, m_path, m_info.rate);
    m_meter = std::make_unique<EnergyMeter>(m_info);
}

// Full scale is 32768, as libsndfile reads 16-bit samples as float, and the top is held.
qint16 Take::ToSample(float value)
{
    const float scaled = std::clamp(value * 32768.0f, -32768.0f, 32767.0f);
    return static_cast<qint16>(std::lrint(scaled));
}

void Take::Append(const float* stereo, qint64 frames)
{
    const int channels = m_format.channels;
    m_samples.resize(static_cast<std::size_t>(frames * channels));
    for (qint64 i = 0; i < frames; ++i) {
        const float left = stereo[i * 2];
        const float right = stereo[i * 2 + 1];
        if (channels == 1) {
            m_samples[static_cast<std::size_t>(i)] = ToSample((left + right) / 2);
        } else {
            m_samples[static_cast<std::size_t>(i) * 2] = ToSample(left);
            m_samples[static_cast<std::size_t>(i) * 2 + 1] = ToSample(right);
        }
    }
    try {
        m_file->Write(m_samples.data(), frames);
    } catch (const KernelError& e) {
        m_failure = e.Description();
        return;
    }
    m_meter->Add(m_samples.data(), frames);
    m_info.frames += frames;
}

void Take::Restart()
{
    try {
        Open();
        m_failure.clear();
    } catch (const KernelError& e) {
        m_failure = e.Description();
    }
}

AudioFileInfo Take::Finish()
{
    m_info.frames = m_meter->Finish();
    m_info.peaks = m_meter->Peaks();
    m_file->Close();
    return m_info;
}
