// Long use: whole lives, mouse events and changes of data by the thousand. What is held stays the same.
//
// KIVO_LOAD_PERCENT in the environment sets the share of the rounds, for slow runs under a checker; 100
// without.
#include "support/Holdings.h"
#include "support/PublicOperations.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <string>

#include <unistd.h>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

int Share(int rounds) {
    const char* const percent = std::getenv("KIVO_LOAD_PERCENT");
    return std::max(10, percent ? rounds / 100 * std::atoi(percent) : rounds);
}

// The memory of the process that is in use, driver and font library included.
double ResidentMebibytes() {
    std::ifstream file("/proc/self/statm");
    double total = 0, resident = 0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

// Sanitizers keep freed memory for a while, so that the process grows whatever the plotter does.
constexpr bool isSanitized =
#if defined(__SANITIZE_ADDRESS__)
    true;
#else
    false;
#endif

// Ten times a tenth of the rounds. After each tenth, set back to where it began, the test holds what it held
// after the first.
void Repeat(int rounds, const std::function<void()>& round, const std::function<void()>& setBack) {
    const int tenth = std::max(1, Share(rounds) / 10);
    for (int i = 0; i < tenth; ++i)
        round();
    setBack();
    const Holdings first;
    const double residentFirst = ResidentMebibytes();
    for (int part = 1; part < 10 && !testing::Test::HasFailure(); ++part) {
        for (int i = 0; i < tenth; ++i)
            round();
        setBack();
        EXPECT_TRUE(AreEqual(Holdings(), first)) << "after " << (part + 1) * tenth << " rounds";
    }
    const double resident = ResidentMebibytes();
    std::cout << 10 * tenth << " rounds: " << first.blocks << " blocks throughout; resident MiB "
              << residentFirst << " after the first tenth, " << resident << " at the end\n";
    if (!isSanitized) {
        EXPECT_LT(resident, residentFirst + 4);
    }
}

// A small window, so that the rounds take their time in the plotter and not in filling pixels.
class Load : public testing::Test {
protected:
    static constexpr int width = 96;
    static constexpr int height = 72;

    Load() { WarmUp(); }

    int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }
    POINT AnyPoint() { return {Below(width + 20) - 10, Below(height + 20) - 10}; }

    // A grid of any size, place and height.
    void SetAnyData(CallProbe& plotter) {
        const auto columns = static_cast<unsigned int>(2 + Below(30));
        const auto rows = static_cast<unsigned int>(2 + Below(30));
        float* const points = NewHill(columns, rows);
        const float scale = static_cast<float>(1 + Below(1000)) / 100;
        const float offset = static_cast<float>(Below(1000));
        for (unsigned int i = 0; i < 3 * columns * rows; ++i)
            points[i] = offset + scale * points[i];
        EXPECT_EQ(plotter.SetData(points, columns, rows, 1, columns, 3), 0);
    }

    std::mt19937 random{2026};
    TestWindow window{WindowKind::offscreen, width, height};
};

// Presses and releases a button, moves with any button and keys, turns the wheel or tells a size.
void AnyMouseEvent(CallProbe& plotter, int kind, POINT point, int detail) {
    static constexpr unsigned int drags[] = {MK_RBUTTON, MK_RBUTTON | MK_SHIFT, MK_RBUTTON | MK_CONTROL, 0};
    if (kind == 0) plotter.OnRButtonDown(MK_RBUTTON, point);
    if (kind == 1) plotter.OnRButtonUp(0, point);
    if (kind == 2) plotter.OnLButtonDown(MK_LBUTTON, point);
    if (kind == 3) plotter.OnLButtonUp(0, point);
    if (kind == 4) plotter.OnMouseWheel(0, static_cast<short>(detail % 2 == 0 ? 120 : -120), point);
    if (kind == 5) plotter.Trace(detail % 2 == 0);
    if (kind > 5) plotter.OnMouseMove(drags[detail % 4], point);
}

} // namespace

TEST_F(Load, FiveHundredLives) {
    Repeat(
        500,
        [&] {
            CallProbe plotter;
            ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0);
            plotter.OnSize(0, width, height);
            SetAnyData(plotter);
            plotter.SetPlotTitle("Life");
            EXPECT_EQ(plotter.Renderscene(), 0);
            EXPECT_TRUE(IsOpenGlInOrder(plotter));
            EXPECT_EQ(plotter.OnDestroy(), 0);
        },
        [] {});
}

TEST_F(Load, OnePlotterCreatedFiveHundredTimes) {
    CallProbe plotter;
    Repeat(
        500,
        [&] {
            ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0);
            SetAnyData(plotter);
            EXPECT_EQ(plotter.Renderscene(), 0);
            EXPECT_EQ(plotter.OnDestroy(), 0);
        },
        [] {});
}

TEST_F(Load, AHundredThousandMouseEvents) {
    CallProbe plotter;
    ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0);
    const auto setBack = [&] {
        plotter.OnRButtonUp(0, {1, 1});
        plotter.Trace(false);
        plotter.SetData(NewHill(12, 10), 12, 10, 1, 12, 3);
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_TRUE(IsOpenGlInOrder(plotter));
    };
    setBack();
    Repeat(
        100000, [&] { AnyMouseEvent(plotter, Below(20), AnyPoint(), Below(8)); }, setBack);
}

TEST_F(Load, AThousandChangesOfData) {
    CallProbe plotter;
    ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0);
    float measured[] = {0, 0, 1, 1, 1, 0.5f};
    plotter.AddMeasurePoints(2, 3, measured, "Group");
    plotter.ShowXIsoContours(true);
    plotter.ShowYIsoContours(true);
    plotter.ShowZIsoContours(true);
    Repeat(
        1000,
        [&] {
            SetAnyData(plotter);
            plotter.AddCurveData(measured, 2, 3);
            EXPECT_EQ(plotter.Renderscene(), 0);
        },
        [&] {
            plotter.SetData(NewHill(12, 10), 12, 10, 1, 12, 3);
            EXPECT_EQ(plotter.Renderscene(), 0);
            EXPECT_TRUE(IsOpenGlInOrder(plotter));
        });
}
