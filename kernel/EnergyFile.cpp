#include "kernel/EnergyFile.h"
#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernelapi/KernelError.h"
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QtEndian>

namespace {
const QByteArray Signature("Korvane energy file 1");

void PutInt32(QByteArray& bytes, int offset, qint32 value)
{
    qToLittleEndian<qint32>(value, bytes.data() + offset);
}
}

QString EnergyFile::PathFor(const QString& audioPath)
{
    const QFileInfo audio(audioPath);
    return audio.dir().filePath(audio.completeBaseName() + QStringLiteral(".bef"));
}

QByteArray EnergyFile::Bytes(const AudioFileInfo& info)
{
    QByteArray bytes(DataOffset, '\0');
    bytes.replace(0, int(Signature.size()), Signature);
    bytes.replace(HeaderTextOffset, HeaderTextSize, HeaderText(info));
    PutInt32(bytes, SizeOffset, qint32(info.energy.size()) + SizeExtra);
    PutInt32(bytes, ChannelsOffset, info.channels);
    PutInt32(bytes, BytesPerSampleOffset, 1);
    return bytes + info.energy;
}

void EnergyFile::Write(const QString& path, const AudioFileInfo& info)
{
    QSaveFile file(path);
    const QByteArray bytes = Bytes(info);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw KernelError(QStringLiteral("Cannot write the energy file '%1': %2").arg(path, file.errorString()));
}

AudioFileInfo EnergyFile::WriteFor(const QString& audioPath)
{
    AudioFile audio = AudioFile::Open(audioPath);
    const AudioFileInfo info = AudioFileInfo::Decode(audio);
    Write(PathFor(audioPath), info);
    return info;
}

QByteArray EnergyFile::HeaderText(const AudioFileInfo& info)
{
    const QString text = QStringLiteral("Korvane energy; step_ms=%1; rate=%2; channels=%3; frames=%4; peak=%5")
                             .arg(AudioFileInfo::StepMs)
                             .arg(info.rate)
                             .arg(info.channels)
                             .arg(info.frames)
                             .arg(info.Peak(), 0, 'f', 4);
    return text.toLatin1().leftJustified(HeaderTextSize, ' ', true);
}
