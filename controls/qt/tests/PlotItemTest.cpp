// The plot item in scenes of Qt Quick.
#include "KivoPlotItem.h"
#include "ShownPlot.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/X11TestWindow.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QWheelEvent>

#include <malloc.h>

#include <filesystem>
#include <memory>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr int width = 320, height = 240;

class PlotItem : public testing::Test {
protected:
    PlotItem() { KivoPlotItem::registerType(); }

    // The properties of an item that fills a window.
    void Show(const QString& properties) {
        const QString text = "import QtQuick; import Kivo; Window { width: 320; height: 240; visible: true;"
                             "title: 'Quick'; property alias plot: plot; property color theme: '#203040';"
                             "KivoPlotItem { id: plot; anchors.fill: parent; focus: true;" +
                             properties + "} }";
        engine.loadData(text.toUtf8());
        window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
        ASSERT_NE(window, nullptr);
        plot = window->property("plot").value<KivoPlotItem*>();
        ASSERT_NE(plot, nullptr);
        QObject::connect(window, &QQuickWindow::frameSwapped, window, [this] { ++frames; });
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    }

    void ShowHill() {
        Show({});
        const std::vector<float> points = KivoSamples::HillPoints();
        ASSERT_TRUE(plot->setGrid(points.data(), KivoSamples::hillColumns, KivoSamples::hillRows));
    }

    Image Expected() {
        const double density = window->effectiveDevicePixelRatio();
        const POINT size = ToPixels(width, height, density);
        return BareHill(size.x, size.y, density).Smooth();
    }

    SKivoView View() { return GetView(plot->plotter()); }

    QQmlApplicationEngine engine;
    QQuickWindow* window = nullptr;
    KivoPlotItem* plot = nullptr;
    int frames = 0;
};

} // namespace

TEST_F(PlotItem, ShowsWhatABarePlotterDraws) {
    ShowHill();
    const Image expected = Expected();
    EXPECT_TRUE(AreSame(ImageOf(plot->picture()), expected));
    EXPECT_TRUE(Comes([&] { return AreSame(ImageOf(window->grabWindow()), expected); }));
    if (!HasDisplay()) return;
    const Desktop desktop;
    EXPECT_TRUE(
        Comes([&] { return AreSame(desktop.Grab(static_cast<xcb_window_t>(window->winId())), expected); }));
}

TEST(PlotItemOnDenseScreens, ShowsWhatABarePlotterDraws) {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    for (const char* const scale : {"1.5", "2"}) {
        ChildProcess child("/proc/self/exe", {"--gtest_filter=PlotItem.ShowsWhat*"},
                           {{"QT_SCALE_FACTOR", scale}});
        EXPECT_EQ(child.WaitForExit().value_or(-1), 0) << scale << child.Output();
        EXPECT_NE(child.Output().find("[  PASSED  ] 1 test"), std::string::npos) << child.Output();
    }
}

TEST_F(PlotItem, TakesPointsOfJavaScript) {
    Show("columns: 3; points: [0,0,1, 1,0,2, 2,0,1,  0,1,2, 1,1,'none', 2,1,1]; title: 'Of ' + columns;"
         "inkColor: 'white'; groundColor: Window.window.theme");
    EXPECT_STREQ(plot->plotter().GetPlotTitle(), "Of 3");
    const float points[] = {0, 0, 1, 1, 0, 2, 2, 0, 1, 0, 1, 2, 1, 1, std::nanf(""), 2, 1, 1};
    const Image shown = ImageOf(plot->picture());
    // But for the light, which is that of the first data.
    const auto isShown = [&] { return Compare(ImageOf(plot->picture()), shown).mean < 0.2; };
    ASSERT_TRUE(plot->setGrid(points, 3, 2));
    EXPECT_TRUE(isShown());
    plot->setColumns(4); // no whole rows
    EXPECT_TRUE(isShown());
    plot->setProperty("columns", 2);
    EXPECT_FALSE(isShown());
    EXPECT_STREQ(plot->plotter().GetPlotTitle(), "Of 2") << "it is bound";
}

