#pragma once
#include <QString>

// Stations the benchmarks run on, made once per run in build/bench-stations.
namespace BenchStation {
// The demo station as korvane-station creates it.
QString Demo();
// The demo station with 100,000 more carts in ten full families (BAA to BAJ).
QString Catalogue100k();
// A demo station of the benchmark's own, under the name, for a benchmark that changes it.
QString OwnDemo(const QString& name);
// The demo station with its audio on the Null device's virtual clock and no expiring warning.
QString VirtualClock();
}
