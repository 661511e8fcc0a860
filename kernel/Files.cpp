#include "kernel/Files.h"
#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyScale.h"
#include "kernelapi/KernelError.h"
#include <QFileInfo>

bool Files::FileExists(const QString& path) const
{
    return !path.isEmpty() && QFileInfo(path).isFile();
}

qint32 Files::FileLengthMs(const QString& soundFile) const
{
    return AudioFileInfo::Header(AudioFile::Open(soundFile)).LengthMs();
}

qint32 Files::FilePlayLengthMs(const QString& soundFile) const
{
    AudioFile file = AudioFile::Open(soundFile);
    return AudioFileInfo::Decode(file).LengthMs();
}

iFiles::Energy Files::FileEnergy(const QString& soundFile, qint32 beginMs, qint32 lengthMs) const
{
    if (beginMs < 0 || lengthMs < 0)
        throw KernelError(QStringLiteral("FileEnergy of '%1': a stretch from %2 ms for %3 ms is not a stretch of a file")
                              .arg(soundFile)
                              .arg(beginMs)
                              .arg(lengthMs));
    AudioFile file = AudioFile::Open(soundFile);
    const qint64 first = qint64(beginMs) * file.Rate() / 1000;
    if (first >= file.HeaderFrames())
        return {};
    file.Seek(first);
    const AudioFileInfo stretch = AudioFileInfo::Decode(file, qint64(lengthMs) * file.Rate() / 1000);
    Energy energy;
    energy.left = EnergyScale::Value(stretch.peaks[0]);
    energy.right = stretch.peaks.size() > 1 ? EnergyScale::Value(stretch.peaks[1]) : 0.0;
    return energy;
}
