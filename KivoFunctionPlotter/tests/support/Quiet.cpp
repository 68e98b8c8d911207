#include "Quiet.h"

namespace KivoTest {

// Nothing here depends on how soon the processor turns to the program. What is injected is with it after the
// round trip. A program that has used no processor time since then, and does not wait for the processor or
// the display, was waiting for input with none left. It may also have waited for a time: toolkits put drawing
// off to the next frame.
bool WaitUntilQuiet(const Desktop& desktop, const ChildProcess& program) {
    constexpr std::chrono::milliseconds longerThanAFrame{30};
    return WaitFor([&] {
        desktop.Sync();
        const std::chrono::nanoseconds before = program.ProcessorTime();
        std::this_thread::sleep_for(longerThanAFrame);
        return desktop.IsIdle() && program.IsIdle() && program.ProcessorTime() == before;
    });
}

} // namespace KivoTest
