#pragma once
#include "foundation/Log.h"
#include "kernelapi/CLogger.h"
#include <QStringList>
#include <memory>

// A logger that keeps each line as "LEVEL object.procedure: text", installed while it lives.
class RecordingLogger : public CLogger
{
public:
    static std::shared_ptr<RecordingLogger> Install()
    {
        auto logger = std::make_shared<RecordingLogger>();
        Log::SetLogger(logger);
        return logger;
    }

    void Dump(const QString&, const QString& object, const QString& procedure, const QString& text) override { Keep("DUMP", object, procedure, text); }
    void Ok(const QString&, const QString& object, const QString& procedure, const QString& text) override { Keep("OK", object, procedure, text); }
    void Error(const QString&, const QString& object, const QString& procedure, const QString& text) override { Keep("ERROR", object, procedure, text); }
    void Warn(const QString&, const QString& object, const QString& procedure, const QString& text) override { Keep("WARN", object, procedure, text); }

    QStringList Errors() const { return lines.filter(QStringLiteral("ERROR ")); }

    QStringList lines;

private:
    void Keep(const char* level, const QString& object, const QString& procedure, const QString& text)
    {
        lines.append(QStringLiteral("%1 %2.%3: %4").arg(QLatin1String(level), object, procedure, text));
    }
};
