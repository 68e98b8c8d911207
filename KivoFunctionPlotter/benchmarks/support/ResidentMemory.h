// The physical memory of this process, by which programs of any kind can be compared.
#pragma once

#include <benchmark/benchmark.h>

#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace KivoBenchmark {

/// Bytes of physical memory that the process holds now.
inline double ResidentBytes() {
    std::ifstream status("/proc/self/statm");
    double total = 0.0, resident = 0.0;
    status >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// The most that it has held.
inline double PeakResidentBytes() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024.0;
}

/// Puts the growth from a number of resident bytes to the peak, for each of n x n points, into the results.
/// Means something only where the process has done nothing else.
inline void ReportPeak(benchmark::State& state, double before) {
    const double pointCount = static_cast<double>(state.range(0)) * static_cast<double>(state.range(0));
    state.counters["resident_bytes"] = (PeakResidentBytes() - before) / pointCount;
}

} // namespace KivoBenchmark
