#include "ExampleHosts.h"

#include <cstdlib>
#include <filesystem>

namespace KivoTest {

using namespace KivoDrawingTools;

std::vector<ExampleHost> HostsOnX11() {
    return {
        {"x11_host"},
        {"qt_native_host", true, false, {{"QT_SCALE_FACTOR", "2"}}},
        {"gtk_host", true, false, {{"GDK_SCALE", "2"}}},
        {"wx_native_host", true, false, {{"GDK_SCALE", "2"}}},
        {"glfw_host", false, false, {}, 96, 0.0, true, true},
        {"sdl_host", false, false, {}, 96, 0.0, true, true},
        {"fltk_host", true, true, {}, 96, 0.0, true, true},
    };
}

std::vector<ExampleHost> AllHosts() {
    std::vector<ExampleHost> hosts = HostsOnX11();
    hosts.push_back({"gtk_image_host", false, false, {{"GDK_SCALE", "2"}}, 192, 0.0, false});
    hosts.push_back({"gtk4_image_host", false, false, {{"GDK_SCALE", "2"}}, 192, 0.0, false});
    hosts.push_back({"win32_native_host", false, false, {}, 96, 1.0}); // its text is drawn by Wine
    return hosts;
}

std::vector<std::string> CommandOf(const ExampleHost& host) {
    std::vector<std::string> command{std::string(KIVO_EXAMPLES) + "/" + host.name};
    if (host.name == "win32_native_host") {
        const char* const program = std::getenv("KIVO_WIN32_HOST");
        command = {KIVO_WITH_WINE, program ? program : ""};
    }
    if (!std::filesystem::exists(command.back())) command.clear();
    return command;
}

HostProcess::HostProcess(const ExampleHost& host, const Environment& environment)
    : HostProcess(CommandOf(host), environment) {}

HostProcess::HostProcess(const std::vector<std::string>& command, const Environment& environment)
    : ChildProcess(command.front(), {command.begin() + 1, command.end()}, InHome(environment)) {}

Environment HostProcess::InHome(Environment environment) const {
    environment["HOME"] = m_home.Path();
    environment.insert({"XDG_RUNTIME_DIR", m_home.Path()}); // a session's own counts more
    for (const char* const name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        environment[name] = std::nullopt; // all are in the home then
    return environment;
}

ExpectedPlot::ExpectedPlot(int dpi) : m_window(CreateOffscreenWindow(plotWidth, plotHeight, dpi)) {
    Create();
}

ExpectedPlot::~ExpectedPlot() {
    plotter.OnDestroy();
    ReleaseWindow(m_window);
}

void ExpectedPlot::Create() {
    EXPECT_EQ(plotter.OnCreate(m_window, plotWidth, plotHeight, false), 0) << LastWindowError();
    plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
}

void ExpectedPlot::CreateAgain() {
    plotter.OnDestroy();
    Create();
}

void ExpectedPlot::Resize(int width, int height) {
    ResizeOffscreenWindow(m_window, width, height);
    plotter.OnSize(0, width, height);
}

} // namespace KivoTest
