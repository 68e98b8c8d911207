#include "PlotWidget.h"

#include "Failure.h"

#include <KivoHost.h>
#include <KivoStyle.h>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace KivoViewer {

using KivoDrawingTools::POINT;

namespace {

constexpr int leastResolution = 24; // of a screen

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
    m_rest.setSingleShot(true);
    m_rest.setInterval(120); // milliseconds
    connect(&m_rest, &QTimer::timeout, this, &PlotWidget::Rest);
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

void PlotWidget::Redraw() {
    Plotter().OnDraw();
    setMouseTracking(Plotter().IsTracing()); // moves without a button matter to the trace only
    ReportTrace();
}

void PlotWidget::Move() {
    KivoDrawingTools::SetWindowSmoothing(m_window, 1);
    m_rest.start();
}

void PlotWidget::Rest() {
    m_rest.stop();
    KivoDrawingTools::SetWindowSmoothing(m_window, usualSmoothing);
    Redraw();
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
    m_scene.Resize(ToDevice(width()), ToDevice(height()));
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Plotter().OnLButtonDown(KeyState(*event), ToDevice(event->position()));
    if (event->button() == Qt::RightButton)
        Plotter().OnRButtonDown(KeyState(*event), ToDevice(event->position()));
}

// The second press of a quick pair begins a drag like any other.
void PlotWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Plotter().OnLButtonUp(KeyState(*event), ToDevice(event->position()));
    if (event->button() == Qt::RightButton)
        Plotter().OnRButtonUp(KeyState(*event), ToDevice(event->position()));
    if (m_rest.isActive()) Rest();
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::RightButton) Move();
    Plotter().OnMouseMove(KeyState(*event), ToDevice(event->position()));
    ReportTrace();
}

// Wheels and touchpads of a high resolution turn a step in many small events, fast ones several in one.
void PlotWidget::wheelEvent(QWheelEvent* event) {
    const int steps = KivoDrawingTools::WheelSteps(m_wheelRemainder, event->angleDelta().y());
    if (steps != 0) Move();
    for (int i = 0; i < std::abs(steps); ++i)
        Plotter().OnMouseWheel(KeyState(*event), steps > 0 ? 120 : -120, ToScreen(event->globalPosition()));
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
