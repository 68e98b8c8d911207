// The plot widget on a real screen: what it shows there, beside and below what else a program shows, driven
// by a real pointer.
#include "ShownPlot.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/X11TestWindow.h"

#include <QApplication>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QSignalSpy>
#include <QTabWidget>

#include <memory>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

// What the screen shows of a widget.
class Screen {
public:
    bool IsThere() const { return HasDisplay() && m_desktop.Ok(); }
    Desktop& Hand() { return m_desktop; }

    ScreenArea AreaOf(const QWidget& widget) const {
        const double density = widget.devicePixelRatioF();
        const QWidget& window = *widget.window();
        const ScreenArea outer = m_desktop.AreaOf(static_cast<xcb_window_t>(window.winId()));
        const QPoint place = widget.mapTo(&window, QPoint());
        const POINT size = ToPixels(widget.width(), widget.height(), density);
        return {outer.x + ToPixels(place.x(), density), outer.y + ToPixels(place.y(), density), size.x,
                size.y};
    }
    Image Of(const QWidget& widget) const { return m_desktop.Grab(AreaOf(widget)); }

    void MoveTo(const QWidget& widget, int x, int y) {
        const ScreenArea area = AreaOf(widget);
        m_desktop.MovePointer(area.x + x, area.y + y);
    }

private:
    Desktop m_desktop;
};

class PlotOnScreen : public ShownPlot {
protected:
    void SetUp() override {
        if (!screen.IsThere()) GTEST_SKIP() << "no display";
        screen.Hand().MovePointer(1270, 1010);
        ShownPlot::SetUp();
    }

    // What a plotter of its own draws in the present view, at the widget's size.
    Image Expected() {
        const double density = plot.devicePixelRatioF();
        const POINT size = ToPixels(plot.width(), plot.height(), density);
        BareHill bare(size.x, size.y, density);
        const SKivoView view = View();
        const bool isFirst = GetView(bare.plotter).rotation[0] == view.rotation[0];
        if (!isFirst) SetView(bare.plotter, view);
        return bare.Smooth();
    }

    bool ShowsExpected() {
        Image expected = Expected();
        return Comes([&] {
            if (plot.width() * plot.devicePixelRatioF() != expected.width) expected = Expected();
            return AreSame(screen.Of(plot), expected);
        });
    }

    // Without the pointer's own moves in between.
    void DragTo(PointerButton button, int x, int y) {
        screen.MoveTo(plot, 200, 150);
        QTest::qWait(20);
        screen.Hand().Button(button, true);
        screen.MoveTo(plot, (200 + x) / 2, (150 + y) / 2);
        screen.MoveTo(plot, x, y);
        screen.Hand().Button(button, false);
    }

    Screen screen;
};

// The plot is the test's, and goes after the windows that it is shown in.
class TakenBack {
public:
    explicit TakenBack(QWidget& widget) : m_widget(widget) {}
    ~TakenBack() { m_widget.setParent(nullptr); }
    TakenBack(const TakenBack&) = delete;
    TakenBack& operator=(const TakenBack&) = delete;

private:
    QWidget& m_widget;
};

class ColorWidget : public QOpenGLWidget {
public:
    int frames = 0;

protected:
    void paintGL() override {
        QOpenGLFunctions* const gl = context()->functions();
        gl->glClearColor(frames % 2 == 0 ? 1.0f : 0.0f, 0.0f, 1.0f, 1.0f);
        gl->glClear(GL_COLOR_BUFFER_BIT);
        ++frames;
    }
};

} // namespace

TEST_F(PlotOnScreen, ShowsWhatABarePlotterDraws) {
    EXPECT_TRUE(ShowsExpected());
    plot.resize(333, 251);
    EXPECT_TRUE(ShowsExpected());
}

// The same in processes of their own: Qt takes its scale from the start.
TEST(PlotOnDenseScreens, ShowsWhatABarePlotterDraws) {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    for (const char* const scale : {"1.5", "2"}) {
        ChildProcess child("/proc/self/exe", {"--gtest_filter=PlotOnScreen.ShowsWhat*:PlotWidget.Grabs*"},
                           {{"QT_SCALE_FACTOR", scale}});
        EXPECT_EQ(child.WaitForExit().value_or(-1), 0) << scale << child.Output();
        EXPECT_NE(child.Output().find("[  PASSED  ] 3 tests"), std::string::npos) << child.Output();
    }
}

TEST_F(PlotOnScreen, TurnsUnderARealPointer) {
    QSignalSpy changes(&plot, &KivoPlotWidget::viewChanged);
    const float before = Right();
    DragTo(leftButton, 240, 160);
    ASSERT_TRUE(Comes([&] { return Right() != before && changes.count() > 0; }));
    EXPECT_TRUE(Comes([&] { return !plot.view().IsFrameDue(); }));
    const double zoom = View().zoom;
    screen.Hand().Click(wheelUp);
    EXPECT_TRUE(Comes([&] { return View().zoom > zoom; }));
    EXPECT_TRUE(Comes([&] { return AreSame(screen.Of(plot), ImageOf(plot.picture())); }));
}

