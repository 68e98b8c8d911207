// A session of the compositor Weston.
#pragma once

#include "support/ChildProcess.h"
#include "support/PrivateFolder.h"
#include "support/WaitFor.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace KivoTest {

/// Whether it is installed.
inline bool HasWeston() {
    return std::filesystem::exists("/usr/bin/weston");
}

/// A running session, which ends with the object.
class WestonSession {
public:
    explicit WestonSession(std::vector<std::string> arguments, Environment environment = WithoutDisplay()) {
        environment["XDG_RUNTIME_DIR"] = m_folder.Path();
        arguments.insert(arguments.end(), {"--socket=kivo", "--idle-time=0", "--log=" + LogPath()});
        m_weston = std::make_unique<ChildProcess>("weston", arguments, environment);
    }
    ~WestonSession() {
        m_weston->Terminate();
        m_weston->WaitForExit(); // it ends its own programs
    }

    bool IsThere() const {
        return WaitFor([this] { return std::filesystem::exists(m_folder.Path() + "/kivo"); });
    }

    /// The display of its Xwayland; empty where it has none.
    std::string X11Display() const {
        const std::string words = "xserver listening on display ";
        std::string display;
        WaitFor([&] {
            std::ifstream log(LogPath());
            for (std::string line; std::getline(log, line);)
                if (const auto at = line.find(words); at != std::string::npos)
                    display = line.substr(at + words.size());
            return !display.empty();
        });
        return display;
    }

    /// What the programs of the session see.
    Environment Programs() const {
        Environment environment = WithoutDisplay();
        environment["XDG_RUNTIME_DIR"] = m_folder.Path();
        environment["WAYLAND_DISPLAY"] = "kivo";
        environment["NO_AT_BRIDGE"] = "1";
        return environment;
    }

private:
    std::string LogPath() const { return m_folder.Path() + "/weston.log"; }

    PrivateFolder m_folder;
    std::unique_ptr<ChildProcess> m_weston;
};

} // namespace KivoTest
