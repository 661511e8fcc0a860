#pragma once
#include "kernelapi/iEnergyReader.h"
#include <QByteArray>
#include <QString>

// The contents of an energy file, checked and ready to read. It gives the values that a
// reader of the format takes from a well-formed file; a malformed one is refused instead of
// read out of bounds.
class EnergyData
{
public:
    EnergyData() = default;
    // Throws KernelError naming the file when the bytes are not an energy file that can be
    // drawn: shorter than the header, an energy block bigger than the file, no channels, or
    // a sample width other than one byte.
    static EnergyData Parse(const QByteArray& bytes, const QString& name);

    const QString& HeaderText() const { return m_headerText; }
    int Channels() const { return m_channels; }
    // Samples per channel: the energy bytes over the channels, rounded half to even.
    qint32 Samples() const { return m_samples; }
    // Channels 0 and 1 of a sample; silence outside 0 to Samples() - 1, and right stays 0
    // with one channel. Bytes past the energy block read as silence.
    iEnergyReader::Sample SampleN(qint32 index) const;

private:
    float Value(qint64 sample, int channel) const;

    QByteArray m_bytes;
    QString m_headerText;
    int m_channels = 0;
    qint64 m_dataBytes = 0;
    qint32 m_samples = 0;
};
