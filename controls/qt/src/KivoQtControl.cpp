#include "KivoQtControl.h"

#include <KivoHost.h>
#include <KivoView.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QTimerEvent>
#include <QTouchEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace KivoDrawingTools;

namespace {

constexpr double wheelStep = 120.0, zoomOfStep = 1.04; // as the view zooms for one
constexpr double usualResolution = 96.0;               // in dots per inch
constexpr double leastScale = 0.25, largestScale = 8.0;

std::optional<KivoMouseButton> ButtonOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return KivoMouseButton::left;
    case Qt::MiddleButton:
        return KivoMouseButton::middle;
    case Qt::RightButton:
        return KivoMouseButton::right;
    default:
        return std::nullopt;
    }
}

std::optional<KivoViewKey> KeyOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return KivoViewKey::left;
    case Qt::Key_Right:
        return KivoViewKey::right;
    case Qt::Key_Up:
        return KivoViewKey::up;
    case Qt::Key_Down:
        return KivoViewKey::down;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift on many keyboards
        return KivoViewKey::plus;
    case Qt::Key_Minus:
        return KivoViewKey::minus;
    case Qt::Key_Home:
        return KivoViewKey::home;
    case Qt::Key_0:
        return KivoViewKey::normal;
    case Qt::Key_1:
        return KivoViewKey::xy;
    case Qt::Key_2:
        return KivoViewKey::yz;
    case Qt::Key_3:
        return KivoViewKey::xz;
    default:
        return std::nullopt;
    }
}

unsigned int FlagsOf(Qt::KeyboardModifiers keys) {
    return KeyState(false, false, false, keys & Qt::ShiftModifier, keys & Qt::ControlModifier);
}

std::optional<unsigned long> ColorRef(const QColor& color) {
    if (!color.isValid()) return std::nullopt;
    return static_cast<unsigned long>(color.blue() << 16 | color.green() << 8 | color.red());
}

// The pixels stay the view's.
QImage ImageOf(const SKivoPlotImage& frame) {
    if (!frame.pixels) return {};
    return QImage(frame.pixels, frame.width, frame.height, static_cast<qsizetype>(frame.rowBytes),
                  QImage::Format_RGB32);
}

} // namespace

KivoQtControl::KivoQtControl(KivoQtHandlers handlers, std::unique_ptr<CKivoFunctionPlotter> plotter)
    : m_handlers(std::move(handlers)), m_view(Events(), std::move(plotter)) {
    m_threads.setMaxThreadCount(1);
    if (m_view.Failure().empty()) return;
    m_hasFailed = true;
    SendLater();
}

// No thread is at the plotter after that, nor will one be.
KivoQtControl::~KivoQtControl() {
    m_view.Lend();
}

SKivoPlotViewEvents KivoQtControl::Events() {
    SKivoPlotViewEvents events;
    events.redraw = m_handlers.redraw;
    events.layOut = m_handlers.layOut;
    events.wake = [this](int milliseconds) {
        if (milliseconds < 0)
            m_wake.stop();
        else
            m_wake.start(milliseconds, this);
    };
    events.traced = [this](const float* point) {
        m_traced.reset();
        if (point) m_traced = QVector3D(point[0], point[1], point[2]);
        m_isTraceLost = !point;
        SendLater();
    };
    events.viewChanged = [this] {
        m_hasViewChanged = true;
        SendLater();
    };
    events.failed = [this] {
        m_hasFailed = true;
        SendLater();
    };
    events.drawInThread = [this] {
        m_threads.start([this] {
            m_view.DrawInThread();
            QMetaObject::invokeMethod(
                this, [this] { WithinEvent([this] { m_view.TakeFrame(); }); }, Qt::QueuedConnection);
        });
    };
    return events;
}

// ---- Signals

void KivoQtControl::SendLater() {
    if (std::exchange(m_isSending, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { Send(); }, Qt::QueuedConnection);
}

// A slot may delete the control, and the handlers with it.
void KivoQtControl::Send() {
    m_isSending = false;
    const KivoQtHandlers handlers = m_handlers;
    const bool hasFailed = std::exchange(m_hasFailed, false);
    const bool hasChanged = std::exchange(m_hasViewChanged, false);
    const bool isLost = std::exchange(m_isTraceLost, false);
    const auto traced = std::exchange(m_traced, std::nullopt);
    const QPointer<KivoQtControl> self(this);
    if (hasFailed) handlers.failed(Failure());
    if (self && hasChanged) handlers.viewChanged();
    if (self && isLost) handlers.traceLost();
    if (self && traced) handlers.pointTraced(*traced);
}

void KivoQtControl::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_wake.timerId()) {
        m_wake.stop(); // it is to come once
        WithinEvent([this] { m_view.Wake(); });
    } else if (event->timerId() == m_hold.timerId()) {
        EndHold();
    }
}

