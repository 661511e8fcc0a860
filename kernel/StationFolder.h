#pragma once
#include <QString>

// The paths of a station folder: station.ini, kernel.ini, data/ (the three databases),
// sound/ and log/. Folder paths end in '/'.
class StationFolder
{
public:
    explicit StationFolder(const QString& root);

    // $KORVANE_STATION, else $XDG_DATA_HOME/korvane/station (~/.local/share when unset).
    static StationFolder Default();

    QString Root() const { return m_root; }
    QString StationIni() const;
    QString KernelIni() const;
    QString DataDir() const;
    QString SoundDir() const;
    QString LogDir() const;

    // A folder is a station when it holds its station.ini.
    bool IsStation() const;

private:
    QString m_root;
};
