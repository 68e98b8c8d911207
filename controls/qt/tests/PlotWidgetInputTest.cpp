// The plot widget and the hand: what Qt reports of mouse, wheel, keys, fingers and touchpads.
#include "ShownPlot.h"

#include <QApplication>
#include <QMenu>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QStyleHints>
#include <QWheelEvent>

#include <cmath>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr QPoint start{220, 150};

class PlotWidgetInput : public ShownPlot {
protected:
    void Drag(Qt::MouseButton button, QPoint by, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(&plot, button, keys, start);
        Move(button, start + by, keys);
        QTest::mouseRelease(&plot, button, keys, start + by);
    }

    void Move(Qt::MouseButtons buttons, QPoint place, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent move(QEvent::MouseMove, place, plot.mapToGlobal(place), Qt::NoButton, buttons, keys);
        QApplication::sendEvent(&plot, &move);
    }

    bool Turn(QPoint pixels, QPoint angle) {
        QWheelEvent wheel(start, plot.mapToGlobal(start), pixels, angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&plot, &wheel);
        return wheel.isAccepted();
    }

    bool Press(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
        QKeyEvent press(QEvent::KeyPress, key, keys);
        QApplication::sendEvent(&plot, &press);
        return press.isAccepted();
    }
};

bool AreNear(const SKivoView& a, const SKivoView& b) {
    double most = std::abs(a.zoom - b.zoom) + std::abs(a.panX - b.panX) + std::abs(a.panY - b.panY);
    for (int i = 0; i < 9; ++i)
        most = std::max(most, std::abs(a.rotation[i] - b.rotation[i]));
    return most < 1e-5;
}

} // namespace

TEST_F(PlotWidgetInput, EveryButtonDoesItsOwn) {
    const double density = plot.devicePixelRatioF();
    const POINT size = ToPixels(width, height, density);
    BareHill bare(size.x, size.y, density);
    const POINT from = ToPixels(start.x(), start.y(), density);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        Drag(button, {40, 12});
        bare.plotter.Rotate(from, ToPixels(start.x() + 40, start.y() + 12, density));
        EXPECT_TRUE(AreNear(View(), GetView(bare.plotter)));
    }
    Drag(Qt::MiddleButton, {30, 20});
    ShiftView(bare.plotter, from, ToPixels(start.x() + 30, start.y() + 20, density));
    EXPECT_TRUE(AreNear(View(), GetView(bare.plotter)));
    Drag(Qt::LeftButton, {-30, -20}, Qt::ShiftModifier);
    EXPECT_NEAR(View().panX, 0.0, 1e-5);
    Drag(Qt::LeftButton, {0, 40}, Qt::ControlModifier);
    EXPECT_GT(View().zoom, 1.05);
}

TEST_F(PlotWidgetInput, AThousandMovesCostAFrame) {
    QTest::mousePress(&plot, Qt::LeftButton, {}, start);
    const int before = plot.frames;
    for (int i = 1; i <= 1000; ++i)
        Move(Qt::LeftButton, start + QPoint(i % 70, i % 30));
    EXPECT_EQ(plot.frames, before);
    ASSERT_TRUE(Comes([&] { return !plot.view().IsFrameDue(); }));
    EXPECT_EQ(plot.frames, before + 1);
}

TEST_F(PlotWidgetInput, ADragWhoseReleaseWentElsewhereIsOver) {
    QTest::mousePress(&plot, Qt::LeftButton, {}, start);
    Move(Qt::LeftButton, start + QPoint(10, 0));
    const float turned = Right();
    Move(Qt::NoButton, start + QPoint(60, 0));
    Move(Qt::NoButton, start + QPoint(90, 0));
    EXPECT_EQ(Right(), turned);
    QTest::mousePress(&plot, Qt::LeftButton, {}, start);
    plot.hide();
    plot.show();
    Move(Qt::LeftButton, start + QPoint(60, 0));
    EXPECT_EQ(Right(), turned);
}

TEST_F(PlotWidgetInput, WheelsZoomInStepsAndPixelsInProportion) {
    EXPECT_TRUE(Turn({}, {0, 60}));
    EXPECT_NEAR(View().zoom, 1.0, 1e-6);
    EXPECT_TRUE(Turn({}, {0, 60}));
    EXPECT_NEAR(View().zoom, 1.04, 1e-4);
    EXPECT_TRUE(Turn({0, -5}, {0, -60}));
    EXPECT_NEAR(View().zoom, 1.04 / std::sqrt(1.04), 1e-4);
    EXPECT_FALSE(Turn({7, 0}, {84, 0})) << "sideways is the parent's";
}

TEST_F(PlotWidgetInput, KeysTurnZoomAndChoose) {
    const float before = Right();
    EXPECT_TRUE(Press(Qt::Key_Right));
    EXPECT_NE(Right(), before);
    EXPECT_TRUE(Press(Qt::Key_Plus, Qt::ShiftModifier));
    EXPECT_NEAR(View().zoom, 1.1, 1e-4);
    EXPECT_TRUE(Press(Qt::Key_Minus));
    EXPECT_TRUE(Press(Qt::Key_Up, Qt::ShiftModifier));
    EXPECT_GT(View().panY, 0.01);
    EXPECT_TRUE(Press(Qt::Key_Home));
    EXPECT_EQ(View().panY, 0.0);
    const Qt::Key keys[] = {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_0};
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(Press(keys[i]));
        EXPECT_EQ(plot.plotter().GetCurrentPlotType(), (i + 1) % 4);
    }
}

