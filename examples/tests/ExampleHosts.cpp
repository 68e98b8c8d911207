#include "ExampleHosts.h"

#include <cstdlib>
#include <filesystem>

namespace KivoTest {

using namespace KivoDrawingTools;

std::vector<ExampleHost> HostsOnX11() {
    return {
        {"x11_host"},
        {"qt_host", true, false, {{"QT_SCALE_FACTOR", "2"}}},
        {"gtk_host", true, false, {{"GDK_SCALE", "2"}}},
        {"wx_host", true, false, {{"GDK_SCALE", "2"}}},
        {"glfw_host"},
        {"sdl_host"},
        {"fltk_host", true, true},
    };
}

std::vector<ExampleHost> AllHosts() {
    std::vector<ExampleHost> hosts = HostsOnX11();
    hosts.push_back({"gtk_image_host", false, false, {{"GDK_SCALE", "2"}}, 192});
    hosts.push_back({"gtk4_image_host", false, false, {{"GDK_SCALE", "2"}}, 192});
    hosts.push_back({"win32_host", false, false, {}, 96, 1.0}); // its text is drawn by Wine
    return hosts;
}

std::vector<std::string> CommandOf(const ExampleHost& host) {
    std::vector<std::string> command{std::string(KIVO_EXAMPLES) + "/" + host.name};
    if (host.name == "win32_host") {
        const char* const program = std::getenv("KIVO_WIN32_HOST");
        command = {KIVO_WITH_WINE, program ? program : ""};
    }
    if (!std::filesystem::exists(command.back())) command.clear();
    return command;
}

std::unique_ptr<ChildProcess> StartHost(const ExampleHost& host, const Environment& environment) {
    std::vector<std::string> words = CommandOf(host);
    const std::string program = words.front();
    words.erase(words.begin());
    return std::make_unique<ChildProcess>(program, words, environment);
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
