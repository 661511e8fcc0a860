#include "foundation/Log.h"
#include "kernelapi/CLogger.h"

namespace {
std::shared_ptr<CLogger>& TheLogger()
{
    static std::shared_ptr<CLogger> logger;
    return logger;
}

using LoggerOperation = void (CLogger::*)(const QString&, const QString&, const QString&, const QString&);

void Send(LoggerOperation operation, const QString& object, const QString& procedure, const QString& text)
{
    try {
        if (auto logger = TheLogger())
            (logger.get()->*operation)(QLatin1String(Log::ProgramTag), object, procedure, text);
        // Without a logger the composed line has nowhere to go and is dropped.
    } catch (...) {
        // A log helper never raises.
    }
}
}

namespace Log {
void SetLogger(std::shared_ptr<CLogger> logger) { TheLogger() = std::move(logger); }
std::shared_ptr<CLogger> Logger() { return TheLogger(); }

QString CanonicalLine(const QString& levelWord, const QString& tag, const QString& object,
                      const QString& procedure, const QString& text)
{
    return levelWord + tag + QLatin1Char('.') + object + QLatin1Char('.') + procedure + QLatin1String(": ") + text;
}
}

void LogWarn(const QString& object, const QString& procedure, const QString& text) { Send(&CLogger::Warn, object, procedure, text); }
void LogDump(const QString& object, const QString& procedure, const QString& text) { Send(&CLogger::Dump, object, procedure, text); }
void LogOk(const QString& object, const QString& procedure, const QString& text) { Send(&CLogger::Ok, object, procedure, text); }
void LogError(const QString& object, const QString& procedure, const QString& text) { Send(&CLogger::Error, object, procedure, text); }
