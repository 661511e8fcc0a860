#include "metering/TimeSynchronizer.h"
#include "foundation/Log.h"
#include "metering/ClockFace.h"
#include <QRegularExpression>

namespace {
const QString Object = QStringLiteral("IFClock");
const QString Procedure = QStringLiteral("LowLevelSynchronize");

QString LastLine(const QString& output)
{
    const QStringList lines = output.split(u'\n', Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : lines.last().trimmed();
}

QString Describe(TimeSynchronizer::Failure failure, const QString& program, const QString& server, const QString& output)
{
    const QString said = LastLine(output);
    const QString tail = said.isEmpty() ? QString() : QStringLiteral(" (%1: %2)").arg(program, said);
    switch (failure) {
    case TimeSynchronizer::Failure::NoProgram:
        return QStringLiteral("Time sync failed: the program %1 is not installed or cannot be started (%2)").arg(program, output);
    case TimeSynchronizer::Failure::NoRight:
        return QStringLiteral("Time sync failed: no right to set the system clock") + tail;
    case TimeSynchronizer::Failure::TimedOut:
        return QStringLiteral("Time sync failed: time server %1 did not answer within %2 seconds").arg(server).arg(TimeSynchronizer::WaitSeconds);
    case TimeSynchronizer::Failure::AlreadyRunning:
    case TimeSynchronizer::Failure::Unreachable: break;
    }
    return QStringLiteral("Time sync failed: time server %1 could not be reached").arg(server) + tail;
}
}

TimeSynchronizer::TimeSynchronizer(ProgramRunner runner, Now now)
    : m_runner(std::move(runner))
    , m_now(std::move(now))
{
}

bool TimeSynchronizer::IsServerName(const QString& name)
{
    static const QRegularExpression ipv6(QStringLiteral("^[0-9A-Fa-f]*:[0-9A-Fa-f:.]*$"));
    if (ipv6.match(name).hasMatch())
        return true;
    static const QRegularExpression label(QStringLiteral("^[A-Za-z0-9]([A-Za-z0-9-]{0,61}[A-Za-z0-9])?$"));
    if (name.isEmpty() || name.size() > 253)
        return false;
    const QStringList labels = name.endsWith(u'.') ? name.chopped(1).split(u'.') : name.split(u'.');
    for (const QString& part : labels)
        if (!label.match(part).hasMatch())
            return false;
    return true;
}

TimeSynchronizer::Failure TimeSynchronizer::Classify(const ProgramOutcome& outcome)
{
    static const QRegularExpression noRight(QStringLiteral("not superuser|not permitted|permission denied|not authori[sz]ed|must be root"),
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression alreadyRunning(QStringLiteral("already (be )?running"), QRegularExpression::CaseInsensitiveOption);
    switch (outcome.kind) {
    case ProgramOutcome::NotStarted: return Failure::NoProgram;
    case ProgramOutcome::TimedOut: return Failure::TimedOut;
    case ProgramOutcome::Finished:
    case ProgramOutcome::Crashed: break;
    }
    if (alreadyRunning.match(outcome.output).hasMatch())
        return Failure::AlreadyRunning;
    if (noRight.match(outcome.output).hasMatch())
        return Failure::NoRight;
    return Failure::Unreachable;
}

bool TimeSynchronizer::Synchronize(const QString& server)
{
    if (m_running) {
        LogWarn(Object, Procedure, QStringLiteral("Time sync already running; this one is skipped"));
        return false;
    }
    if (!IsServerName(server)) {
        LogError(Object, Procedure, QStringLiteral("Time sync refused: '%1' is not a valid time server name").arg(server));
        return false;
    }
    m_running = true;
    RunChronyd(server, TimeNow());
    return true;
}

// The directive is one argument; chronyd reads no configuration file when given one.
void TimeSynchronizer::RunChronyd(const QString& server, const QString& oldTime)
{
    const QStringList arguments{QStringLiteral("-q"), QStringLiteral("-t"), QString::number(WaitSeconds),
                                QStringLiteral("server %1 iburst").arg(server)};
    m_runner(QStringLiteral("chronyd"), arguments, [this, server, oldTime](const ProgramOutcome& outcome) {
        if (outcome.kind == ProgramOutcome::Finished && outcome.exitCode != 0 && Classify(outcome) == Failure::AlreadyRunning)
            RunChronyc(server, oldTime);
        else
            Finish(QStringLiteral("chronyd"), server, oldTime, outcome);
    });
}

void TimeSynchronizer::RunChronyc(const QString& server, const QString& oldTime)
{
    m_runner(QStringLiteral("chronyc"), {QStringLiteral("makestep")}, [this, server, oldTime](const ProgramOutcome& outcome) {
        Finish(QStringLiteral("chronyc"), server, oldTime, outcome);
    });
}

void TimeSynchronizer::Finish(const QString& program, const QString& server, const QString& oldTime, const ProgramOutcome& outcome)
{
    m_running = false;
    if (outcome.kind == ProgramOutcome::Finished && outcome.exitCode == 0)
        LogOk(Object, Procedure, QStringLiteral("Time sync Old: ") + oldTime + QStringLiteral(" New: ") + TimeNow());
    else
        LogError(Object, Procedure, Describe(Classify(outcome), program, server, outcome.output));
}

QString TimeSynchronizer::TimeNow() const
{
    return ClockFace::TimeText(m_now().time());
}
