#pragma once
#include <QString>

// How the station records: WAV with 16-bit linear PCM, or MPEG-1 Layer II at a bit rate, in
// mono or stereo, at the engine's sample rate.
struct RecordFormat
{
    enum class Container { Wav, Mp2 };

    Container container = Container::Wav;
    int channels = 2;
    int bitRateKbps = 256; // Layer II only

    // The extension of a take's file, without the dot.
    QString Extension() const { return container == Container::Mp2 ? QStringLiteral("mp2") : QStringLiteral("wav"); }
};
