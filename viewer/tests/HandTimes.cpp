// kivo-viewer-hand: how long the viewer takes from an event of the pointer to the picture on the screen. The
// real viewer on a display shows a surface of KIVO_HAND_POINTS points a side, 2000 by itself.
#include "support/X11TestWindow.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

class HandTimes : public ViewerWindow {
protected:
    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        const char* const points = std::getenv("KIVO_HAND_POINTS");
        const std::string range = std::string("-1:1:") + (points ? points : "2000");
        Start({"--size", "800x600", "--function", "sin(6*x)*cos(5*y)*exp(-x*x-y*y)", "--x", range, "--y",
               range});
        m_middle = {m_plotArea.x + plotWidth * 2 / 5, m_plotArea.y + plotHeight / 2};
        Rest();
    }

    // Until the viewer has measured how much it can draw, too.
    void Rest() {
        Settle();
        std::this_thread::sleep_for(milliseconds(1500));
        Settle();
    }

    // From an event to another picture in the middle of the plot, where something changes by each.
    double TimeOf(const std::function<void()>& event) {
        const ScreenArea middle = {m_middle.x - 40, m_middle.y - 20, 80, 40};
        const Image before = Grab(middle);
        desktop->Sync();
        const Clock::time_point begin = Clock::now();
        event();
        const bool hasChanged = WaitFor([&] {
            std::this_thread::sleep_for(milliseconds(2));
            return Grab(middle).rgba != before.rgba;
        });
        EXPECT_TRUE(hasChanged) << "no other picture";
        return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    }

    double TimeOfMove() {
        m_way += m_way < 0 || m_way > 100 ? -m_way : 3;
        return TimeOf([this] { desktop->MovePointer(m_middle.x + m_way, m_middle.y + m_way / 3); });
    }

    void Report(const char* what, std::vector<double> times) {
        std::sort(times.begin(), times.end());
        std::printf("| %s | %zu | %.0f | %.0f |\n", what, times.size(), times[times.size() / 2],
                    times.back());
        std::fflush(stdout);
    }

    struct {
        int x, y;
    } m_middle = {};
    int m_way = 0;
};

TEST_F(HandTimes, FromEventToPicture) {
    std::printf("| From | times | median [ms] | worst [ms] |\n|---|---|---|---|\n");
    std::vector<double> moves, grabs, wheel;
    desktop->MovePointer(m_middle.x, m_middle.y);
    desktop->Button(rightButton, true);
    for (int i = 0; i < 100; ++i)
        moves.push_back(TimeOfMove());
    desktop->Button(rightButton, false);
    Report("a move of a drag", moves);

    Rest();
    for (int i = 0; i < 10; ++i) {
        desktop->Button(rightButton, true);
        grabs.push_back(TimeOfMove());
        for (int more = 0; more < 5; ++more)
            TimeOfMove();
        desktop->Button(rightButton, false);
        std::this_thread::sleep_for(milliseconds(250)); // a hand lets go, goes back and grabs
    }
    Report("the first move of one of several grabs", grabs);

    Rest();
    for (int i = 0; i < 20; ++i) {
        wheel.push_back(TimeOf([&] { desktop->Click(i % 10 < 5 ? wheelUp : wheelDown); }));
        std::this_thread::sleep_for(milliseconds(150));
    }
    Report("a step of the wheel", wheel);
}

} // namespace
