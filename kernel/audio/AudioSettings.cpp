#include "kernel/audio/AudioSettings.h"
#include "foundation/Ini.h"
#include "kernel/KernelLog.h"

namespace {
const QString Object = QStringLiteral("AudioSettings");
const QString ChannelPrefix = QStringLiteral("Channel_");

// The whole number of a key, or the default (with an ERROR line) when it is not one or lies
// outside [low, high]. An absent key is the default.
int Number(const IniFile& ini, const QString& section, const QString& key, int fallback, int low, int high,
           const KernelLog& log)
{
    const QString text = ini.Value(section, key);
    if (text.isEmpty())
        return fallback;
    bool ok = false;
    const int value = text.toInt(&ok);
    if (ok && value >= low && value <= high)
        return value;
    log.Error(Object, QStringLiteral("Read"),
              QStringLiteral("[%1] %2=%3 is not a number from %4 to %5; %6 is used").arg(section, key, text).arg(low).arg(high).arg(fallback));
    return fallback;
}

bool Records(const IniFile& ini, const QString& section, const KernelLog& log)
{
    const QString direction = ini.Value(section, QStringLiteral("Direction")).toLower();
    if (direction == QLatin1String("record"))
        return true;
    if (!direction.isEmpty() && direction != QLatin1String("play"))
        log.Error(Object, QStringLiteral("Read"),
                  QStringLiteral("[%1] Direction=%2 is neither play nor record; the channel plays").arg(section, direction));
    return false;
}

AudioSettings::Channel ReadChannel(const IniFile& ini, const QString& section, const KernelLog& log)
{
    AudioSettings::Channel channel;
    channel.name = section.mid(ChannelPrefix.size());
    channel.records = Records(ini, section, log);
    channel.streams = Number(ini, section, QStringLiteral("Streams"), channel.records ? 1 : 3, 1, 16, log);
    const QString device = ini.Value(section, QStringLiteral("Device"));
    if (!device.isEmpty())
        channel.device = device;
    return channel;
}
}

AudioSettings AudioSettings::Read(const QString& kernelIni, const KernelLog& log)
{
    const IniFile ini = IniFile::Load(kernelIni);
    const QString audio = QStringLiteral("Audio");
    AudioSettings settings;
    settings.sampleRate = Number(ini, audio, QStringLiteral("SampleRate"), settings.sampleRate, 8000, 192000, log);
    settings.periodFrames = Number(ini, audio, QStringLiteral("PeriodFrames"), settings.periodFrames, 16, 8192, log);
    settings.expiringMs = 1000 * Number(ini, audio, QStringLiteral("ExpiringSeconds"), settings.expiringMs / 1000, 0, 600, log);
    settings.virtualClock = ini.Value(audio, QStringLiteral("Clock")).compare(QLatin1String("virtual"), Qt::CaseInsensitive) == 0;

    QList<Channel> channels;
    for (const QString& section : ini.Sections())
        if (section.startsWith(ChannelPrefix, Qt::CaseInsensitive) && section.size() > ChannelPrefix.size())
            channels << ReadChannel(ini, section, log);
    if (!channels.isEmpty())
        settings.channels = channels;
    return settings;
}

QList<AudioSettings::Channel> AudioSettings::DefaultChannels()
{
    return {{QStringLiteral("A"), QStringLiteral("null"), 3, false},
            {QStringLiteral("B"), QStringLiteral("null"), 3, false},
            {QStringLiteral("Rec"), QStringLiteral("null"), 1, true}};
}

bool AudioSettings::IsNullDevice(const QString& device)
{
    return device.compare(QLatin1String("null"), Qt::CaseInsensitive) == 0;
}
