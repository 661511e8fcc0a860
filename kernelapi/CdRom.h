#pragma once
#include <QDateTime>
#include <QObject>
#include <QString>

// One disc drive and the state of the disc in it.
class CdRom : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~CdRom() override = default;

    // The drive's name as the user picks it.
    virtual QString Description() const = 0;
    // When the drive's state was last read.
    virtual QDateTime Refreshed() const = 0;
    // The drive's place in the drive collection, from 1.
    virtual int Index() const = 0;
    // Whether the kernel is watching the drive for disc changes.
    virtual bool Monitoring() const = 0;
    // Whether the drive's tray is locked.
    virtual bool Locked() const = 0;
    // Whether a disc is in the drive.
    virtual bool Inserted() const = 0;
    // The identifier computed from the disc's table of tracks; empty with no disc.
    virtual QString DiscID() const = 0;
    // Number of tracks on the disc; 0 with no disc.
    virtual int TrackCount() const = 0;

Q_SIGNALS:
    // Any of the drive's state values changed.
    void ChangedProperty();
};
