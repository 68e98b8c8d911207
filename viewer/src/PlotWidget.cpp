#include "PlotWidget.h"

#include "Failure.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoStyle.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>

namespace KivoViewer {

using KivoDrawingTools::POINT;

namespace {

constexpr int leastResolution = 24; // of a screen

// Milliseconds. A pause ends a movement; one between two grabs, or two steps of a slow wheel, is longer, and
// a frame that blocks the hand must not come within it.
constexpr int pause = 120;
constexpr int pauseBeforeSlowFrame = 400;
constexpr double slowFrame = 100.0;
constexpr double fastFrame = 33.0;
constexpr int pauseBeforeMeasuring = 500;

unsigned int KeyState(const QSinglePointEvent& event) {
    const Qt::MouseButtons buttons = event.buttons();
    const Qt::KeyboardModifiers keys = event.modifiers();
    return KivoDrawingTools::KeyState(buttons & Qt::LeftButton, buttons & Qt::MiddleButton,
                                      buttons & Qt::RightButton, keys & Qt::ShiftModifier,
                                      keys & Qt::ControlModifier);
}

// The display's own dots per inch have the plotter's texts grow, too: the points for those of usual ones.
int TextPoints(KivoDrawingTools::HWND window) {
    constexpr int points = 10;
    const int dpi = KivoDrawingTools::GetWindowDpi(window);
    return std::max(qRound(1.0 * points * usualResolution / std::max(dpi, 1)), 1);
}

} // namespace

PlotWidget::PlotWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::PreventContextMenu); // the right button turns the plot
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
    // Those without a time come after all input that waits.
    for (QTimer* const timer : {&m_show, &m_rest, &m_complete, &m_measure})
        timer->setSingleShot(true);
    m_measure.setInterval(pauseBeforeMeasuring);
    connect(&m_show, &QTimer::timeout, this, &PlotWidget::ShowWaiting);
    connect(&m_rest, &QTimer::timeout, this, [this] { m_complete.start(); });
    connect(&m_complete, &QTimer::timeout, this, [this] {
        ShowWaiting();
        if (!m_rest.isActive()) Redraw();
    });
    connect(&m_measure, &QTimer::timeout, this,
            [this] { QTimer::singleShot(0, this, &PlotWidget::Measure); });
}

PlotWidget::~PlotWidget() {
    Plotter().OnDestroy();
    KivoDrawingTools::ReleaseWindow(m_window);
}

void PlotWidget::Attach() {
    const WId id = winId();
    QGuiApplication::sync(); // the plotter's own connection to the display must find the window there
    m_window = KivoDrawingTools::AttachX11Window(static_cast<unsigned long>(id));
    m_scene.SetPixelScale(Format().PixelScale());
    if (Plotter().OnCreate(m_window, ToDevice(width()), ToDevice(height()), TextPoints(m_window), true) != 0)
        throw Failure(std::string("cannot draw: ") + KivoDrawingTools::LastWindowError());
    KivoDrawingTools::SetWindowSmoothing(m_window, usualSmoothing);
    connect(windowHandle(), &QWindow::screenChanged, this, &PlotWidget::FollowScreen);
}

PlotScene& PlotWidget::Scene() {
    ShowWaiting();
    return m_scene;
}

void PlotWidget::Redraw() {
    for (QTimer* const timer : {&m_rest, &m_complete, &m_measure})
        timer->stop();
    KivoDrawingTools::SetWindowSmoothing(m_window, usualSmoothing);
    m_isPlain = false;
    QElapsedTimer time;
    time.start();
    Plotter().OnDraw();
    m_completeTime = static_cast<double>(time.nsecsElapsed()) / 1e6;
    setMouseTracking(Plotter().IsTracing()); // moves without a button matter to the trace only
    ReportTrace();
    if (m_completeTime > fastFrame && m_scene.NeedsMotionMeasured()) m_measure.start();
}

// ---- The hand -------------------------------------------------------------------------------------------

void PlotWidget::Await(const Movement& movement) {
    if (m_waiting && ChangesView(*m_waiting) != ChangesView(movement)) ShowWaiting();
    if (m_waiting && m_waiting->wheelDelta != 0)
        Plotter().FollowWheel(m_waiting->wheelDelta, m_waiting->place);
    else if (m_waiting)
        Plotter().FollowMove(m_waiting->keys, m_waiting->place);
    m_waiting = movement;
    m_show.start();
}

bool PlotWidget::ChangesView(const Movement& movement) {
    if (movement.wheelDelta != 0) return Plotter().IsScreenPointInViewport(movement.place);
    return (movement.keys & KivoDrawingTools::MK_RBUTTON) != 0 &&
           Plotter().IsClientPointInViewport(movement.place);
}

