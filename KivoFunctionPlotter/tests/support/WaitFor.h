// Waiting for what another program does.
#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace KivoTest {

/// How long a test waits for what has to come. Only what never comes takes so long: a machine that is busy
/// with other things needs a good part of it.
constexpr std::chrono::seconds patience{60};

/// Asks for a condition again and again, at least once: soon after the last time at first, more rarely then.
/// @return whether it came true in time
template <typename Condition>
bool WaitFor(Condition condition, std::chrono::milliseconds time = patience) {
    constexpr std::chrono::milliseconds longest{16};
    const auto end = std::chrono::steady_clock::now() + time;
    for (std::chrono::milliseconds pause{1};; pause = std::min(2 * pause, longest)) {
        if (condition()) return true;
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(pause);
    }
}

} // namespace KivoTest