TEST_F(PlotItem, ColorsAreBound) {
    Show("inkColor: 'white'; groundColor: Window.window.theme");
    EXPECT_EQ(plot->picture().pixelColor(0, 0), QColor(0x20, 0x30, 0x40));
    window->setProperty("theme", QColor(Qt::black));
    EXPECT_EQ(plot->picture().pixelColor(0, 0), QColor(Qt::black));
    const QColor own(255, 253, 233);
    plot->setGroundColor(QColor());
    EXPECT_EQ(plot->picture().pixelColor(0, 0), own);
}

TEST_F(PlotItem, TellsWhatChanges) {
    ShowHill();
    const char* const names[] = {"tracing", "upright", "smoothing", "title"};
    const QVariant values[] = {true, true, 3, "Load"};
    for (int i = 0; i < 4; ++i) {
        const QByteArray signal = QByteArray("2") + names[i] + "Changed()";
        QSignalSpy changes(plot, signal.constData());
        EXPECT_TRUE(plot->setProperty(names[i], values[i]));
        EXPECT_TRUE(plot->setProperty(names[i], values[i]));
        EXPECT_EQ(changes.count(), 1) << names[i];
        EXPECT_EQ(plot->property(names[i]), values[i]);
    }
    QSignalSpy types(plot, &KivoPlotItem::plotTypeChanged), views(plot, &KivoPlotItem::viewChanged);
    QTest::mouseClick(window, Qt::LeftButton, {}, {180, 120}); // takes the keys
    QTest::keyClick(window, Qt::Key_2);
    EXPECT_TRUE(Comes([&] { return types.count() == 1 && views.count() == 1; }));
    EXPECT_EQ(plot->plotType(), KivoPlotItem::PlotType::YZ);
}

