#pragma once
#include "kernel/StationFolder.h"
#include "kernelapi/iStation.h"

// The workstation data, read once from station.ini and kernel.ini.
class Station : public iStation
{
    Q_OBJECT
public:
    static constexpr float DefaultResolutionX = 1280;
    static constexpr float DefaultResolutionY = 800;

    explicit Station(const StationFolder& folder, QObject* parent = nullptr);

    QString DatabasePath() const override { return m_databasePath; }
    float ResolutionX() const override { return m_resolutionX; }
    float ResolutionY() const override { return m_resolutionY; }
    QString IniFile() const override { return m_folder.StationIni(); }

    // [Station] ID of station.ini.
    QString ID() const { return m_id; }
    const StationFolder& Folder() const { return m_folder; }
    // True when the catalogue lives on a database server rather than in the data folder.
    bool OnServer() const;

private:
    StationFolder m_folder;
    QString m_id;
    QString m_databasePath;
    float m_resolutionX = DefaultResolutionX;
    float m_resolutionY = DefaultResolutionY;
};