// ---- What is shown

bool KivoQtControl::SetGrid(const float* points, qint64 columns, qint64 rows) {
    constexpr qint64 most = std::numeric_limits<int>::max();
    if (columns < 1 || rows < 1 || columns > most || rows > most) return false;
    return m_view.SetGrid(points, static_cast<unsigned int>(columns), static_cast<unsigned int>(rows)) == 0;
}

bool KivoQtControl::SetGrid(const QList<QVector3D>& points, qint64 columns, qint64 rows) {
    static_assert(sizeof(QVector3D) == 3 * sizeof(float), "points lie one behind another");
    if (columns < 1 || rows < 1 || points.size() / columns < rows) return false;
    return SetGrid(reinterpret_cast<const float*>(points.constData()), columns, rows);
}

QString KivoQtControl::Title() {
    if (!m_view.IsLent()) m_title = QString::fromLocal8Bit(m_plotter.GetPlotTitle());
    return m_title;
}

void KivoQtControl::SetTitle(const QString& title) {
    if (m_view.IsLent()) return;
    Plotter().SetPlotTitle(title.toLocal8Bit().constData());
    m_view.Update();
}

int KivoQtControl::PlotType() {
    if (!m_view.IsLent()) m_plotType = m_plotter.GetCurrentPlotType();
    return m_plotType;
}

bool KivoQtControl::IsTracing() {
    if (!m_view.IsLent()) m_isTracing = m_plotter.IsTracing();
    return m_isTracing;
}

void KivoQtControl::SetPlotType(int type) {
    constexpr KivoViewKey keys[] = {KivoViewKey::normal, KivoViewKey::xy, KivoViewKey::yz, KivoViewKey::xz};
    if (type < 0 || type > 3 || type == PlotType()) return;
    m_view.PressKey(keys[type]);
    m_view.Update();
}

void KivoQtControl::SetTracing(bool tracing) {
    if (m_view.IsLent()) return;
    Plotter().Trace(tracing);
    m_view.Update();
}

void KivoQtControl::SetUpright(bool upright) {
    m_isUpright = upright;
    m_view.KeepUpright(upright);
}

void KivoQtControl::SetReducedWhileMoving(bool reduced) {
    if (std::exchange(m_isReduced, reduced) != reduced) m_view.ReduceWhileMoving(reduced);
}

void KivoQtControl::SetThreaded(bool threaded) {
    m_isThreaded = threaded;
    m_view.SetThreaded(threaded);
}

void KivoQtControl::SetSmoothing(int factor) {
    if (m_view.SetSmoothing(factor) == 0) m_smoothing = factor;
}

void KivoQtControl::SetColors(const QColor& ink, const QColor& ground) {
    m_view.SetColors(ColorRef(ink), ColorRef(ground));
}

void KivoQtControl::ResetView() {
    m_view.PressKey(KivoViewKey::home);
    m_view.Update();
}

// ---- Frames

void KivoQtControl::SetSize(double width, double height, double density, double dotsPerInch) {
    const double scale = std::clamp(density * dotsPerInch / usualResolution, leastScale, largestScale);
    if (m_view.SetSize(::ToPixels(width, density), ::ToPixels(height, density), scale) == 0)
        m_density = density;
}

QImage KivoQtControl::Frame() {
    SKivoPlotImage frame;
    WithinEvent([&] { frame = m_view.Draw(); });
    return ImageOf(frame);
}

QImage KivoQtControl::Picture() {
    SKivoPlotImage frame;
    WithinEvent([&] { frame = m_view.DrawNow(); });
    return ImageOf(frame).copy();
}

// ---- Input

POINT KivoQtControl::ToPixels(const QPointF& place) const {
    return ::ToPixels(place.x(), place.y(), m_density);
}

bool KivoQtControl::TakeInput(QEvent* event) {
    bool isTaken = true;
    WithinEvent([&] { isTaken = Take(event); });
    return isTaken;
}

