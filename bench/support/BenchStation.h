#pragma once
#include <QString>

// Stations the benchmarks run on, made once per run in build/bench-stations.
namespace BenchStation {
// The demo station as korvane-station creates it.
QString Demo();
}
