#pragma once
#include "metering/ProgramRunner.h"
#include <QDateTime>
#include <functional>

// Sets the computer's clock once from a time server with chrony, without waiting on the
// caller's thread: `chronyd -q` with the server as its one directive steps the clock and exits;
// where a chronyd already runs (it holds the port), `chronyc makestep` steps it from that
// daemon's sources instead. Success logs "Time sync Old: <old time> New: <new time>" at OK
// level; a bad server name, a missing program, no right to set the clock, a server that does
// not answer or a run that hangs each give one ERROR line saying which. The clock itself is
// never touched by this class but through the programs.
class TimeSynchronizer
{
public:
    using Now = std::function<QDateTime()>;
    static constexpr int WaitSeconds = 20;

    enum class Failure { NoProgram, NoRight, Unreachable, AlreadyRunning, TimedOut };

    TimeSynchronizer(ProgramRunner runner, Now now);

    // Starts a synchronisation from server; false (after the log line) when it was not started.
    bool Synchronize(const QString& server);
    bool Running() const { return m_running; }

    // A host name of letters, digits and hyphens in dotted labels (an IPv4 address is one), or
    // an IPv6 address of hex digits and colons: nothing a program could read as anything else.
    static bool IsServerName(const QString& name);
    // Why a run that did not end with exit code 0 failed, read from what the program said.
    static Failure Classify(const ProgramOutcome& outcome);

private:
    void RunChronyd(const QString& server, const QString& oldTime);
    void RunChronyc(const QString& server, const QString& oldTime);
    void Finish(const QString& program, const QString& server, const QString& oldTime, const ProgramOutcome& outcome);
    QString TimeNow() const;

    ProgramRunner m_runner;
    Now m_now;
    bool m_running = false;
};
