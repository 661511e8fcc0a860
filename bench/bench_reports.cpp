// Printing a full family of 10,000 carts (its header and its list of carts) to a PDF in the
// station's reports folder, beside the floor of reading the family's rows alone.
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

void FullFamilyPrintedToPdf(benchmark::State& state)
{
    const StationFolder station(BenchStation::Catalogue100k());
    const auto kernel = EmbeddedKernel::Open(station, nullptr);
    const std::shared_ptr<iFamily> family = kernel->Families()->Item(Family);
    const QString reports = station.Root() + QStringLiteral("reports/");
    double readMs = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QDir(reports).removeRecursively();
        QElapsedTimer read;
        read.start();
        family->Refresh();
        benchmark::DoNotOptimize(family->Count());
        readMs = read.nsecsElapsed() / 1e6;
        family->Refresh();
        state.ResumeTiming();
        family->Print(true, true);
        kernel->World()->Reports().WaitForDone();
    }
    state.counters["pages"] = PdfPages(NewestReport(reports));
    state.counters["read_rows_ms"] = readMs;
    state.SetLabel("10,000 carts, header and list; no budget set, floor: reading the rows");
}
}

BENCHMARK(FullFamilyPrintedToPdf)->Unit(benchmark::kMillisecond)->Iterations(3);
