#include "PlotWidget.h"

#include "Failure.h"

#include <KivoHost.h>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>

#include <cstdlib>
#include <string>

namespace KivoViewer {

using KivoDrawingTools::POINT;

namespace {

unsigned int KeyState(const QSinglePointEvent& event) {
    const Qt::MouseButtons buttons = event.buttons();
    const Qt::KeyboardModifiers keys = event.modifiers();
    return KivoDrawingTools::KeyState(buttons & Qt::LeftButton, buttons & Qt::MiddleButton,
                                      buttons & Qt::RightButton, keys & Qt::ShiftModifier,
                                      keys & Qt::ControlModifier);
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
    const int dpi = KivoDrawingTools::GetWindowDpi(m_window);
    return {ToDevice(width()), ToDevice(height()), dpi > 0 ? dpi : usualResolution};
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

// Wheels and touchpads of a high resolution turn a step in many small events, fast ones several in one.
void PlotWidget::wheelEvent(QWheelEvent* event) {
    const int steps = KivoDrawingTools::WheelSteps(m_wheelRemainder, event->angleDelta().y());
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
