#pragma once
#include <QString>
#include <QStringList>
#include <functional>

class QObject;

// How a program run by the clock ended.
struct ProgramOutcome
{
    enum Kind { Finished, NotStarted, TimedOut, Crashed };
    Kind kind = Finished;
    int exitCode = 0;
    // Standard output and error together, or why the program did not start.
    QString output;
};

using ProgramDone = std::function<void(const ProgramOutcome&)>;

// Runs a program with an argument list, never through a shell, so each argument reaches the
// program whole; done is called once, on the caller's thread, when it has ended. Tests install
// a runner of their own and see every program and argument.
using ProgramRunner = std::function<void(const QString& program, const QStringList& arguments, const ProgramDone& done)>;

// The real runner: a QProcess owned by context, watched by signals so the caller's thread never
// waits; a program still running after timeoutMs is killed and ends as TimedOut. A run still
// going when context is destroyed is killed and never calls done.
ProgramRunner ProcessRunner(QObject* context, int timeoutMs);
