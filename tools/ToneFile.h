#pragma once
#include <QString>

// A test signal written to a sound file: a sine of one frequency and amplitude in every
// channel, in any format the kernel reads. Tests, benchmarks and the fuzzing corpus measure
// known lengths and levels on these. Long files are written block by block.
class ToneFile
{
public:
    enum class Format { Wav16, Wav24, Aiff, Flac, Ogg, Mp3, Mp2 };

    Format format = Format::Wav16;
    int rate = 44100;
    int channels = 2;
    qint64 ms = 1000;
    double frequency = 440;
    double amplitude = 0.5; // peak, as a fraction of full scale

    // Throws KernelError when the file cannot be written.
    void Write(const QString& path) const;

    qint64 Frames() const { return ms * rate / 1000; }

private:
    // Fills block with the interleaved frames from first on.
    void Render(float* block, qint64 first, qint64 frames) const;
    void WriteWithSndfile(const QString& path) const;
    void WriteMp2(const QString& path) const;
};
