#include "tools/AudioGenerator.h"
#include "kernelapi/KernelError.h"
#include <QFile>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <mutex>
#include <random>
#include <thread>
#include <vector>
#include <sndfile.h>

namespace {
constexpr double Pi = 3.14159265358979323846;
constexpr double Peak = 0.8; // about -2 dBFS

// Interleaved stereo buffer with a time base.
struct Buffer
{
    int rate;
    int frames;
    std::vector<float> samples;

    Buffer(int r, int f) : rate(r), frames(f), samples(std::size_t(f) * 2, 0.0f) {}
    double Time(int frame) const { return double(frame) / rate; }
    void Add(int frame, double left, double right)
    {
        samples[std::size_t(frame) * 2] += float(left);
        samples[std::size_t(frame) * 2 + 1] += float(right);
    }
};

// Attack, decay to a sustain level, and release at the end of a note of the given length.
double NoteEnvelope(double t, double length)
{
    const double attack = 0.02, decay = 0.12, sustain = 0.65, release = std::min(0.08, length / 3);
    if (t < attack)
        return t / attack;
    double level = t < attack + decay ? 1.0 - (1.0 - sustain) * (t - attack) / decay : sustain;
    if (t > length - release)
        level *= std::max(0.0, (length - t) / release);
    return level;
}

void RenderTone(Buffer& out, const SoundRecipe& recipe)
{
    double phaseL = 0, phaseR = 0;
    for (int i = 0; i < out.frames; ++i) {
        const double t = out.Time(i);
        const double f = recipe.frequency * (1.0 + 0.004 * std::sin(2 * Pi * 5.5 * t));
        phaseL += 2 * Pi * f / out.rate;
        phaseR += 2 * Pi * f * 1.003 / out.rate;
        const double tremolo = 0.75 + 0.25 * std::sin(2 * Pi * 0.5 * t);
        out.Add(i, tremolo * (std::sin(phaseL) + 0.2 * std::sin(2 * phaseL)),
                (1.5 - tremolo) * (std::sin(phaseR) + 0.2 * std::sin(2 * phaseR)));
    }
}

void RenderChord(Buffer& out, const SoundRecipe& recipe)
{
    const bool minor = recipe.seed % 2 == 1;
    const double ratios[] = {1.0, minor ? 1.2 : 1.25, 1.5, 2.0};
    const double strum = 1.5; // seconds between two strokes
    for (int i = 0; i < out.frames; ++i) {
        const double t = out.Time(i);
        const int stroke = int(t / strum);
        const double root = recipe.frequency * (stroke % 2 == 0 ? 1.0 : 4.0 / 3.0);
        double left = 0, right = 0;
        for (int n = 0; n < 4; ++n) {
            const double since = t - stroke * strum - n * 0.03;
            if (since < 0)
                continue;
            const double v = std::exp(-2.5 * since) * std::sin(2 * Pi * root * ratios[n] * since);
            (n % 2 == 0 ? left : right) += v;
            (n % 2 == 0 ? right : left) += 0.4 * v;
        }
        out.Add(i, left, right);
    }
}

void RenderSweep(Buffer& out, const SoundRecipe& recipe)
{
    const double length = out.Time(out.frames);
    double phase = 0;
    for (int i = 0; i < out.frames; ++i) {
        const double position = out.Time(i) / length; // 0 to 1
        const double rise = 1.0 - std::abs(2 * position - 1); // up, then down
        phase += 2 * Pi * recipe.frequency * std::pow(8.0, rise) / out.rate;
        const double v = std::sin(phase) + 0.3 * std::sin(3 * phase);
        out.Add(i, v * (1.0 - position), v * position);
    }
}

void RenderNoiseBursts(Buffer& out, const SoundRecipe& recipe)
{
    std::mt19937 random(recipe.seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    int start = 0;
    while (start < out.frames) {
        const double decay = 4 + 20 * unit(random);
        const double smoothing = 0.02 + 0.5 * unit(random) * recipe.frequency / 1000;
        const double pan = unit(random);
        const int length = std::min(out.frames - start, int(out.rate * (0.05 + 0.35 * unit(random))));
        double low = 0;
        for (int k = 0; k < length; ++k) {
            low += std::min(1.0, smoothing) * (2 * unit(random) - 1 - low);
            const double v = 3 * low * std::exp(-decay * k / out.rate);
            out.Add(start + k, v * (1 - pan), v * pan);
        }
        start += int(out.rate * (0.2 + 0.6 * unit(random)));
    }
}

void AddNote(Buffer& out, int start, double seconds, double frequency, double left, double right)
{
    const int frames = std::min(out.frames - start, int(seconds * out.rate));
    for (int k = 0; k < frames; ++k) {
        const double t = double(k) / out.rate;
        const double phase = 2 * Pi * frequency * t;
        const double v = NoteEnvelope(t, seconds) * (std::sin(phase) + 0.3 * std::sin(3 * phase));
        out.Add(start + k, v * left, v * right);
    }
}

void RenderMelody(Buffer& out, const SoundRecipe& recipe)
{
    static const double scale[] = {1.0, 9.0 / 8, 5.0 / 4, 3.0 / 2, 5.0 / 3, 2.0};
    std::mt19937 random(recipe.seed);
    std::uniform_int_distribution<int> degree(0, 5);
    std::uniform_int_distribution<int> beats(1, 3);
    const double beat = 0.2;
    int start = 0, note = 0;
    while (start < out.frames) {
        const double seconds = beat * beats(random);
        AddNote(out, start, seconds, recipe.frequency * scale[degree(random)], 0.8, 0.35);
        if (note++ % 2 == 0)
            AddNote(out, start, seconds * 1.5, recipe.frequency / 2 * scale[note % 3 * 2], 0.3, 0.7);
        start += int(seconds * out.rate);
    }
}

// Scales to the peak level and ramps the first 10 ms and the last 50 ms.
void Finish(Buffer& out)
{
    float peak = 0;
    for (float s : out.samples)
        peak = std::max(peak, std::abs(s));
    const double gain = peak > 0 ? Peak / peak : 0;
    const int in = out.rate / 100, end = out.rate / 20;
    for (int i = 0; i < out.frames; ++i) {
        const double ramp = std::min({1.0, double(i) / in, double(out.frames - 1 - i) / end});
        out.samples[std::size_t(i) * 2] *= float(gain * ramp);
        out.samples[std::size_t(i) * 2 + 1] *= float(gain * ramp);
    }
}

int FileFormat(AudioFormat format)
{
    switch (format) {
    case AudioFormat::Wav16: return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    case AudioFormat::Wav24: return SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    case AudioFormat::Flac: return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    case AudioFormat::Ogg: return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    case AudioFormat::Aiff: return SF_FORMAT_AIFF | SF_FORMAT_PCM_16;
    }
    return 0;
}

void WriteFile(const Buffer& sound, AudioFormat format, const QString& path)
{
    SF_INFO info{};
    info.samplerate = sound.rate;
    info.channels = 2;
    info.format = FileFormat(format);
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (!file)
        throw KernelError(QStringLiteral("Cannot write the sound file '%1': %2").arg(path, QString::fromUtf8(sf_strerror(nullptr))));
    const sf_count_t written = sf_writef_float(file, sound.samples.data(), sound.frames);
    const QString error = QString::fromUtf8(sf_strerror(file));
    sf_close(file);
    if (written != sound.frames)
        throw KernelError(QStringLiteral("Cannot write the sound file '%1': %2").arg(path, error));
}
}

AudioGenerator::AudioGenerator(SoundLength length) : m_length(length) {}

int AudioGenerator::LengthMs(const SoundRecipe& recipe) const
{
    // Short sounds keep their order of length (a long one stays the longest) at a fraction of it.
    const double seconds = m_length == SoundLength::Full ? recipe.seconds : 0.1 + recipe.seconds * 0.01;
    return int(std::lround(seconds * 100)) * 10;
}

int AudioGenerator::Write(const SoundRecipe& recipe, const QString& path) const
{
    const int ms = LengthMs(recipe);
    const int rate = SampleRate(recipe.format);
    Buffer sound(rate, int(qint64(ms) * rate / 1000));
    switch (recipe.shape) {
    case SoundRecipe::Shape::Tone: RenderTone(sound, recipe); break;
    case SoundRecipe::Shape::Chord: RenderChord(sound, recipe); break;
    case SoundRecipe::Shape::Sweep: RenderSweep(sound, recipe); break;
    case SoundRecipe::Shape::NoiseBurst: RenderNoiseBursts(sound, recipe); break;
    case SoundRecipe::Shape::Melody: RenderMelody(sound, recipe); break;
    }
    Finish(sound);
    WriteFile(sound, recipe.format, path);
    return ms;
}

QVector<int> AudioGenerator::WriteAll(const QVector<Job>& jobs) const
{
    QVector<int> lengths(jobs.size());
    std::atomic<int> next{0};
    std::exception_ptr failure;
    std::mutex failureLock;
    const auto work = [&] {
        for (int i = next++; i < jobs.size(); i = next++) {
            try {
                lengths[i] = Write(jobs[i].first, jobs[i].second);
            } catch (...) {
                const std::lock_guard<std::mutex> lock(failureLock);
                if (!failure)
                    failure = std::current_exception();
            }
        }
    };
    std::vector<std::thread> workers(std::max(1u, std::thread::hardware_concurrency()));
    for (std::thread& worker : workers)
        worker = std::thread(work);
    for (std::thread& worker : workers)
        worker.join();
    if (failure)
        std::rethrow_exception(failure);
    return lengths;
}

QString AudioGenerator::Extension(AudioFormat format)
{
    switch (format) {
    case AudioFormat::Wav16:
    case AudioFormat::Wav24: return QStringLiteral(".wav");
    case AudioFormat::Flac: return QStringLiteral(".flac");
    case AudioFormat::Ogg: return QStringLiteral(".ogg");
    case AudioFormat::Aiff: return QStringLiteral(".aiff");
    }
    return {};
}

int AudioGenerator::SampleRate(AudioFormat format)
{
    return format == AudioFormat::Wav24 ? 48000 : 44100;
}
