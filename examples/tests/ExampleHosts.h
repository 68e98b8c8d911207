// The example hosts, and the plot that all of them should show.
#pragma once

#include "Hill.h"
#include "KivoWindow.h"
#include "support/ChildProcess.h"
#include "support/PrivateFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
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
    double meanLimit = 0.0;      ///< of the differences from the expected picture, of 255
    bool reduces = true;         ///< draws fewer points while the plot moves
    bool canLoseSteps = false;   ///< of the wheel: several come in one event, though not on X11
};

/// How GoogleTest names it.
inline void PrintTo(const ExampleHost& host, std::ostream* out) {
    *out << host.name;
}

/// The hosts of toolkits that use X11 windows.
std::vector<ExampleHost> HostsOnX11();
/// Those, the ones that paint the plotter's picture themselves, and the Windows one under Wine.
std::vector<ExampleHost> AllHosts();
/// Program and arguments; empty where it is not built. The Windows host is the file that KIVO_WIN32_HOST
/// names.
std::vector<std::string> CommandOf(const ExampleHost& host);

/// What a host has of its own, made before it and removed after it.
struct HostHome {
    PrivateFolder m_home;
};

/// A running host with a home of its own.
class HostProcess : private HostHome, public ChildProcess {
public:
    HostProcess(const ExampleHost& host, const Environment& environment);

private:
    HostProcess(const std::vector<std::string>& command, const Environment& environment);
    Environment InHome(Environment environment) const;
};

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
