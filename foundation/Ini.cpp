#include "foundation/Ini.h"
#include "foundation/ErrorGuard.h"
#include "kernelapi/KernelError.h"
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace {
const QByteArray Utf8Bom = QByteArrayLiteral("\xEF\xBB\xBF");
constexpr qsizetype ReadBufferChars = 255; // a buffer of 256 with its terminating zero

// The decoded text of a file and what it takes to encode it back byte for byte.
struct IniText
{
    QString text;
    bool utf8 = true;
    bool bom = false;
};

IniText Decode(const QByteArray& content)
{
    IniText doc;
    doc.bom = content.startsWith(Utf8Bom);
    const QByteArray body = doc.bom ? content.mid(Utf8Bom.size()) : content;
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    doc.text = utf8.decode(body);
    if (utf8.hasError()) {
        doc.text = QString::fromLatin1(body);
        doc.utf8 = false;
    }
    return doc;
}

QByteArray Encode(const IniText& doc)
{
    return (doc.bom ? Utf8Bom : QByteArray()) + (doc.utf8 ? doc.text.toUtf8() : doc.text.toLatin1());
}

struct Line
{
    QStringView content;
    QStringView ending; // "\r\n", "\n", "\r" or empty on an unterminated last line
};

QList<Line> SplitLines(QStringView text)
{
    QList<Line> lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != QLatin1Char('\n') && text[i] != QLatin1Char('\r'))
            continue;
        const bool crlf = text[i] == QLatin1Char('\r') && i + 1 < text.size() && text[i + 1] == QLatin1Char('\n');
        const qsizetype endingSize = crlf ? 2 : 1;
        lines.append({text.mid(start, i - start), text.mid(i, endingSize)});
        i += endingSize - 1;
        start = i + 1;
    }
    if (start < text.size())
        lines.append({text.mid(start), QStringView()});
    return lines;
}

struct Entry
{
    enum Kind { Other, Section, Key };
    Kind kind = Other;
    QStringView name;
    QStringView value;
    qsizetype valueStart = 0; // where the value begins in the line, after the blanks past "="
};

Entry Classify(QStringView line)
{
    const QStringView trimmed = line.trimmed();
    if (trimmed.startsWith(QLatin1Char('['))) {
        const qsizetype close = trimmed.indexOf(QLatin1Char(']'));
        if (close < 0)
            return {};
        return {Entry::Section, trimmed.mid(1, close - 1).trimmed(), {}, 0};
    }
    if (trimmed.startsWith(QLatin1Char(';')) || trimmed.startsWith(QLatin1Char('#')))
        return {};
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0 || line.left(equals).trimmed().isEmpty())
        return {};
    qsizetype valueStart = equals + 1;
    while (valueStart < line.size() && line[valueStart].isSpace())
        ++valueStart;
    return {Entry::Key, line.left(equals).trimmed(), line.mid(valueStart).trimmed(), valueStart};
}

QString NameKey(QStringView name)
{
    return name.trimmed().toString().toLower();
}

bool SameName(QStringView a, QStringView b)
{
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

bool HasLineBreak(const QString& text)
{
    return text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'));
}

void CheckWritable(const QString& section, const QString& key, const QString& value)
{
    if (HasLineBreak(section) || section.contains(QLatin1Char(']')))
        throw KernelError(QStringLiteral("Invalid section name '%1'").arg(section));
    const QString name = key.trimmed();
    if (name.isEmpty() || HasLineBreak(name) || name.contains(QLatin1Char('=')) || name.startsWith(QLatin1Char('['))
        || name.startsWith(QLatin1Char(';')) || name.startsWith(QLatin1Char('#')))
        throw KernelError(QStringLiteral("Invalid key name '%1'").arg(key));
    if (HasLineBreak(value))
        throw KernelError(QStringLiteral("The value of '%1' holds a line break").arg(key));
}

// Where a key goes: the line that holds it, else the last line of the first block of its
// section (header or key), else nowhere yet (the section is missing).
struct Target
{
    qsizetype keyLine = -1;
    qsizetype valueStart = 0;
    qsizetype sectionEnd = -1;
};

Target Locate(const QList<Line>& lines, QStringView section, QStringView key)
{
    Target target;
    bool inside = false;
    bool inFirstBlock = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const Entry entry = Classify(lines[i].content);
        if (entry.kind == Entry::Section) {
            inside = SameName(entry.name, section);
            inFirstBlock = inside && target.sectionEnd < 0;
            if (inFirstBlock)
                target.sectionEnd = i;
        } else if (entry.kind == Entry::Key && inside) {
            if (SameName(entry.name, key)) {
                target.keyLine = i;
                target.valueStart = entry.valueStart;
                return target;
            }
            if (inFirstBlock)
                target.sectionEnd = i;
        }
    }
    return target;
}

bool IsAscii(const QString& text)
{
    for (QChar c : text) {
        if (c.unicode() > 0x7F)
            return false;
    }
    return true;
}