TEST_F(PlotItem, TurnsZoomsAndTellsOfClicks) {
    ShowHill();
    QSignalSpy menus(plot, &KivoPlotItem::menuRequested);
    const float before = static_cast<float>(View().rotation[0]);
    QTest::mousePress(window, Qt::RightButton, {}, {180, 120});
    QTest::mouseMove(window, {220, 130});
    QTest::mouseRelease(window, Qt::RightButton, {}, {220, 130});
    EXPECT_NE(static_cast<float>(View().rotation[0]), before);
    EXPECT_EQ(menus.count(), 0);
    QTest::mouseClick(window, Qt::RightButton, {}, {180, 120});
    EXPECT_EQ(menus.count(), 1);
    QWheelEvent wheel(QPointF(180, 120), window->mapToGlobal(QPointF(180, 120)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QGuiApplication::sendEvent(window, &wheel);
    EXPECT_NEAR(View().zoom, 1.04, 1e-4);
    QTest::keyClick(window, Qt::Key_Home);
    EXPECT_NEAR(View().zoom, 1.0, 1e-6);
}

TEST_F(PlotItem, FingersTurnAndPinch) {
    ShowHill();
    QPointingDevice* const screen = QTest::createTouchDevice();
    const SKivoView before = View();
    QTest::touchEvent(window, screen).press(0, {180, 120}, window);
    QTest::touchEvent(window, screen).move(0, {220, 120}, window);
    EXPECT_TRUE(Comes([&] { return View().rotation[0] != before.rotation[0]; })); // with the next frame
    QTest::touchEvent(window, screen).move(0, {220, 120}, window).press(1, {260, 120}, window);
    QTest::touchEvent(window, screen).move(0, {200, 120}, window).move(1, {280, 120}, window);
    EXPECT_TRUE(Comes([&] { return std::abs(View().zoom - 2.0) < 1e-3; }));
    QTest::touchEvent(window, screen).release(0, {200, 120}, window).release(1, {280, 120}, window);
}

TEST_F(PlotItem, AFingerThatStaysAsksForAMenu) {
    ShowHill();
    QPointingDevice* const screen = QTest::createTouchDevice();
    QSignalSpy asked(plot, &KivoPlotItem::menuRequested);
    QTest::touchEvent(window, screen).press(0, {180, 120}, window);
    ASSERT_TRUE(Comes([&] { return asked.count() == 1; }));
    EXPECT_EQ(asked.at(0).at(0).toPointF(), QPointF(180, 120));
    QTest::touchEvent(window, screen).release(0, {180, 120}, window);
}

TEST_F(PlotItem, TracesUnderThePointer) {
    ShowHill();
    plot->setTracing(true);
    QSignalSpy traced(plot, &KivoPlotItem::pointTraced);
    QTest::mouseMove(window, {100, 100});
    QTest::mouseMove(window, {180, 120});
    EXPECT_TRUE(Comes([&] { return traced.count() > 0; }));
}

TEST_F(PlotItem, AThousandMovesCostAFrame) {
    ShowHill();
    ASSERT_TRUE(Comes([&] { return frames > 0 && AreSame(ImageOf(window->grabWindow()), Expected()); }));
    QTest::mousePress(window, Qt::LeftButton, {}, {180, 120});
    QCoreApplication::processEvents();
    const int before = frames;
    for (int i = 0; i < 1000; ++i) {
        QMouseEvent move(QEvent::MouseMove, QPointF(100 + i % 90, 120), window->mapToGlobal(QPointF()),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QGuiApplication::sendEvent(window, &move);
    }
    EXPECT_TRUE(Comes([&] { return frames > before; }));
    EXPECT_LE(frames, before + 2) << "the frame of the press may come later";
    QTest::mouseRelease(window, Qt::LeftButton, {}, {180, 120});
}

TEST(PlotItems, AHundredLeaveNothing) {
    KivoPlotItem::registerType();
    QQuickWindow window;
    window.resize(200, 150);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const std::vector<float> points = KivoSamples::HillPoints();
    const auto make = [&](int count) {
        for (int i = 0; i < count; ++i) {
            KivoPlotItem plot(window.contentItem());
            plot.setSize({120, 90});
            plot.setSmoothing(1);
            plot.setGrid(points.data(), KivoSamples::hillColumns, KivoSamples::hillRows);
            if (i % 10 == 0) window.grabWindow();
            plot.picture();
        }
    };
    const auto entries = [](const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    };
    make(20);
    const auto files = entries("/proc/self/fd"), threads = entries("/proc/self/task");
    const std::size_t bytes = mallinfo2().uordblks;
    make(100);
    EXPECT_LE(entries("/proc/self/fd"), files);
    EXPECT_LE(entries("/proc/self/task"), threads);
    EXPECT_LT(mallinfo2().uordblks, bytes + 100 * 1000) << "a kilobyte for each";
}

// Run by the next test, in a process without OpenGL.
TEST(PlotItemWithoutOpenGl, DISABLED_SaysSo) {
    QQuickWindow window;
    window.resize(width, height);
    KivoPlotItem plot(window.contentItem());
    plot.setSize({width, height});
    QSignalSpy failures(&plot, &KivoPlotItem::failed);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ASSERT_TRUE(Comes([&] { return failures.count() > 0; }));
    EXPECT_TRUE(plot.errorString().contains("install an OpenGL driver"));
    const Image shown = ImageOf(window.grabWindow());
    const QColor ground = QGuiApplication::palette().color(QPalette::Window);
    const auto isGround = [&](const unsigned char* rgb) { return rgb[0] == ground.red(); };
    EXPECT_GT(shown.Count(isGround), width * height / 2);
    EXPECT_GT(width * height - shown.Count(isGround), 200) << "words";
}

TEST(PlotItemWithoutOpenGl, SaysSo) {
    ChildProcess child("/proc/self/exe",
                       {"--gtest_also_run_disabled_tests", "--gtest_filter=PlotItemWithoutOpenGl.DISABLED_*"},
                       {{"__EGL_VENDOR_LIBRARY_FILENAMES", "/nonexistent"},
                        {"QT_QPA_PLATFORM", "offscreen"},
                        {"QT_QUICK_BACKEND", "software"}});
    EXPECT_EQ(child.WaitForExit().value_or(-1), 0) << child.Output();
    EXPECT_NE(child.Output().find("1 test from"), std::string::npos) << child.Output();
}
