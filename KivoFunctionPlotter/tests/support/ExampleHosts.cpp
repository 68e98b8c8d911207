#include "ExampleHosts.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace KivoTest {

using namespace KivoDrawingTools;

const std::vector<ExampleHost>& ExampleHosts() {
    static const std::vector<ExampleHost> hosts = {
        {"x11_host"},
        {"qt_host", true, false, {{"QT_SCALE_FACTOR", "2"}}},
        {"gtk_host", true, false, {{"GDK_SCALE", "2"}}},
        {"gtk_image_host", false, false, {{"GDK_SCALE", "2"}}, 192},
        {"wx_host", true, false, {{"GDK_SCALE", "2"}}},
        {"glfw_host"},
        {"sdl_host"},
        {"fltk_host", true, true},
    };
    return hosts;
}

std::vector<ExampleHost> HostsOnX11() {
    std::vector<ExampleHost> hosts;
    std::copy_if(ExampleHosts().begin(), ExampleHosts().end(), std::back_inserter(hosts),
                 [](const ExampleHost& host) { return host.name != "gtk_image_host"; });
    return hosts;
}

std::string PathOf(const ExampleHost& host) {
    return std::string(KIVO_EXAMPLES) + "/" + host.name;
}

bool IsBuilt(const ExampleHost& host) {
    return std::filesystem::exists(PathOf(host));
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
