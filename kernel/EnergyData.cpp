#include "kernel/EnergyData.h"
#include "kernel/EnergyFile.h"
#include "kernel/EnergyScale.h"
#include "kernelapi/KernelError.h"
#include <QtEndian>
#include <cmath>
#include <limits>

namespace {
qint32 Int32At(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<qint32>(bytes.constData() + offset);
}

[[noreturn]] void Refuse(const QString& name, const QString& reason)
{
    throw KernelError(QStringLiteral("'%1' is not an energy file: %2").arg(name, reason));
}
}

EnergyData EnergyData::Parse(const QByteArray& bytes, const QString& name)
{
    if (bytes.size() < EnergyFile::DataOffset)
        Refuse(name, QStringLiteral("it has %1 bytes, fewer than the %2 of the header").arg(bytes.size()).arg(EnergyFile::DataOffset));
    const qint64 size = Int32At(bytes, EnergyFile::SizeOffset);
    const qint32 channels = Int32At(bytes, EnergyFile::ChannelsOffset);
    const qint32 width = Int32At(bytes, EnergyFile::BytesPerSampleOffset);
    const qint64 available = bytes.size() - EnergyFile::DataOffset;
    if (size < EnergyFile::SizeExtra || size - EnergyFile::SizeExtra > available)
        Refuse(name, QStringLiteral("its size field (%1) does not fit the %2 bytes of energy in the file").arg(size).arg(available));
    if (channels < 1 || channels > std::numeric_limits<qint16>::max())
        Refuse(name, QStringLiteral("it gives %1 channels").arg(channels));
    if (width != 1)
        Refuse(name, QStringLiteral("its samples are %1 bytes wide, not 1").arg(width));

    EnergyData data;
    data.m_bytes = bytes;
    data.m_headerText = QString::fromLatin1(bytes.mid(EnergyFile::HeaderTextOffset, EnergyFile::HeaderTextSize)).trimmed();
    data.m_channels = channels;
    data.m_dataBytes = size - EnergyFile::SizeExtra;
    data.m_samples = qint32(std::nearbyint(double(data.m_dataBytes) / channels));
    return data;
}

iEnergyReader::Sample EnergyData::SampleN(qint32 index) const
{
    iEnergyReader::Sample sample;
    if (index < 0 || index >= m_samples)
        return sample;
    sample.left = Value(index, 0);
    if (m_channels > 1)
        sample.right = Value(index, 1);
    return sample;
}

float EnergyData::Value(qint64 sample, int channel) const
{
    const qint64 offset = sample * m_channels + channel;
    if (offset >= m_dataBytes)
        return 0.0f;
    return float(EnergyScale::Value(quint8(m_bytes[EnergyFile::DataOffset + offset])));
}
