// The example hosts, and the plot that all of them should show.
#pragma once

#include "ChildProcess.h"
#include "Hill.h"
#include "KivoWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace KivoTest {

constexpr int plotWidth = 900;
constexpr int plotHeight = 600;

/// A program of examples/ that shows the plot in a window.
struct ExampleHost {
    std::string name;
    bool canHidePlot = false;    ///< by the key H, within its window
    bool hidingEndsPlot = false; ///< and makes it anew afterwards
    Environment twofold = {};    ///< makes it count in units of two pixels
    int twofoldDpi = 96;         ///< dots per inch that it then sizes text for
};

/// All hosts of this platform's own toolkits.
const std::vector<ExampleHost>& ExampleHosts();
/// Those that the plotter gives an X11 window.
std::vector<ExampleHost> HostsOnX11();
std::string PathOf(const ExampleHost& host);
bool IsBuilt(const ExampleHost& host);

/// The plot that all hosts should show, drawn off-screen by the library alone.
class ExpectedPlot {
public:
    explicit ExpectedPlot(int dpi = 96);
    ~ExpectedPlot();
    ExpectedPlot(const ExpectedPlot&) = delete;
    ExpectedPlot& operator=(const ExpectedPlot&) = delete;

    /// What a host does whose window goes and comes again.
    void CreateAgain();
    void Resize(int width, int height);

    KivoDrawingTools::CKivoFunctionPlotter plotter;

private:
    void Create();

    KivoDrawingTools::HWND m_window;
    std::vector<float> m_points = HillPoints();
};

} // namespace KivoTest
