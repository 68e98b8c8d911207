// The controls on screens of other densities than the one that they were shown on first. Qt has such screens
// off-screen, as a file describes them, so that these tests run in a process of their own.
#include "KivoStyle.h"
#include "ShownPlot.h"
#include "support/ChildProcess.h"
#include "support/PrivateFolder.h"

#if defined(KIVO_HAS_QUICK)
#include "KivoPlotItem.h"

#include <QQuickWindow>
#endif

#include <QBackingStore>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <fstream>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr std::size_t screenCount = 3;
constexpr char screens[] = R"({"screens": [
    {"name": "usual", "x": 0, "y": 0, "width": 1000, "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96},
    {"name": "dense", "x": 1000, "y": 0, "width": 2000, "height": 1600, "logicalDpi": 192,
     "logicalBaseDpi": 96},
    {"name": "between", "x": 3000, "y": 0, "width": 1500, "height": 1200, "logicalDpi": 144,
     "logicalBaseDpi": 96}]})";
constexpr double tour[] = {1.0, 2.0, 1.5, 2.0, 1.0}; // from screen to screen

bool AreThere() {
    return QGuiApplication::screens().size() == screenCount;
}

void MoveTo(QWindow& window, double density) {
    const QList<QScreen*> all = QGuiApplication::screens();
    const auto isMeant = [&](const QScreen* screen) { return screen->devicePixelRatio() == density; };
    QScreen* const screen = *std::find_if(all.begin(), all.end(), isMeant);
    window.setPosition(screen->geometry().topLeft() + QPoint(50, 40));
    EXPECT_TRUE(Comes([&] { return window.screen() == screen; }));
}

Image Bare(int width, int height, double density, const SKivoView& view) {
    const POINT size = ToPixels(width, height, density);
    BareHill bare(size.x, size.y, density);
    SetView(bare.plotter, view);
    return bare.Smooth();
}

// What Qt has painted for the screen: all pixels of the window.
QImage Painted(const QWidget& window) {
    const auto* const image = dynamic_cast<const QImage*>(window.backingStore()->paintDevice());
    return image ? *image : QImage();
}

void ExpectSame(const SKivoView& now, const SKivoView& before) {
    EXPECT_NEAR(now.zoom, before.zoom, 1e-5);
    EXPECT_NEAR(now.panX, before.panX, 1e-5);
    EXPECT_NEAR(now.rotation[0], before.rotation[0], 1e-6);
}

} // namespace

class PlotBetweenScreens : public ShownPlot {
protected:
    void SetUp() override {
        if (!AreThere()) GTEST_SKIP() << "runs in PlotsBetweenScreens";
        ShownPlot::SetUp();
    }
};

TEST_F(PlotBetweenScreens, DISABLED_IsDrawnAtTheDensityOfEach) {
    plot.view().PressKey(KivoViewKey::right);
    plot.view().Wheel(240, {100, 90});
    const SKivoView before = View();
    for (const double density : tour) {
        MoveTo(*plot.windowHandle(), density);
        const Image expected = Bare(width, height, density, View());
        EXPECT_TRUE(Comes([&] { return AreSame(ImageOf(Painted(plot)), expected); })) << density;
        EXPECT_EQ(GetStyle(plot.plotter()).pixelScale, static_cast<float>(density));
        ExpectSame(View(), before);
    }
}

TEST_F(PlotBetweenScreens, DISABLED_IsTurnedAsFarOnEach) {
    const auto turn = [this] {
        plot.view().PressKey(KivoViewKey::home);
        QTest::mousePress(&plot, Qt::LeftButton, {}, {200, 150});
        QTest::mouseMove(&plot, {240, 150});
        QTest::mouseRelease(&plot, Qt::LeftButton, {}, {240, 150});
        return Right();
    };
    MoveTo(*plot.windowHandle(), 1.0);
    ASSERT_TRUE(Comes([&] { return GetStyle(plot.plotter()).pixelScale == 1.0f; }));
    const float usual = turn();
    MoveTo(*plot.windowHandle(), 2.0);
    ASSERT_TRUE(Comes([&] { return GetStyle(plot.plotter()).pixelScale == 2.0f; }));
    EXPECT_NEAR(turn(), usual, 1e-3);
}

#if defined(KIVO_HAS_QUICK)
TEST(ItemBetweenScreens, DISABLED_IsDrawnAtTheDensityOfEach) {
    if (!AreThere()) GTEST_SKIP() << "runs in PlotsBetweenScreens";
    constexpr int width = 320, height = 240;
    QQuickWindow window;
    window.resize(width, height);
    KivoPlotItem item(window.contentItem());
    item.setSize(QSizeF(width, height));
    const std::vector<float> points = KivoSamples::HillPoints();
    ASSERT_TRUE(item.setGrid(points.data(), KivoSamples::hillColumns, KivoSamples::hillRows));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    SetViewAngles(item.plotter(), 70, 20);
    item.refresh();
    const SKivoView before = GetView(item.plotter());
    for (const double density : tour) {
        MoveTo(window, density);
        const Image expected = Bare(width, height, density, GetView(item.plotter()));
        EXPECT_TRUE(Comes([&] { return AreSame(ImageOf(window.grabWindow()), expected); })) << density;
        ExpectSame(GetView(item.plotter()), before);
    }
}
#endif

TEST(PlotsBetweenScreens, AreDrawnAtTheDensityOfEach) {
    const PrivateFolder folder;
    const std::string file = folder.Path() + "/screens.json";
    std::ofstream(file) << screens;
    ChildProcess child(
        "/proc/self/exe", {"--gtest_also_run_disabled_tests", "--gtest_filter=*BetweenScreens.DISABLED_*"},
        {{"QT_QPA_PLATFORM", "offscreen:configfile=" + file}, {"QT_QUICK_BACKEND", "software"}});
    EXPECT_EQ(child.WaitForExit().value_or(-1), 0) << child.Output() << child.Errors();
#if defined(KIVO_HAS_QUICK)
    const char* const passed = "[  PASSED  ] 3 tests";
#else
    const char* const passed = "[  PASSED  ] 2 tests";
#endif
    EXPECT_NE(child.Output().find(passed), std::string::npos) << child.Output();
}
