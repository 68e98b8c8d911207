// What the program takes from the heap, measured at malloc itself, so that every library's share is in it.
#pragma once

#include <cstddef>

namespace KivoBenchmark {

struct HeapUse {
    std::size_t bytes;     ///< held now
    std::size_t peakBytes; ///< the most held at one moment since the last reset
    std::size_t count;     ///< allocations so far
};

HeapUse CurrentHeapUse();
/// Begins a new peak at what is held now.
void ResetHeapPeak();

} // namespace KivoBenchmark
