#pragma once
#include <QString>
#include <QVector>
#include <utility>

class Database;
class StationFolder;
struct StationReport;

// The kernel's own tables of a new station: the shared configuration store (Config), the
// store of this station (StationConfig), the application record, the playlists and the
// translations.
class KernelCatalogue
{
public:
    using Setting = std::pair<QString, QString>; // key, value

    // The shared store with sensible values for every key the workstation reads.
    static QVector<Setting> SharedSettings(const StationFolder& folder);
    // The store of the demo station.
    static QVector<Setting> StationSettings(const StationFolder& folder);

    static void Write(Database& kernelDb, const StationFolder& folder, StationReport& report);

private:
    static void WriteSettings(Database& kernelDb, const StationFolder& folder);
    static void WriteApplication(Database& kernelDb);
    // Two playlists: one loaded from a demo macro and chained, one of pads.
    static void WritePlayLists(Database& kernelDb);
    // Red in the low byte, as the toolkit keeps colours.
    static QString ColorValue(int red, int green, int blue);
};
