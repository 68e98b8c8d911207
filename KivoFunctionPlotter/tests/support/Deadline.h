// Fails a test whose steps take too long.
#pragma once

#include <gtest/gtest.h>

#include <ctime>

namespace KivoDrawingTools {

#if defined(__SANITIZE_ADDRESS__)
constexpr double deadlineFactor = 10.0; // checked code is slower, and it is not optimised
#elif defined(_WIN32)
constexpr double deadlineFactor = 5.0; // the clock below goes on while others have the processor
#else
constexpr double deadlineFactor = 1.0;
#endif

/// Runs a step, which may take one second of the processor's time: that of all threads, whatever else the
/// machine is doing.
template <typename Step>
void ExpectWithinASecond(const char* name, Step step) {
    const std::clock_t begin = std::clock();
    step();
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    EXPECT_LT(seconds, deadlineFactor) << name;
}

} // namespace KivoDrawingTools
