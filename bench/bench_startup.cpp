// Cold start of the workstation: from spawning the executable on the demo station to the
// menu on screen (the log line written right after the menu form has been shown).
#include "support/BenchStation.h"
#include <QElapsedTimer>
#include <QProcess>
#include <benchmark/benchmark.h>

namespace {
void ColdStartToMenu(benchmark::State& state)
{
    const QString station = BenchStation::Demo();
    for (auto _ : state) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("KORVANE_STATION"), station);
        environment.insert(QStringLiteral("KORVANE_LOG_STDERR"), QStringLiteral("1"));
        environment.insert(QStringLiteral("KORVANE_DIALOGS"), QStringLiteral("print"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::SeparateChannels);
        program.setReadChannel(QProcess::StandardError);
        QElapsedTimer clock;
        clock.start();
        program.start(QStringLiteral(KORVANE_BIN_DIR "/korvane"), {});
        QByteArray errors;
        while (!errors.contains("Interface version = ") && program.waitForReadyRead(10000))
            errors += program.readAllStandardError();
        const double seconds = clock.nsecsElapsed() / 1e9;
        program.kill();
        program.waitForFinished();
        if (!errors.contains("Interface version = ")) {
            state.SkipWithError("the workstation did not reach its menu");
            return;
        }
        state.SetIterationTime(seconds);
    }
    state.SetLabel("budget: under 500 ms");
}
}

BENCHMARK(ColdStartToMenu)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5)->ReportAggregatesOnly(true);
