#pragma once
#include <QString>

class StationFolder;

// Writes the two text files of a new station: station.ini (identity, working resolution and
// the menu whose form names the shell opens) and kernel.ini (the kernel's settings).
class StationFiles
{
public:
    static const QString StationID;
    static const QString StationName;

    static void Write(const StationFolder& folder);

private:
    static QString StationIniText();
    static QString KernelIniText();
    static void WriteText(const QString& path, const QString& text);
};
