#pragma once
#include <QString>
#include <memory>

class CLogger;

// The four log helpers of the workstation. Each takes object name, procedure name and text and
// hands them with the program tag to the process-wide logger. Before a logger is set (or after
// it failed) the line is composed in canonical form and dropped. A helper never throws.
namespace Log {
inline constexpr const char* ProgramTag = "Korvane_Interface_v1_2_c";

void SetLogger(std::shared_ptr<CLogger> logger);
std::shared_ptr<CLogger> Logger();

// "WARN: Korvane_Interface_v1_2_c.modInterface.StartInterface: text"
QString CanonicalLine(const QString& levelWord, const QString& tag, const QString& object,
                      const QString& procedure, const QString& text);
}

void LogWarn(const QString& object, const QString& procedure, const QString& text);
void LogDump(const QString& object, const QString& procedure, const QString& text);
void LogOk(const QString& object, const QString& procedure, const QString& text);
void LogError(const QString& object, const QString& procedure, const QString& text);
