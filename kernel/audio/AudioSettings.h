#pragma once
#include <QList>
#include <QString>
#include "kernel/audio/NullInput.h"
#include "kernel/audio/RecordFormat.h"

class KernelLog;

// The audio settings of a station's kernel.ini:
//   [Audio]      SampleRate=48000  PeriodFrames=256  ExpiringSeconds=10  Clock=realtime|virtual
//   [Channel_A]  Device=<JACK client or PortAudio device name, "default" or "null">  Streams=3
//                Direction=play|record
//   [Record]     Format=wav|mp2  Channels=1|2  BitRate=<kbps of Layer II, 32 to 384>
//   [NullInput]  Source=silence|tone|file  Frequency=1000  Level=-18 (dBFS)
//                File=<audio file, relative to the station folder when relative>
// Channels come in the order of their sections. With no channel section the station has "A"
// and "B" (three streams each) and "Rec" (recording), all on the Null device. A bad value is
// reported as an ERROR line and its default used. Clock=virtual puts every channel on a Null
// device whose time moves only when the program advances it (tests, offline rendering).
class AudioSettings
{
public:
    struct Channel
    {
        QString name;
        QString device = QStringLiteral("null");
        int streams = 3;
        bool records = false;
    };

    int sampleRate = 48000;
    int periodFrames = 256;
    int expiringMs = 10000; // a playing cart with less left than this is Expiring; 0: never
    bool virtualClock = false;
    QList<Channel> channels = DefaultChannels();
    RecordFormat record;
    // What a channel on the Null device hears.
    NullInput::Settings nullInput;

    static AudioSettings Read(const QString& kernelIni, const KernelLog& log);
    static QList<Channel> DefaultChannels();

    static bool IsNullDevice(const QString& device);
};