bool KivoQtControl::Take(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // begins a drag like any other
        return TakePress(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        TakeMove(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        return TakeRelease(*static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
        return TakeWheel(*static_cast<QWheelEvent*>(event));
    case QEvent::KeyPress:
        return TakeKey(*static_cast<QKeyEvent*>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        TakeTouch(*static_cast<QTouchEvent*>(event));
        return true;
    case QEvent::TouchCancel:
        CancelInput();
        return true;
    case QEvent::NativeGesture:
        return TakeGesture(*static_cast<QNativeGestureEvent*>(event));
    default:
        return false;
    }
}

void KivoQtControl::CancelInput() {
    m_pressed = Qt::NoButton;
    m_fingers = 0;
    m_hold.stop();
    m_view.Cancel();
}

bool KivoQtControl::TakePress(const QMouseEvent& event) {
    const auto button = ButtonOf(event.button());
    if (!button) return false;
    if (m_pressed == Qt::NoButton) m_pressed = event.button();
    m_view.Press(*button, FlagsOf(event.modifiers()), ToPixels(event.position()));
    return true;
}

// Where a window of the host's came between, the release went there.
void KivoQtControl::TakeMove(const QMouseEvent& event) {
    const bool isReleased = m_pressed != Qt::NoButton && !(event.buttons() & m_pressed);
    if (isReleased) CancelInput();
    m_view.Move(FlagsOf(event.modifiers()), ToPixels(event.position()));
}

bool KivoQtControl::TakeRelease(const QMouseEvent& event) {
    const auto button = ButtonOf(event.button());
    if (!button) return false;
    if (m_pressed == event.button()) m_pressed = Qt::NoButton;
    const bool isClick = m_view.Release(*button) && *button == KivoMouseButton::right;
    if (!isClick) return true;
    const auto requested = m_handlers.menuRequested; // a menu may delete the control
    requested(event.position());
    return true;
}

// What scrolls by pixels zooms in proportion; a wheel by whole steps.
bool KivoQtControl::TakeWheel(const QWheelEvent& event) {
    const int angle = event.angleDelta().y();
    if (angle == 0) return false;
    if (event.hasPixelDelta())
        m_view.Pinch(std::pow(zoomOfStep, angle / wheelStep), ToPixels(event.position()));
    else
        m_view.Wheel(angle, ToPixels(event.position()));
    return true;
}

bool KivoQtControl::TakeKey(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers others = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const auto key = KeyOf(event.key());
    return key && !(event.modifiers() & others) && m_view.PressKey(*key, FlagsOf(event.modifiers()));
}

void KivoQtControl::AwaitHold(const QPointF& place) {
    m_touched = place;
    m_hold.start(QGuiApplication::styleHints()->mousePressAndHoldInterval(), this);
}

// The finger drags no more, until it is lifted.
void KivoQtControl::EndHold() {
    m_hold.stop();
    m_view.Cancel();
    const auto requested = m_handlers.menuRequested; // a menu may delete the control
    requested(m_touched);
}

// One finger turns; two shift by what is between them, and zoom by how far they are apart.
void KivoQtControl::TakeTouch(const QTouchEvent& event) {
    QList<QPointF> places;
    for (const QEventPoint& point : event.points())
        if (point.state() != QEventPoint::Released) places.append(point.position());
    const bool arePinching = places.size() > 1;
    const QPointF center = arePinching ? (places[0] + places[1]) / 2.0 : places.value(0);
    const double span = arePinching ? QLineF(places[0], places[1]).length() : 0.0;
    if (places.size() != m_fingers) {
        CancelInput();
        m_fingers = places.size();
        if (event.type() == QEvent::TouchBegin && m_fingers == 1) AwaitHold(center);
        if (m_fingers > 0)
            m_view.Press(arePinching ? KivoMouseButton::middle : KivoMouseButton::left, 0, ToPixels(center));
    } else {
        const qreal moved = (center - m_touched).manhattanLength();
        if (moved >= QGuiApplication::styleHints()->startDragDistance()) m_hold.stop();
        m_view.Move(0, ToPixels(center));
        if (arePinching && m_span > 0.0) m_view.Pinch(span / m_span, ToPixels(center));
    }
    m_span = span;
}

bool KivoQtControl::TakeGesture(const QNativeGestureEvent& event) {
    if (event.gestureType() != Qt::ZoomNativeGesture) return false;
    m_view.Pinch(1.0 + event.value(), ToPixels(event.position()));
    return true;
}
