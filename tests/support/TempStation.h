#pragma once
#include "kernel/StationFolder.h"
#include "tools/StationOptions.h"
#include "tools/StationReport.h"
#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <optional>

// A demo station in a temporary folder, made through the station tool's library, for tests.
// While it lives, KORVANE_STATION names it; the previous value (or its absence) comes back at
// destruction, and the folder is deleted. Sounds are short unless asked otherwise, so that
// making one costs little. Throws KernelError when the station cannot be made.
class TempStation
{
public:
    explicit TempStation(int benchmarkCarts = 0, SoundLength soundLength = SoundLength::Short);
    ~TempStation();
    TempStation(const TempStation&) = delete;
    TempStation& operator=(const TempStation&) = delete;

    // Folders end in '/'.
    QString Dir() const { return m_folder.Root(); }
    QString IniFile() const { return m_folder.StationIni(); }
    QString KernelIniFile() const { return m_folder.KernelIni(); }
    QString DataDir() const { return m_folder.DataDir(); }
    QString SoundDir() const { return m_folder.SoundDir(); }
    const StationFolder& Folder() const { return m_folder; }
    // What the creation made.
    const StationReport& Report() const { return m_report; }

private:
    QTemporaryDir m_temp;
    StationFolder m_folder;
    StationReport m_report;
    std::optional<QByteArray> m_previousStation;
};
