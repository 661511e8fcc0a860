#include "metering/ProgramRunner.h"
#include <QProcess>
#include <QTimer>
#include <memory>

namespace {
// One run: ends exactly once, whichever of finish, failure to start or timeout comes first.
void Run(QObject* context, int timeoutMs, const QString& program, const QStringList& arguments, const ProgramDone& done)
{
    auto* process = new QProcess(context);
    auto* timer = new QTimer(process);
    auto ended = std::make_shared<bool>(false);
    const auto end = [process, ended, done](ProgramOutcome outcome) {
        if (*ended)
            return;
        *ended = true;
        process->disconnect();
        // A killed program is reaped before its process object goes.
        if (process->state() == QProcess::NotRunning)
            process->deleteLater();
        else
            QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        done(outcome);
    };
    process->setProgram(program);
    process->setArguments(arguments);
    process->setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(process, &QProcess::finished, process, [process, end](int exitCode, QProcess::ExitStatus status) {
        const QString output = QString::fromLocal8Bit(process->readAll()).trimmed();
        end({status == QProcess::NormalExit ? ProgramOutcome::Finished : ProgramOutcome::Crashed, exitCode, output});
    });
    QObject::connect(process, &QProcess::errorOccurred, process, [process, end](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end({ProgramOutcome::NotStarted, -1, process->errorString()});
    });
    QObject::connect(context, &QObject::destroyed, process, [process, ended] {
        *ended = true;
        process->disconnect();
        process->kill();
        process->waitForFinished(1000);
    });
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, process, [process, end] {
        process->kill();
        end({ProgramOutcome::TimedOut, -1, QString::fromLocal8Bit(process->readAll()).trimmed()});
    });
    timer->start(timeoutMs);
    process->start();
}
}

ProgramRunner ProcessRunner(QObject* context, int timeoutMs)
{
    return [context, timeoutMs](const QString& program, const QStringList& arguments, const ProgramDone& done) {
        Run(context, timeoutMs, program, arguments, done);
    };
}
