#include "PlotWidget.h"

#include "Display.h"
#include "Failure.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>

#include <cmath>
#include <string>

namespace KivoViewer {

using KivoDrawingTools::HWND;
using KivoDrawingTools::POINT;

namespace {

constexpr int wheelStep = 120;

unsigned int KeyState(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
    unsigned int state = 0;
    if (buttons & Qt::LeftButton) state |= KivoDrawingTools::MK_LBUTTON;
    if (buttons & Qt::RightButton) state |= KivoDrawingTools::MK_RBUTTON;
    if (buttons & Qt::MiddleButton) state |= KivoDrawingTools::MK_MBUTTON;
    if (modifiers & Qt::ShiftModifier) state |= KivoDrawingTools::MK_SHIFT;
    if (modifiers & Qt::ControlModifier) state |= KivoDrawingTools::MK_CONTROL;
    return state;
}

unsigned int KeyState(const QMouseEvent& event) {
    return KeyState(event.buttons(), event.modifiers());
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
}

PlotWidget::~PlotWidget() {
    Plotter().OnDestroy();
    KivoDrawingTools::ReleaseWindow(m_window);
}

void PlotWidget::Attach() {
    const WId id = winId();
    QGuiApplication::sync(); // the plotter's own connection to the display must find the window there
    m_window = KivoDrawingTools::AttachX11Window(static_cast<unsigned long>(id));
    if (Plotter().OnCreate(m_window, ToDevice(width()), ToDevice(height()), true) != 0)
        throw Failure(std::string("cannot draw: ") + KivoDrawingTools::LastWindowError());
}

void PlotWidget::Redraw() {
    Plotter().OnDraw();
    setMouseTracking(Plotter().IsTracing()); // moves without a button matter to the trace only
    ReportTrace();
}

void PlotWidget::SetWantedSize(const QSize& size) {
    m_wantedSize = size;
    updateGeometry();
}

PictureFormat PlotWidget::Format() const {
    return {ToDevice(width()), ToDevice(height()), TextResolution(winId())};
}

void PlotWidget::ReportTrace() {
    float point[3];
    if (onTrace) onTrace(Plotter().IsTracing() && Plotter().GetTracePoint(point) ? point : nullptr);
}

void PlotWidget::paintEvent(QPaintEvent*) {
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
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    Plotter().OnMouseMove(KeyState(*event), ToDevice(event->position()));
    ReportTrace();
}

// High-resolution wheels turn a step in many small events; the plotter gets one message where a step is full.
void PlotWidget::wheelEvent(QWheelEvent* event) {
    m_wheelAngle += event->angleDelta().y();
    const int steps = m_wheelAngle / wheelStep;
    if (steps == 0) return;
    m_wheelAngle -= steps * wheelStep;
    Plotter().OnMouseWheel(KeyState(event->buttons(), event->modifiers()),
                           static_cast<short>(steps * wheelStep), ToScreen(event->globalPosition()));
}

int PlotWidget::ToDevice(double length) const {
    return static_cast<int>(std::lround(length * devicePixelRatioF()));
}

POINT PlotWidget::ToDevice(const QPointF& position) const {
    return {ToDevice(position.x()), ToDevice(position.y())};
}

// Qt scales the positions on a screen, not those of the screens.
POINT PlotWidget::ToScreen(const QPointF& globalPosition) const {
    const QPoint origin = screen()->geometry().topLeft();
    const POINT offset = ToDevice(globalPosition - origin);
    return {origin.x() + offset.x, origin.y() + offset.y};
}

} // namespace KivoViewer
