#pragma once
#include <QObject>
#include <QString>

// Data of the workstation the kernel serves.
class iStation : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iStation() override = default;

    // Folder of Sound.MDB, User.MDB and the kernel's database, ending in the separator; or a
    // postgresql:// URI when the catalogue lives on a database server.
    virtual QString DatabasePath() const = 0;
    // Working screen size in pixels.
    virtual float ResolutionX() const = 0;
    virtual float ResolutionY() const = 0;
    // Full name of the station file (sections Station, Resolution, Menu, Menu_n).
    virtual QString IniFile() const = 0;
};
