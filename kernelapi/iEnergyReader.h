#pragma once
#include <QObject>
#include <QString>

// A reader of energy files (".bef"), which gives the same values as the client's own reader.
// The client makes one with KernelFactory::CreateEnergyReader for each repaint and drops it
// afterwards; the file stays open in between.
class iEnergyReader : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iEnergyReader() override = default;

    struct Sample
    {
        float left = 0.0f;  // energy 0 to 1
        float right = 0.0f; // 0 for a one-channel file
    };

    // Closes the open file and opens this one; an empty name only closes. Throws KernelError
    // when the file cannot be opened or its header is not one of an energy file.
    virtual void SetFileName(const QString& fileName) = 0;
    // Samples per channel in the open file; 0 with no file open.
    virtual qint32 howManySamples() const = 0;
    // The energy of one sample, 0 to howManySamples - 1; silence outside that range.
    virtual Sample getSampleN(qint32 index) const = 0;
};
