#pragma once
#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

// A file of sections and keys ("[Section]", "key=value", ";" or "#" comments). Section and
// key names compare without regard to case; a repeated key keeps its first value; a section
// that appears twice is one section; keys before the first section and lines that are
// neither are skipped. Text is UTF-8 (with or without a byte order mark) or, when it is not
// valid UTF-8, Latin-1. Lines end in CR LF, LF or CR. Reading never fails: a missing or
// unreadable file is empty.
class IniFile
{
public:
    IniFile() = default;
    static IniFile Load(const QString& path);
    static IniFile Parse(const QByteArray& content);

    // The content with one key set: its first line replaced, or a line added to the section,
    // or the section added at the end. Every other byte of the content stays as it was.
    // Throws KernelError for a section, key or value that such a file cannot hold.
    static QByteArray WithValue(const QByteArray& content, const QString& section, const QString& key,
                                const QString& value);

    bool HasSection(const QString& section) const;
    // The value with outer blanks removed; null when absent.
    QString Value(const QString& section, const QString& key) const;
    // Names as first written, in file order.
    QStringList Sections() const;
    QStringList Keys(const QString& section) const;

private:
    struct Section
    {
        QString name;
        QStringList keys;
        QHash<QString, QString> values; // by lower-case key

        // A repeated key keeps its first value.
        void Insert(QStringView key, QStringView value);
    };
    // The section of that name, added at the end when new.
    Section& Insert(QStringView section);
    const Section* Find(const QString& section) const;

    QList<Section> m_sections;
    QHash<QString, qsizetype> m_index; // lower-case name -> position in m_sections
};

// Reads one key with the semantics of the station files: the value (or, when the key is
// absent or empty, the default) is cut to 255 characters (a buffer of 256) and trimmed; a
// read that gives nothing returns the default as it came.
QString ReadIni(const QString& section, const QString& key, const QString& defaultValue, const QString& file);
// The same over an already parsed file.
QString ReadIni(const IniFile& ini, const QString& section, const QString& key, const QString& defaultValue);

// Writes or replaces one key, keeping the rest of the file as it is; creates the file and the
// section when needed. The file is replaced atomically: an interrupted write leaves the old
// one whole. A failure is logged (object "Ini", procedure "WriteIni") and gives false.
bool WriteIni(const QString& section, const QString& key, const QString& value, const QString& file);
