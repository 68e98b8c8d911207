// Waiting for what another program does.
#pragma once

#include <chrono>
#include <thread>

namespace KivoTest {

/// How long a test waits for what has to come; a busy machine needs a good part of it.
constexpr std::chrono::seconds patience{30};

/// Asks for a condition again and again. @return whether it came true in time
template <typename Condition>
bool WaitFor(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (std::chrono::steady_clock::now() < end) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

} // namespace KivoTest