void PlotWidget::ShowWaiting() {
    m_show.stop();
    if (m_waiting) Show(*std::exchange(m_waiting, std::nullopt));
}

// A movement takes precedence over a complete frame that is due.
void PlotWidget::Show(const Movement& movement) {
    const bool changesView = ChangesView(movement);
    if (changesView) KivoDrawingTools::SetWindowSmoothing(m_window, 1);
    m_isPlain |= changesView;
    if (movement.wheelDelta != 0)
        Plotter().OnMouseWheel(movement.keys, static_cast<short>(movement.wheelDelta), movement.place);
    else
        Plotter().OnMouseMove(movement.keys, movement.place);
    if (changesView) AwaitRest();
    ReportTrace();
}

bool PlotWidget::IsCompleteSlow() {
    return IsDetailReduced(Plotter()) && m_completeTime > slowFrame;
}

void PlotWidget::AwaitRest() {
    m_complete.stop();
    m_measure.stop();
    m_rest.start(IsCompleteSlow() ? pauseBeforeSlowFrame : pause);
}

void PlotWidget::Measure() {
    if (m_waiting || m_isPlain) return; // after the next complete frame
    try {
        m_scene.MeasureMotion();
    } catch (const std::bad_alloc&) {
        return; // what was taken before goes on
    }
}

void PlotWidget::SetWantedSize(const QSize& size) {
    m_wantedSize = size;
    updateGeometry();
}

// Qt scales the window for a dense screen or, where it is told not to, has more dots per inch.
PictureFormat PlotWidget::Format() const {
    PictureFormat format;
    format.width = ToDevice(width());
    format.height = ToDevice(height());
    format.dpi = std::clamp(qRound(devicePixelRatioF() * logicalDpiY()), leastResolution, maxResolution / 2);
    return format;
}

void PlotWidget::ReportTrace() {
    float point[3];
    if (onTrace) onTrace(Plotter().IsTracing() && Plotter().GetTracePoint(point) ? point : nullptr);
}

void PlotWidget::paintEvent(QPaintEvent*) {
    Redraw();
}

// What had another density is laid out anew.
void PlotWidget::FollowScreen() {
    const double scale = Format().PixelScale();
    if (scale == static_cast<double>(GetStyle(Plotter()).pixelScale)) return;
    try {
        m_scene.SetPixelScale(scale);
    } catch (const Failure&) {
        return; // there is no memory for larger texts: the plot stays as it is
    }
    m_scene.Resize(ToDevice(width()), ToDevice(height()));
    Redraw();
}

void PlotWidget::resizeEvent(QResizeEvent*) {
    Scene().Resize(ToDevice(width()), ToDevice(height()));
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    ShowWaiting();
    if (event->button() == Qt::LeftButton)
        Plotter().OnLButtonDown(KeyState(*event), ToDevice(event->position()));
    if (event->button() == Qt::RightButton)
        Plotter().OnRButtonDown(KeyState(*event), ToDevice(event->position()));
    m_measure.stop(); // a movement may follow
    if (m_isPlain && IsCompleteSlow()) AwaitRest();
}

// The second press of a quick pair begins a drag like any other.
void PlotWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    ShowWaiting();
    if (event->button() == Qt::LeftButton)
        Plotter().OnLButtonUp(KeyState(*event), ToDevice(event->position()));
    if (event->button() == Qt::RightButton)
        Plotter().OnRButtonUp(KeyState(*event), ToDevice(event->position()));
    if (!m_isPlain) return;
    if (IsCompleteSlow())
        AwaitRest();
    else
        Redraw();
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    Await({KeyState(*event), ToDevice(event->position()), 0});
}

// Wheels and touchpads of a high resolution turn a step in many small events, fast ones several in one.
void PlotWidget::wheelEvent(QWheelEvent* event) {
    const int steps = KivoDrawingTools::WheelSteps(m_wheelRemainder, event->angleDelta().y());
    for (int i = 0; i < std::abs(steps); ++i)
        Await({KeyState(*event), ToScreen(event->globalPosition()), steps > 0 ? 120 : -120});
}

int PlotWidget::ToDevice(double length) const {
    return KivoDrawingTools::ToPixels(length, devicePixelRatioF());
}

POINT PlotWidget::ToDevice(const QPointF& position) const {
    return KivoDrawingTools::ToPixels(position.x(), position.y(), devicePixelRatioF());
}

// Qt scales the positions on a screen, not those of the screens.
POINT PlotWidget::ToScreen(const QPointF& globalPosition) const {
    const QPoint origin = screen()->geometry().topLeft();
    const POINT offset = ToDevice(globalPosition - origin);
    return {origin.x() + offset.x, origin.y() + offset.y};
}

} // namespace KivoViewer