TEST_F(PlotWidgetInput, LeavesOtherInputToTheHost) {
    const SKivoView before = View();
    EXPECT_FALSE(Press(Qt::Key_A));
    EXPECT_FALSE(Press(Qt::Key_1, Qt::ControlModifier));
    EXPECT_FALSE(Press(Qt::Key_Left, Qt::AltModifier));
    QMouseEvent back(QEvent::MouseButtonPress, start, plot.mapToGlobal(start), Qt::BackButton, Qt::BackButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&plot, &back);
    EXPECT_FALSE(back.isAccepted());
    EXPECT_FALSE(plot.acceptDrops());
    EXPECT_TRUE(plot.toolTip().isEmpty());
    EXPECT_TRUE(AreNear(View(), before));
}

TEST_F(PlotWidgetInput, FingersTurnShiftAndPinch) {
    QPointingDevice* const screen = QTest::createTouchDevice();
    const float before = Right();
    QTest::touchEvent(&plot, screen).press(0, start, &plot);
    QTest::touchEvent(&plot, screen).move(0, start + QPoint(40, 0), &plot);
    EXPECT_NE(Right(), before);
    const SKivoView turned = View();
    const QPoint first = start + QPoint(40, 0);
    QTest::touchEvent(&plot, screen).move(0, first, &plot).press(1, first + QPoint(50, 0), &plot);
    EXPECT_TRUE(AreNear(View(), turned));
    QTest::touchEvent(&plot, screen)
        .move(0, first - QPoint(25, 0), &plot)
        .move(1, first + QPoint(75, 0), &plot);
    EXPECT_NEAR(View().zoom, 2.0, 1e-3);
    const SKivoView pinched = View();
    EXPECT_NEAR(pinched.rotation[0], turned.rotation[0], 1e-6);
    QTest::touchEvent(&plot, screen)
        .move(0, first - QPoint(5, 0), &plot)
        .move(1, first + QPoint(95, 0), &plot);
    EXPECT_NEAR(View().zoom, 2.0, 1e-3);
    EXPECT_GT(View().panX, pinched.panX);
    QTest::touchEvent(&plot, screen).release(0, first, &plot).release(1, first, &plot);
    const SKivoView last = View();
    Move(Qt::NoButton, start + QPoint(80, 0));
    EXPECT_TRUE(AreNear(View(), last));
}

TEST_F(PlotWidgetInput, AFingerThatStaysOpensTheMenu) {
    QPointingDevice* const screen = QTest::createTouchDevice();
    const auto menu = [&] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    const int interval = QGuiApplication::styleHints()->mousePressAndHoldInterval();
    QTest::touchEvent(&plot, screen).press(0, start, &plot);
    QTest::touchEvent(&plot, screen).move(0, start + QPoint(40, 0), &plot);
    QTest::qWait(interval + 100);
    EXPECT_EQ(menu(), nullptr) << "it drags";
    QTest::touchEvent(&plot, screen).release(0, start, &plot);
    QTest::touchEvent(&plot, screen).press(0, start, &plot);
    QTest::touchEvent(&plot, screen).release(0, start, &plot);
    QTest::qWait(interval + 100);
    EXPECT_EQ(menu(), nullptr) << "it is gone";

    const SKivoView before = View();
    QTest::touchEvent(&plot, screen).press(0, start, &plot);
    ASSERT_TRUE(Comes([&] { return menu() != nullptr; }));
    EXPECT_EQ(menu()->pos(), plot.mapToGlobal(start));
    menu()->close();
    QTest::touchEvent(&plot, screen).move(0, start + QPoint(60, 0), &plot);
    QTest::touchEvent(&plot, screen).release(0, start + QPoint(60, 0), &plot);
    EXPECT_TRUE(AreNear(View(), before)) << "it was no drag";
    QTest::touchEvent(&plot, screen).press(0, start, &plot);
    QTest::touchEvent(&plot, screen).move(0, start + QPoint(60, 0), &plot);
    EXPECT_FALSE(AreNear(View(), before)) << "the next is one";
    QTest::touchEvent(&plot, screen).release(0, start + QPoint(60, 0), &plot);
}

TEST_F(PlotWidgetInput, TouchpadsPinch) {
    QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, start,
                              start, plot.mapToGlobal(start), 0.25, {});
    QApplication::sendEvent(&plot, &pinch);
    EXPECT_TRUE(pinch.isAccepted());
    EXPECT_NEAR(View().zoom, 1.25, 1e-4);
    QNativeGestureEvent turn(Qt::RotateNativeGesture, QPointingDevice::primaryPointingDevice(), 2, start,
                             start, plot.mapToGlobal(start), 0.25, {});
    QApplication::sendEvent(&plot, &turn);
    EXPECT_FALSE(turn.isAccepted());
}

// ---- The menu

TEST_F(PlotWidgetInput, AClickOpensTheMenuAndADragDoesNot) {
    const auto menu = [&] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    Drag(Qt::RightButton, {40, 0});
    EXPECT_EQ(menu(), nullptr);
    QContextMenuEvent byPress(QContextMenuEvent::Mouse, start, plot.mapToGlobal(start));
    QApplication::sendEvent(&plot, &byPress);
    EXPECT_EQ(menu(), nullptr) << "a drag may follow";
    Drag(Qt::RightButton, {1, 0});
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(menu()->actions().size(), 2);
    menu()->close();
    QCoreApplication::processEvents();
    plot.setContextMenuPolicy(Qt::NoContextMenu);
    Drag(Qt::RightButton, {});
    EXPECT_EQ(menu(), nullptr);
    plot.setContextMenuPolicy(Qt::CustomContextMenu);
    QSignalSpy asked(&plot, &QWidget::customContextMenuRequested);
    Drag(Qt::RightButton, {});
    EXPECT_EQ(asked.count(), 1);
    EXPECT_EQ(menu(), nullptr);
}
