#pragma once
#include <QString>

// The persisted properties of controls: one file of sections and keys in the station folder
// ("settings.ini" beside the station file), a section per control and a key per property,
// for example [IFCartPlayer1] TriplePlayMode=True. Without a kernel there is no station and
// nothing is read or written.
namespace StationSettings {
inline constexpr const char* FileName = "settings.ini";

// The full name of the settings file, or empty when no kernel is running.
QString File();
// The stored value, or the default when the file, the section or the key is missing.
QString Read(const QString& control, const QString& property, const QString& defaultValue);
// Stores one value; false (after an ERROR line) when it could not be written.
bool Write(const QString& control, const QString& property, const QString& value);

// Booleans are kept as "True" and "False"; any other text reads as the default.
bool ReadFlag(const QString& control, const QString& property, bool defaultValue);
bool WriteFlag(const QString& control, const QString& property, bool value);
}
