// How benchmarks are registered: times of the wall clock in milliseconds beside the process's CPU time, and
// the sizes n of grids of n x n points.
#pragma once

#include <benchmark/benchmark.h>

namespace KivoBenchmark {

inline void Defaults(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

/// The sizes at which other programs do the same.
inline void PeerSizes(benchmark::internal::Benchmark* benchmark) {
    Defaults(benchmark);
    for (const int n : {1000, 2000})
        benchmark->Arg(n);
}

/// The sizes that show how cost grows.
inline void AllSizes(benchmark::internal::Benchmark* benchmark) {
    Defaults(benchmark);
    for (const int n : {250, 500, 1000, 2000, 4000})
        benchmark->Arg(n);
}

} // namespace KivoBenchmark