QByteArray ReadExisting(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw KernelError(QStringLiteral("Cannot read '%1': %2").arg(path, file.errorString()));
    return file.readAll();
}

// The text cut as the read buffer cuts it, never between the halves of a surrogate pair.
QString CutToBuffer(const QString& text)
{
    qsizetype size = qMin(text.size(), ReadBufferChars);
    if (size < text.size() && text[size - 1].isHighSurrogate())
        --size;
    return text.left(size);
}
}

IniFile IniFile::Load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return Parse(file.readAll());
}

IniFile IniFile::Parse(const QByteArray& content)
{
    IniFile ini;
    const IniText doc = Decode(content);
    Section* current = nullptr;
    for (const Line& line : SplitLines(doc.text)) {
        const Entry entry = Classify(line.content);
        if (entry.kind == Entry::Section)
            current = &ini.Insert(entry.name);
        else if (entry.kind == Entry::Key && current)
            current->Insert(entry.name, entry.value);
    }
    return ini;
}

IniFile::Section& IniFile::Insert(QStringView section)
{
    const QString lower = NameKey(section);
    auto found = m_index.constFind(lower);
    if (found != m_index.constEnd())
        return m_sections[*found];
    m_index.insert(lower, m_sections.size());
    m_sections.append({section.toString(), {}, {}});
    return m_sections.last();
}

void IniFile::Section::Insert(QStringView key, QStringView value)
{
    const QString lower = NameKey(key);
    if (values.contains(lower))
        return;
    keys.append(key.toString());
    // A present but empty value stays distinguishable from an absent key.
    values.insert(lower, value.isEmpty() ? QString(QLatin1String("")) : value.toString());
}

QByteArray IniFile::WithValue(const QByteArray& content, const QString& section, const QString& key,
                              const QString& value)
{
    CheckWritable(section, key, value);
    IniText doc = Decode(content);
    const QList<Line> lines = SplitLines(doc.text);
    const Target target = Locate(lines, section, key);
    const QString eol = doc.text.contains(QLatin1String("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    const QString keyLine = key.trimmed() + QLatin1Char('=') + value;

    QString text;
    text.reserve(doc.text.size() + keyLine.size() + section.size() + 8);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        if (i == target.keyLine)
            text += line.content.left(target.valueStart).toString() + value;
        else
            text += line.content;
        if (i == target.sectionEnd && target.keyLine < 0)
            text += (line.ending.isEmpty() ? eol : line.ending.toString()) + keyLine + eol;
        else
            text += line.ending;
    }
    if (target.sectionEnd < 0) {
        if (!text.isEmpty() && !text.endsWith(QLatin1Char('\n')) && !text.endsWith(QLatin1Char('\r')))
            text += eol;
        if (!text.isEmpty())
            text += eol;
        text += QLatin1Char('[') + section.trimmed() + QLatin1Char(']') + eol + keyLine + eol;
    }
    // A file read as Latin-1 stays Latin-1 while what is added is plain ASCII; otherwise the
    // whole file becomes UTF-8, which keeps every character it held.
    doc.utf8 = doc.utf8 || !IsAscii(section + key + value);
    doc.text = text;
    return Encode(doc);
}

const IniFile::Section* IniFile::Find(const QString& section) const
{
    auto found = m_index.constFind(NameKey(section));
    return found == m_index.constEnd() ? nullptr : &m_sections[*found];
}

bool IniFile::HasSection(const QString& section) const
{
    return Find(section) != nullptr;
}

QString IniFile::Value(const QString& section, const QString& key) const
{
    const Section* found = Find(section);
    return found ? found->values.value(NameKey(key)) : QString();
}

QStringList IniFile::Sections() const
{
    QStringList names;
    for (const Section& section : m_sections)
        names.append(section.name);
    return names;
}

QStringList IniFile::Keys(const QString& section) const
{
    const Section* found = Find(section);
    return found ? found->keys : QStringList();
}

QString ReadIni(const QString& section, const QString& key, const QString& defaultValue, const QString& file)
{
    return ReadIni(IniFile::Load(file), section, key, defaultValue);
}

QString ReadIni(const IniFile& ini, const QString& section, const QString& key, const QString& defaultValue)
{
    const QString value = ini.Value(section, key);
    const QString read = CutToBuffer(value.isEmpty() ? defaultValue : value).trimmed();
    return read.isEmpty() ? defaultValue : read;
}

bool WriteIni(const QString& section, const QString& key, const QString& value, const QString& file)
{
    return Guarded(QStringLiteral("Ini"), QStringLiteral("WriteIni"), [&] {
        const QByteArray content = IniFile::WithValue(ReadExisting(file), section, key, value);
        QSaveFile out(file);
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size() || !out.commit())
            throw KernelError(QStringLiteral("Cannot write '%1': %2").arg(file, out.errorString()));
    });
}
