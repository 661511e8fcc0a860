#include "kernel/SoundFile.h"
#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyFile.h"
#include "kernelapi/KernelError.h"
#include <QFileInfo>

SoundFile::SoundFile(const QString& path, QObject* parent) : iSoundFile(parent), m_path(path) {}

qint32 SoundFile::Length() const
{
    if (!m_length)
        m_length = AudioFileInfo::Header(AudioFile::Open(m_path)).LengthMs();
    return *m_length;
}

void SoundFile::Normalize(const QVariant&, bool)
{
    throw NotAvailable("iSoundFile.Normalize");
}

void SoundFile::RewriteFile(const QVariant&, bool, const QVariant&)
{
    throw NotAvailable("iSoundFile.RewriteFile");
}

iSoundFile::EnergyFile SoundFile::GetEnergyFile() const
{
    EnergyFile energy;
    energy.fileName = ::EnergyFile::PathFor(m_path);
    const QFileInfo file(energy.fileName);
    energy.available = file.isFile() && file.isReadable();
    return energy;
}

qint32 SoundFile::Recalculate(bool accurate)
{
    m_length.reset();
    m_length = Measure(m_path, accurate);
    return *m_length;
}

qint32 SoundFile::Measure(const QString& path, bool accurate)
{
    if (accurate || !EnergyFileIsCurrent(path))
        return ::EnergyFile::WriteFor(path).LengthMs();
    return AudioFileInfo::Header(AudioFile::Open(path)).LengthMs();
}

bool SoundFile::EnergyFileIsCurrent(const QString& path)
{
    const QFileInfo energy(::EnergyFile::PathFor(path));
    return energy.isFile() && energy.lastModified() >= QFileInfo(path).lastModified();
}
