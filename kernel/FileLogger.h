#pragma once
#include "kernelapi/CLogger.h"
#include <QDate>
#include <QDateTime>
#include <QFile>
#include <mutex>

// The kernel's logger. Each record becomes one line of <log folder>/YYYY-MM-DD.log, the file
// of the record's own day: an ISO 8601 local time stamp with milliseconds, a blank, and the
// canonical log line, with line breaks escaped so that a record stays one line. Without a log
// folder, or with KORVANE_LOG_STDERR=1, lines go to standard error. Safe to call from any
// thread; flushed per line; never throws.
class FileLogger : public CLogger
{
    Q_OBJECT
public:
    // An empty folder logs to standard error only.
    explicit FileLogger(const QString& logFolder, QObject* parent = nullptr);
    ~FileLogger() override;

    void Dump(const QString& tag, const QString& object, const QString& procedure, const QString& text) override;
    void Ok(const QString& tag, const QString& object, const QString& procedure, const QString& text) override;
    void Error(const QString& tag, const QString& object, const QString& procedure, const QString& text) override;
    void Warn(const QString& tag, const QString& object, const QString& procedure, const QString& text) override;

    // Writes one record stamped with the given time (the Dump..Warn operations use now).
    void Record(const QDateTime& stamp, const QString& levelWord, const QString& tag, const QString& object,
                const QString& procedure, const QString& text);

    // The file that holds the records of a day.
    QString FileFor(const QDate& day) const;
    // The text with backslashes, line feeds and carriage returns written as \\, \n and \r.
    static QString OneLine(const QString& text);

private:
    void WriteLine(const QDate& day, const QByteArray& line);
    bool OpenDay(const QDate& day);

    QString m_folder;
    bool m_copyToStderr = false;
    std::mutex m_mutex;
    QFile m_file;
    QDate m_fileDay;
};
