// kivo-control-times: how long it takes from an event of the pointer to the picture on the screen, in the
// control for Qt and in a native window, and how much memory a plot takes in each. What they show is the same
// while it moves: at most 150 points a side.
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Image;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

struct Setting {
    int points, width, height;
};

class TimedHost {
public:
    TimedHost(const std::string& kind, const Setting& setting, int count = 1)
        : m_process(KIVO_TIMED_HOST, {kind, std::to_string(setting.points), std::to_string(setting.width),
                                      std::to_string(setting.height), std::to_string(count)}) {
        xcb_window_t window = XCB_NONE;
        EXPECT_TRUE(WaitFor([&] { return (window = m_desktop.FindWindow("kivo-timed-host")) != XCB_NONE; }));
        m_area = m_desktop.AreaOf(window);
        m_middle = {m_area.x + m_area.width * 3 / 5 - 40, m_area.y + m_area.height / 2 - 20, 80, 40};
        Settle();
    }

    double TimeOfMove() {
        m_way = m_way > 100 ? 0 : m_way + 3;
        const Image before = m_desktop.Grab(m_middle);
        m_desktop.Sync();
        const Clock::time_point begin = Clock::now();
        m_desktop.MovePointer(m_middle.x + m_way, m_middle.y + m_way / 3);
        bool hasChanged = false;
        while (!hasChanged && Clock::now() - begin < milliseconds(3000)) {
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            hasChanged = m_desktop.Grab(m_middle).rgba != before.rgba;
        }
        EXPECT_TRUE(hasChanged) << "no other picture";
        const double time = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
        std::this_thread::sleep_for(milliseconds(20)); // what follows the picture
        return time;
    }

    std::vector<double> TimesOfADrag(int moves) {
        std::vector<double> times;
        m_desktop.MovePointer(m_middle.x, m_middle.y);
        m_desktop.Button(rightButton, true);
        TimeOfMove(); // makes the copy with less detail
        for (int i = 0; i < moves; ++i)
            times.push_back(TimeOfMove());
        m_desktop.Button(rightButton, false);
        return times;
    }

    // In megabytes.
    double Memory() const {
        std::ifstream status("/proc/" + std::to_string(m_process.Id()) + "/status");
        for (std::string line; std::getline(status, line);)
            if (line.rfind("VmRSS:", 0) == 0) return std::stod(line.substr(6)) / 1024.0;
        return 0.0;
    }

private:
    void Settle() {
        WaitFor([&] { return m_process.IsIdle() && m_desktop.IsIdle(); });
        std::this_thread::sleep_for(milliseconds(1200));
        WaitFor([&] { return m_process.IsIdle() && m_desktop.IsIdle(); });
    }

    Desktop m_desktop;
    ChildProcess m_process;
    ScreenArea m_area = {};
    ScreenArea m_middle = {};
    int m_way = 0;
};

double Median(std::vector<double> numbers) {
    std::sort(numbers.begin(), numbers.end());
    return numbers[numbers.size() / 2];
}

TEST(ControlTimes, FromEventToPicture) {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    std::printf("| Points | Window | native [ms] | control [ms] | ratio |\n|---|---|---|---|---|\n");
    for (const Setting& setting :
         {Setting{50, 800, 600}, Setting{400, 800, 600}, Setting{1000, 800, 600}, Setting{50, 1200, 1000},
          Setting{400, 1200, 1000}, Setting{1000, 1200, 1000}}) {
        std::vector<double> native, control;
        for (int round = 0; round < 3; ++round) { // in turns
            for (const double time : TimedHost("native", setting).TimesOfADrag(25))
                native.push_back(time);
            for (const double time : TimedHost("control", setting).TimesOfADrag(25))
                control.push_back(time);
        }
        const double a = Median(native), b = Median(control);
        std::printf("| %d | %d x %d | %.1f | %.1f | %.2f |\n", setting.points, setting.width, setting.height,
                    a, b, b / a);
        std::fflush(stdout);
    }
}

TEST(ControlTimes, MemoryOfAPlot) {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    const Setting setting = {50, 800, 900};
    for (const char* const kind : {"native", "control"}) {
        const double one = TimedHost(kind, setting).Memory();
        const double four = TimedHost(kind, setting, 4).Memory();
        std::printf("%s: a further plot of 800 x 225 takes %.1f MB\n", kind, (four - one) / 3.0);
    }
}

} // namespace
