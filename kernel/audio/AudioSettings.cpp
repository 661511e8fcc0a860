#include "kernel/audio/AudioSettings.h"
#include "foundation/Ini.h"
#include "kernel/KernelLog.h"
#include <QDir>
#include <QFileInfo>

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

// A key whose value is one of the given words (in any case), as its index; an absent or
// unknown value gives 0, the unknown one with an ERROR line.
int Choice(const IniFile& ini, const QString& section, const QString& key, const QStringList& words, const KernelLog& log)
{
    const QString text = ini.Value(section, key).trimmed().toLower();
    if (text.isEmpty())
        return 0;
    if (words.contains(text))
        return int(words.indexOf(text));
    log.Error(Object, QStringLiteral("Read"),
              QStringLiteral("[%1] %2=%3 is not one of %4; %5 is used").arg(section, key, text, words.join(QStringLiteral(", ")), words.first()));
    return 0;
}

RecordFormat ReadRecordFormat(const IniFile& ini, const KernelLog& log)
{
    const QString section = QStringLiteral("Record");
    RecordFormat format;
    format.container = static_cast<RecordFormat::Container>(
        Choice(ini, section, QStringLiteral("Format"), {QStringLiteral("wav"), QStringLiteral("mp2")}, log));
    format.channels = Number(ini, section, QStringLiteral("Channels"), format.channels, 1, 2, log);
    format.bitRateKbps = Number(ini, section, QStringLiteral("BitRate"), format.bitRateKbps, 32, 384, log);
    return format;
}

NullInput::Settings ReadNullInput(const IniFile& ini, const QString& stationRoot, const KernelLog& log)
{
    const QString section = QStringLiteral("NullInput");
    NullInput::Settings input;
    input.kind = static_cast<NullInput::Settings::Kind>(
        Choice(ini, section, QStringLiteral("Source"), {QStringLiteral("silence"), QStringLiteral("tone"), QStringLiteral("file")}, log));
    input.toneHz = Number(ini, section, QStringLiteral("Frequency"), int(input.toneHz), 20, 20000, log);
    input.toneDb = Number(ini, section, QStringLiteral("Level"), int(input.toneDb), -100, 0, log);
    const QString file = ini.Value(section, QStringLiteral("File")).trimmed();
    input.file = file.isEmpty() ? QString() : QDir(stationRoot).absoluteFilePath(file);
    return input;
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
    settings.record = ReadRecordFormat(ini, log);
    settings.nullInput = ReadNullInput(ini, QFileInfo(kernelIni).absolutePath(), log);
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
