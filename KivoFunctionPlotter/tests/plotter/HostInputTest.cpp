// What hosts translate for the plotter, and the words that they get from it.
#include "KivoHost.h"
#include "KivoWindow.h"
#include "window_system/WindowSystem.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <thread>

using namespace KivoDrawingTools;

namespace {

TEST(HostTest, KeyStateHasABitForEachButtonAndKey) {
    EXPECT_EQ(KeyState(false, false, false, false, false), 0U);
    EXPECT_EQ(KeyState(true, false, false, false, false), 0x01U);
    EXPECT_EQ(KeyState(false, false, true, false, false), 0x02U);
    EXPECT_EQ(KeyState(false, false, false, true, false), 0x04U);
    EXPECT_EQ(KeyState(false, false, false, false, true), 0x08U);
    EXPECT_EQ(KeyState(false, true, false, false, false), 0x10U);
    EXPECT_EQ(KeyState(true, true, true, true, true), 0x1FU);
}

TEST(HostTest, PixelsAreTheNearest) {
    EXPECT_EQ(ToPixels(7, 1.0), 7);
    EXPECT_EQ(ToPixels(3.5, 2.0), 7);
    EXPECT_EQ(ToPixels(-3.5, 2.0), -7);
    // Of a scale that is no binary fraction each pixel comes back as itself.
    for (int pixel = -2000; pixel <= 2000; ++pixel)
        EXPECT_EQ(ToPixels(pixel / 1.15, 1.15), pixel);
    const POINT point = ToPixels(10.5, -4.0, 2.0);
    EXPECT_EQ(point.x, 21);
    EXPECT_EQ(point.y, -8);
}

TEST(HostTest, PixelsStayWithinTheirRange) {
    EXPECT_EQ(ToPixels(1e300, 2.0), 1000000000);
    EXPECT_EQ(ToPixels(-std::numeric_limits<double>::infinity(), 1.0), -1000000000);
    EXPECT_EQ(ToPixels(std::numeric_limits<double>::quiet_NaN(), 1.0), 0);
    EXPECT_EQ(ToPixels(std::numeric_limits<double>::infinity(), 0.0), 0);
}

TEST(HostTest, WheelStepsAreWholeAndNoTurnIsLost) {
    int remainder = 0;
    EXPECT_EQ(WheelSteps(remainder, 120), 1);
    EXPECT_EQ(WheelSteps(remainder, -120), -1);
    EXPECT_EQ(WheelSteps(remainder, 360), 3);
    EXPECT_EQ(WheelSteps(remainder, 0), 0);
    EXPECT_EQ(remainder, 0);
    for (const int delta : {40, 40, 39}) // a touchpad
        EXPECT_EQ(WheelSteps(remainder, delta), 0);
    EXPECT_EQ(WheelSteps(remainder, 1), 1);
    EXPECT_EQ(remainder, 0);
    EXPECT_EQ(WheelSteps(remainder, -200), -1);
    EXPECT_EQ(remainder, -80) << "with its sign";
    EXPECT_EQ(WheelSteps(remainder, 100), 0) << "back again";
    EXPECT_EQ(remainder, 20);
}

// Whatever comes in, steps and remainder add up to it.
TEST(HostTest, WheelStepsNeverOverflow) {
    using Limits = std::numeric_limits<int>;
    const int numbers[] = {Limits::min(), Limits::min() + 1, -121,         -119, 0, 119,
                           121,           Limits::max() - 1, Limits::max()};
    for (const int before : numbers)
        for (const int delta : numbers) {
            int remainder = before;
            const long long steps = WheelSteps(remainder, delta);
            EXPECT_LT(remainder, 120);
            EXPECT_GT(remainder, -120);
            EXPECT_EQ(120 * steps + remainder, static_cast<long long>(before) + delta);
        }
}

TEST(HostTest, AWindowTellsItsResolution) {
    for (const int dpi : {72, 144}) {
        const HWND window = CreateOffscreenWindow(16, 12, dpi);
        EXPECT_EQ(GetWindowDpi(window), dpi);
        EXPECT_EQ(DotsPerInch(GetDC(window), GetDC(window)), dpi);
        EXPECT_EQ(ReleaseWindow(window), 0);
    }
    EXPECT_EQ(GetWindowDpi(nullptr), 0);
}

// As in printf("%d %s", OnCreate(...), LastWindowError()), where either may come first.
TEST(HostTest, WordsTakenBeforeAFailureCanBeReadAfterIt) {
    std::thread([] {
        const char* const words = LastWindowError();
        EXPECT_STREQ(words, "");
        EXPECT_EQ(CreateOffscreenWindow(0, 1), nullptr);
        EXPECT_EQ(words, LastWindowError()) << "the same place";
        const std::string first = words;
        EXPECT_NE(first, "");
        int unknown = 0;
        EXPECT_EQ(ReleaseWindow(reinterpret_cast<HWND>(&unknown)), -1);
        EXPECT_EQ(words, LastWindowError());
        EXPECT_NE(first, words);
        const std::string second = words;
        EXPECT_EQ(ReleaseWindow(nullptr), 0);
        EXPECT_EQ(second, words) << "a success changes nothing";
    }).join();
}

} // namespace
