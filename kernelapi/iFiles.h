#pragma once
#include <QObject>
#include <QString>

// The kernel's file services: tests, lengths and energy of sound files.
class iFiles : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iFiles() override = default;

    struct Energy
    {
        double left = 0.0;
        double right = 0.0;
    };

    virtual bool FileExists(const QString& path) const = 0;
    // Length of a sound file in ms.
    virtual qint32 FileLengthMs(const QString& soundFile) const = 0;
    // Playing length of a sound file in ms (what is heard between the file's own bounds).
    virtual qint32 FilePlayLengthMs(const QString& soundFile) const = 0;
    // Energy, 0 to 1, of a stretch of the file given in ms.
    virtual Energy FileEnergy(const QString& soundFile, qint32 beginMs, qint32 lengthMs) const = 0;
};
