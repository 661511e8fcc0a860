#include "kernel/audio/SoundDecoder.h"
#include "kernelapi/KernelError.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>

namespace {
constexpr int BlockFrames = 2048;

std::atomic<SoundDecoder::ReadHook> Hook{nullptr};

// libsndfile notes "(should be N)" in its log when a header announces more audio than the
// file holds, and then reads what is there.
bool HeaderAnnouncesMore(SNDFILE* file)
{
    char log[4096] = {};
    sf_command(file, SFC_GET_LOG_INFO, log, sizeof log);
    return std::strstr(log, "should be") != nullptr;
}
}

SoundDecoder::SoundDecoder(const PlaySource& source, int positionMs, int outputRate)
    : m_fileName(source.fileName), m_file(Open(source.fileName)), m_resampler(nullptr, soxr_delete),
      m_fileFrames(static_cast<std::size_t>(BlockFrames) * m_info.channels), m_input(BlockFrames * 2)
{
    m_truncated = HeaderAnnouncesMore(m_file.get());
    SetMarks(source, positionMs);
    m_outputPerFileFrame = static_cast<double>(outputRate) / m_info.samplerate;
    if (m_info.samplerate == outputRate)
        return;
    const soxr_io_spec_t io = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
    soxr_error_t error = nullptr;
    m_resampler.reset(soxr_create(m_info.samplerate, outputRate, 2, &error, &io, &quality, nullptr));
    if (error)
        throw KernelError(QStringLiteral("Cannot resample '%1': %2").arg(m_fileName, QString::fromUtf8(error)));
}

SoundDecoder::File SoundDecoder::Open(const QString& fileName)
{
    if (fileName.isEmpty())
        throw KernelError(QStringLiteral("The sound has no file"));
    if (!QFileInfo(fileName).isFile())
        throw KernelError(QStringLiteral("Sound file '%1' does not exist").arg(fileName));
    File file(sf_open(QFile::encodeName(fileName).constData(), SFM_READ, &m_info), sf_close);
    if (!file)
        throw KernelError(QStringLiteral("Cannot read sound file '%1': %2").arg(fileName, QString::fromUtf8(sf_strerror(nullptr))));
    if (m_info.channels < 1 || m_info.samplerate <= 0)
        throw KernelError(QStringLiteral("Sound file '%1' has no usable format").arg(fileName));
    if (m_info.frames <= 0)
        throw KernelError(QStringLiteral("Sound file '%1' holds no audio").arg(fileName));
    return file;
}

void SoundDecoder::SetMarks(const PlaySource& source, int positionMs)
{
    m_startFrame = std::clamp<sf_count_t>(ToFrame(source.startMs), 0, m_info.frames);
    m_stopFrame = source.stopMs > 0 ? std::min<sf_count_t>(ToFrame(source.stopMs), m_info.frames) : m_info.frames;
    if (m_stopFrame <= m_startFrame)
        throw KernelError(QStringLiteral("Sound file '%1' has nothing to play between %2 ms and %3 ms")
                              .arg(m_fileName)
                              .arg(source.startMs)
                              .arg(source.stopMs));
    m_originFrame = std::clamp<sf_count_t>(ToFrame(positionMs), m_startFrame, m_stopFrame - 1);
    Seek(m_originFrame);
}

void SoundDecoder::Seek(sf_count_t frame)
{
    if (sf_seek(m_file.get(), frame, SEEK_SET) < 0)
        throw KernelError(QStringLiteral("Cannot seek in sound file '%1'").arg(m_fileName));
    m_frame = frame;
}

void SoundDecoder::SetReadHook(ReadHook hook)
{
    Hook.store(hook, std::memory_order_release);
}

int SoundDecoder::Read(float* stereo, int frames, bool loop)
{
    if (m_finished)
        return 0;
    const int made = m_resampler ? Resample(stereo, frames, loop) : Decode(stereo, frames, loop);
    if (made < frames)
        m_finished = true;
    return made;
}

void SoundDecoder::Resume()
{
    if (!m_finished || m_failed)
        return;
    if (sf_seek(m_file.get(), m_startFrame, SEEK_SET) < 0) {
        m_failed = true;
        return;
    }
    m_frame = m_startFrame;
    NoteWrap();
    m_finished = false;
    m_inputEnded = false;
    m_inputOffset = m_inputCount = 0;
    if (m_resampler)
        soxr_clear(m_resampler.get());
}

void SoundDecoder::NoteWrap()
{
    m_wraps.push_back(std::llround(static_cast<double>(m_fileFramesRead) * m_outputPerFileFrame));
}

bool SoundDecoder::TakeWrap(std::int64_t& outputFrame)
{
    if (m_wrapsTaken == m_wraps.size()) {
        m_wraps.clear();
        m_wrapsTaken = 0;
        return false;
    }
    outputFrame = m_wraps[m_wrapsTaken++];
    return true;
}

int SoundDecoder::Resample(float* stereo, int frames, bool loop)
{
    int made = 0;
    while (made < frames) {
        if (m_inputCount == 0 && !m_inputEnded) {
            m_inputOffset = 0;
            m_inputCount = static_cast<std::size_t>(Decode(m_input.data(), BlockFrames, loop));
            m_inputEnded = m_inputCount == 0;
        }
        const float* input = m_inputEnded ? nullptr : m_input.data() + m_inputOffset * 2;
        std::size_t used = 0;
        std::size_t out = 0;
        if (soxr_process(m_resampler.get(), input, m_inputCount, &used, stereo + made * 2,
                         static_cast<std::size_t>(frames - made), &out)) {
            m_failed = true;
            break;
        }
        m_inputOffset += used;
        m_inputCount -= used;
        made += static_cast<int>(out);
        if (out == 0 && (m_inputEnded || used == 0))
            break; // flushed to the end, or nothing moves
    }
    return made;
}

int SoundDecoder::Decode(float* stereo, int frames, bool loop)
{
    int done = 0;
    while (done < frames && !m_failed) {
        if (m_frame >= m_stopFrame) {
            if (!loop)
                break;
            if (sf_seek(m_file.get(), m_startFrame, SEEK_SET) < 0) {
                m_failed = true;
                break;
            }
            m_frame = m_startFrame;
            NoteWrap();
        }
        const int want = static_cast<int>(std::min<sf_count_t>({frames - done, m_stopFrame - m_frame, BlockFrames}));
        if (const ReadHook hook = Hook.load(std::memory_order_acquire))
            hook(m_fileName);
        const auto got = static_cast<int>(sf_readf_float(m_file.get(), m_fileFrames.data(), want));
        if (got > 0)
            ToStereo(got, stereo + done * 2);
        m_frame += std::max(got, 0);
        m_fileFramesRead += std::max(got, 0);
        done += std::max(got, 0);
        if (got < want)
            m_failed = true;
    }
    return done;
}

void SoundDecoder::ToStereo(int frames, float* stereo) const
{
    const int channels = m_info.channels;
    const float* in = m_fileFrames.data();
    // A broken file's NaN or infinity would poison the whole mix: it becomes silence.
    auto finite = [](float sample) { return std::isfinite(sample) ? sample : 0.0f; };
    for (int i = 0; i < frames; ++i, in += channels) {
        stereo[2 * i] = finite(in[0]);
        stereo[2 * i + 1] = finite(channels > 1 ? in[1] : in[0]);
    }
}