TEST_F(PlotOnScreen, ARealClickOpensTheMenuAndARealDragDoesNot) {
    const auto isOpen = [] { return QApplication::activePopupWidget() != nullptr; };
    const float before = Right();
    DragTo(rightButton, 240, 160);
    ASSERT_TRUE(Comes([&] { return Right() != before; }));
    QTest::qWait(50);
    EXPECT_FALSE(isOpen());
    screen.Hand().Click(rightButton);
    EXPECT_TRUE(Comes(isOpen));
    QApplication::activePopupWidget()->close();
}

TEST_F(PlotOnScreen, TakesKeysByClickAndTab) {
    screen.Hand().Focus(static_cast<xcb_window_t>(plot.winId()));
    ASSERT_TRUE(Comes([&] { return plot.hasFocus(); }));
    screen.Hand().Press('1');
    EXPECT_TRUE(Comes([&] { return plot.plotType() == KivoPlotWidget::PlotType::XY; }));
    EXPECT_EQ(plot.focusPolicy(), Qt::StrongFocus);
}

TEST_F(PlotOnScreen, KeepsViewAndDataWhereverItGoes) {
    QTest::mousePress(&plot, Qt::LeftButton, {}, {200, 150});
    QTest::mouseMove(&plot, {240, 170});
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, {240, 170});
    plot.view().Wheel(360, {200, 150});
    const SKivoView before = View();
    const auto isKept = [&](const char* where) {
        SCOPED_TRACE(where);
        plot.show();
        plot.window()->raise();
        EXPECT_TRUE(Comes([&] { return AreSame(screen.Of(plot), ImageOf(plot.picture())); }));
        EXPECT_NEAR(View().zoom, before.zoom, 1e-5);
        EXPECT_NEAR(View().rotation[0], before.rotation[0], 1e-6);
        EXPECT_NEAR(View().panX, before.panX, 1e-5);
    };
    QMainWindow window;
    QDockWidget dock;
    QTabWidget tabs;
    const TakenBack plotTakenBack(plot), dockTakenBack(dock), tabsTakenBack(tabs);
    window.addDockWidget(Qt::RightDockWidgetArea, &dock);
    window.setCentralWidget(&tabs);
    window.resize(700, 500);
    window.show();
    dock.setWidget(&plot);
    isKept("docked");
    dock.setFloating(true);
    isKept("floating");
    tabs.addTab(&plot, "Plot");
    tabs.addTab(new QWidget, "Other");
    isKept("in a tab");
    tabs.setCurrentIndex(1);
    QTest::qWait(20);
    EXPECT_FALSE(plot.isVisible());
    tabs.setCurrentIndex(0);
    isKept("shown again");
    plot.setParent(nullptr);
    isKept("alone");
}

TEST_F(PlotOnScreen, WhatLiesOverItIsWhole) {
    QLabel label(&plot);
    label.setAutoFillBackground(true);
    QPalette green;
    green.setColor(QPalette::Window, Qt::green);
    label.setPalette(green);
    label.setGeometry(120, 80, 90, 60);
    label.show();
    for (int i = 0; i < 5; ++i) {
        plot.view().PressKey(KivoViewKey::right);
        ASSERT_TRUE(Comes([&] { return !plot.view().IsFrameDue(); }));
    }
    EXPECT_TRUE(Comes([&] {
        const Image shown = screen.Of(label);
        return shown.Count([](const unsigned char* c) { return c[0] == 0 && c[1] == 255 && c[2] == 0; }) ==
               shown.width * shown.height;
    }));
}

TEST_F(PlotOnScreen, LeavesOpenGlBesideItRight) {
    QWidget window;
    auto* const layout = new QHBoxLayout(&window);
    auto* const color = new ColorWidget;
    layout->addWidget(color, 1);
    layout->addWidget(&plot, 1);
    const TakenBack takenBack(plot);
    window.resize(500, 200);
    window.show();
    plot.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    plot.setSmoothing(1);
    for (int i = 0; i < 100; ++i) {
        plot.view().PressKey(KivoViewKey::right);
        color->update();
        const int before = color->frames;
        ASSERT_TRUE(Comes([&] { return color->frames > before && !plot.view().IsFrameDue(); }));
    }
    const int red = color->frames % 2 == 1 ? 255 : 0; // of the last one
    EXPECT_TRUE(Comes([&] {
        const Image shown = screen.Of(*color);
        return shown.width > 100 && shown.Count([&](const unsigned char* c) {
            return c[0] == red && c[1] == 0 && c[2] == 255;
        }) == shown.width * shown.height;
    }));
    EXPECT_TRUE(Comes([&] { return AreSame(screen.Of(plot), ImageOf(plot.picture())); }));
}
