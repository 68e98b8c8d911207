// Waiting for a program that has nothing more to do.
#pragma once

#include "ChildProcess.h"
#include "Desktop.h"

namespace KivoTest {

/// Waits until a program has handled all input that it was sent on the display, and the display all that the
/// program draws. What it does later by itself, by a timer of more than 30 ms, is not waited for.
/// @return whether it came to rest in time
bool WaitUntilQuiet(const Desktop& desktop, const ChildProcess& program);

} // namespace KivoTest
