// What is held at a moment, to tell afterwards whether something has been lost.
#pragma once

#include "AllocationFaults.h"
#include "RecordedPlot.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace KivoTest {

/// Resources of the window system, EGL and OpenGL, and blocks of memory.
struct Holdings {
    Holdings();
    std::map<std::string, int> resources;
    long blocks;
};

/// Whether as much is held as before.
testing::AssertionResult AreEqual(const Holdings& now, const Holdings& before);

/// Whether the stacks of the plotter's OpenGL context are empty and it has no error to report.
testing::AssertionResult IsOpenGlInOrder(CallProbe& plotter);

/// Makes what the first plotter of a process leaves behind for all that follow.
void WarmUp();

/// Takes nothing into account that the test itself holds.
template <typename Action>
auto Uncounted(Action action) {
    const WithoutAllocationFaults uncounted;
    return action();
}

} // namespace KivoTest
