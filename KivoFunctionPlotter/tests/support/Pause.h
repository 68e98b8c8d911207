// A program that is held up, and what it has drawn afterwards.
#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "PrivateFolder.h"

#include <csignal>
#include <filesystem>
#include <string>
#include <system_error>

namespace KivoTest {

/// A program stands still for the life of the object. All input that the display is asked for meanwhile waits
/// for it, and comes at once.
class Pause {
public:
    Pause(const ChildProcess& program, const Desktop& desktop) : m_program(program), m_desktop(desktop) {
        kill(m_program.Id(), SIGSTOP);
    }
    ~Pause() {
        m_desktop.Sync();
        kill(m_program.Id(), SIGCONT);
    }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

private:
    const ChildProcess& m_program;
    const Desktop& m_desktop;
};

/// Counts the frames of a program that is started with this environment.
class FrameCount {
public:
    /// @param slowness  milliseconds that each frame takes longer than it would
    Environment For(int slowness = 0) const {
        Environment environment = {{"LD_PRELOAD", KIVO_FRAME_COUNTER}, {"KIVO_FRAME_COUNT", Path()}};
        if (slowness > 0) environment["KIVO_FRAME_TIME"] = std::to_string(slowness);
        return environment;
    }

    int Frames() const {
        std::error_code none;
        const auto size = std::filesystem::file_size(Path(), none);
        return none ? 0 : static_cast<int>(size);
    }

private:
    std::string Path() const { return m_folder.Path() + "/frames"; }

    PrivateFolder m_folder;
};

} // namespace KivoTest
