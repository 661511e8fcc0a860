#include "kernel/FileLogger.h"
#include "foundation/Log.h"
#include <QDir>
#include <cstdio>

namespace {
void ToStderr(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
    std::fflush(stderr);
}
}

FileLogger::FileLogger(const QString& logFolder, QObject* parent)
    : CLogger(parent), m_folder(logFolder), m_copyToStderr(qgetenv("KORVANE_LOG_STDERR") == "1")
{
}

FileLogger::~FileLogger() = default;

void FileLogger::Dump(const QString& tag, const QString& object, const QString& procedure, const QString& text)
{
    Record(QDateTime::currentDateTime(), QStringLiteral("DUMP: "), tag, object, procedure, text);
}

void FileLogger::Ok(const QString& tag, const QString& object, const QString& procedure, const QString& text)
{
    Record(QDateTime::currentDateTime(), QStringLiteral("OK: "), tag, object, procedure, text);
}

void FileLogger::Error(const QString& tag, const QString& object, const QString& procedure, const QString& text)
{
    Record(QDateTime::currentDateTime(), QStringLiteral("ERROR: "), tag, object, procedure, text);
}

void FileLogger::Warn(const QString& tag, const QString& object, const QString& procedure, const QString& text)
{
    Record(QDateTime::currentDateTime(), QStringLiteral("WARN: "), tag, object, procedure, text);
}

void FileLogger::Record(const QDateTime& stamp, const QString& levelWord, const QString& tag,
                        const QString& object, const QString& procedure, const QString& text)
{
    try {
        const QString canonical = Log::CanonicalLine(levelWord, tag, object, procedure, text);
        const QString line = stamp.toString(Qt::ISODateWithMs) + QLatin1Char(' ') + OneLine(canonical);
        WriteLine(stamp.date(), line.toUtf8() + '\n');
    } catch (...) {
        // A logger never throws: a record that cannot be composed is lost.
    }
}

QString FileLogger::FileFor(const QDate& day) const
{
    return QDir(m_folder).filePath(day.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(".log"));
}

QString FileLogger::OneLine(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c == QLatin1Char('\\'))
            result += QLatin1String("\\\\");
        else if (c == QLatin1Char('\n'))
            result += QLatin1String("\\n");
        else if (c == QLatin1Char('\r'))
            result += QLatin1String("\\r");
        else
            result += c;
    }
    return result;
}

void FileLogger::WriteLine(const QDate& day, const QByteArray& line)
{
    std::lock_guard lock(m_mutex);
    const bool written = !m_folder.isEmpty() && OpenDay(day) && m_file.write(line) == line.size() && m_file.flush();
    if (!written || m_copyToStderr)
        ToStderr(line);
}

bool FileLogger::OpenDay(const QDate& day)
{
    if (m_file.isOpen() && m_fileDay == day)
        return true;
    m_file.close();
    QDir().mkpath(m_folder);
    m_file.setFileName(FileFor(day));
    m_fileDay = day;
    return m_file.open(QIODevice::WriteOnly | QIODevice::Append);
}
