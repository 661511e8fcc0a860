#pragma once
#include <QString>
#include <QStringList>

// Other programs are started by a short name through desktop launchers: the file
// "<name>.desktop" in the station's folder "launchers/", else in the XDG applications folders
// (~/.local/share/applications, /usr/share/applications...). Its Exec line is the command.
namespace Launcher {
// The folders searched, in order.
QStringList Folders();
// The command of a launcher file (program first, field codes such as %f dropped), or empty
// when the file is missing, is no desktop entry or has no Exec line.
QStringList Command(const QString& desktopFile);
// The launcher file of a name in the folders, or empty.
QString FileOf(const QString& name, const QStringList& folders);
}

// Starts the program of a launcher name, detached. A failure writes one ERROR line, object
// "Globals", procedure "Launch", text "Could not launch '<name>'".
void Launch(const QString& name);
