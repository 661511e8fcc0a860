#pragma once
#include <QString>
#include <QStringList>
#include <QMap>

// A file of sections and keys ("[Section]", "key=value", ";" or "#" comments). Section and
// key names compare without regard to case; a repeated key keeps its first value; lines
// that are neither are skipped. Reading never fails: a missing or unreadable file is empty.
class IniFile
{
public:
    IniFile() = default;
    static IniFile Load(const QString& path);
    static IniFile Parse(const QByteArray& content);

    bool HasSection(const QString& section) const;
    // The raw value (untrimmed of inner blanks, outer blanks removed); null when absent.
    QString Value(const QString& section, const QString& key) const;
    QStringList Sections() const;
    QStringList Keys(const QString& section) const;

private:
    QMap<QString, QMap<QString, QString>> m_sections; // lower-case names
    QMap<QString, QString> m_sectionNames;            // lower case -> as written
    QMap<QString, QStringList> m_keyOrder;
};

// Reads one key with the semantics of the station files: the value is cut to 255 characters
// (a buffer of 256), trimmed, and an empty read gives the default.
QString ReadIni(const QString& section, const QString& key, const QString& defaultValue, const QString& file);
// The same over an already parsed file.
QString ReadIni(const IniFile& ini, const QString& section, const QString& key, const QString& defaultValue);

// Writes or replaces one key, keeping the rest of the file as it is. Creates the file.
bool WriteIni(const QString& section, const QString& key, const QString& value, const QString& file);
