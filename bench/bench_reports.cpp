// Printing a full family of 10,000 carts (its header and its list of carts) to a PDF in the
// station's reports folder: the whole report, and the part of it spent on the UI thread.
#include "kernel/CartWorld.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/StationFolder.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "support/BenchStation.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <benchmark/benchmark.h>
#include <algorithm>

namespace {
const QString Family = QStringLiteral("BAA");

// The pages of a report written as PDF (each page object is written uncompressed).
int PdfPages(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? int(file.readAll().count("/Type /Page\n")) : -1;
}

QString NewestReport(const QString& folder)
{
    const QFileInfoList reports = QDir(folder).entryInfoList({QStringLiteral("*.pdf")}, QDir::Files, QDir::Time);
    return reports.isEmpty() ? QString() : reports.first().filePath();
}

// Prints the family while the benchmark's clock runs and returns the time of the call itself,
// which is what the UI thread spends (the lines are made there, the pages on a worker).
double PrintOnce(iFamily& family, EmbeddedKernel& kernel)
{
    QElapsedTimer call;
    call.start();
    family.Print(true, true);
    const double ms = call.nsecsElapsed() / 1e6;
    kernel.World()->Reports().WaitForDone();
    return ms;
}

// cold: the family's rows are read by the print itself; warm: they were read before, as when
// the family is on screen in a cart browser.
void FullFamilyPrintedToPdf(benchmark::State& state, bool warm)
{
    const StationFolder station(BenchStation::Catalogue100k());
    const auto kernel = EmbeddedKernel::Open(station, nullptr);
    const std::shared_ptr<iFamily> family = kernel->Families()->Item(Family);
    const QString reports = station.Root() + QStringLiteral("reports/");
    double callMs = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QDir(reports).removeRecursively();
        family->Refresh();
        if (warm)
            benchmark::DoNotOptimize(family->Slots());
        state.ResumeTiming();
        callMs = std::max(callMs, PrintOnce(*family, *kernel));
    }
    state.counters["pages"] = PdfPages(NewestReport(reports));
    state.counters["ui_thread_ms"] = callMs;
}

void FullFamilyPrintedToPdfCold(benchmark::State& state)
{
    FullFamilyPrintedToPdf(state, false);
    state.SetLabel("10,000 carts, rows read by the print; ui_thread_ms: no budget (a family load is under 300 ms)");
}

void FullFamilyPrintedToPdfFromTheBrowser(benchmark::State& state)
{
    FullFamilyPrintedToPdf(state, true);
    state.SetLabel("10,000 carts on screen; ui_thread_ms: no stall over 16 ms");
}
}

BENCHMARK(FullFamilyPrintedToPdfCold)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FullFamilyPrintedToPdfFromTheBrowser)->Unit(benchmark::kMillisecond)->Iterations(3);
