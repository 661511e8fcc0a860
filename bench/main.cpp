// Benchmarks need an application object for Qt's SQL drivers and widgets.
#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
