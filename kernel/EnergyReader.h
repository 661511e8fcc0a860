#pragma once
#include "kernel/EnergyData.h"
#include "kernelapi/iEnergyReader.h"

// The kernel's reader of energy files. The file is read whole when it is opened (an hour of
// stereo sound is 720 kB), so a repaint reads memory.
class EnergyReader : public iEnergyReader
{
    Q_OBJECT
public:
    using iEnergyReader::iEnergyReader;

    void SetFileName(const QString& fileName) override;
    qint32 howManySamples() const override { return m_data.Samples(); }
    Sample getSampleN(qint32 index) const override { return m_data.SampleN(index); }

    QString FileName() const { return m_fileName; }
    QString HeaderText() const { return m_data.HeaderText(); }

private:
    QString m_fileName;
    EnergyData m_data;
};
