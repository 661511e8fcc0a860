#pragma once
#include <QByteArray>
#include <QVector>
#include <QtGlobal>

class AudioFile;

// What a measure of an audio file found: its rate, channels and length and, when the file was
// decoded, the peak of each channel and the energy of every step of StepMs per channel
// (interleaved, one byte each on the scale of EnergyScale).
class AudioFileInfo
{
public:
    static constexpr int StepMs = 10;

    // From the file's header alone: no peak, no energy.
    static AudioFileInfo Header(const AudioFile& file);
    // Decodes the file from where it stands, in large blocks, to its end or at most
    // maxFrames frames; frames is then the count decoded.
    static AudioFileInfo Decode(AudioFile& file, qint64 maxFrames = -1);

    // Milliseconds of a number of frames, rounded; throws KernelError beyond 32 bits.
    static qint32 Ms(qint64 frames, int rate);
    // The first frame of a step.
    static qint64 StepBegin(qint64 step, int rate);

    int rate = 0;
    int channels = 0;
    qint64 frames = 0;
    QVector<double> peaks; // of each channel, 0 to 1; empty unless decoded
    QByteArray energy;     // steps × channels bytes; empty unless decoded

    qint32 LengthMs() const { return Ms(frames, rate); }
    // The largest peak of all channels.
    double Peak() const;
    qint64 Steps() const;
};
