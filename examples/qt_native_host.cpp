// A host in Qt 6 Widgets: the plot is a widget of its own, with a native window that Qt does not paint, below
// a label. It hands the window's XID to the plotter and forwards the widget's events in pixels of the device.
// A drag with the right button turns the plot, with Shift it pans, with Ctrl it zooms; the wheel zooms too;
// the keys 0 to 3 choose the plot, and H hides and shows it.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <QApplication>
#include <QBasicTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cstdio>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

class PlotWidget : public QWidget {
public:
    PlotWidget() {
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_PaintOnScreen); // and not through Qt's picture of the whole window
        setAttribute(Qt::WA_NoSystemBackground);
        setAttribute(Qt::WA_OpaquePaintEvent);
        setContextMenuPolicy(Qt::PreventContextMenu); // the right button turns the plot
        setMouseTracking(true);                       // moves without a button are for the trace
        setFocusPolicy(Qt::StrongFocus);
        SetMotionDetail(m_plotter, movingPoints);
    }
    ~PlotWidget() override { Detach(); }

    QPaintEngine* paintEngine() const override { return nullptr; }
    void OnKey(int key) {
        if (key == Qt::Key_H) setVisible(!isVisible());
        if (ChoosePlot(m_plotter, key)) update();
    }

protected:
    // [docs: attach]
    // Qt gives a widget another window when it moves to another parent, and paints after every change of
    // size. Before, the server need not know of either.
    void paintEvent(QPaintEvent*) override {
        const POINT size = ToPixels(width(), height(), devicePixelRatioF());
        if (m_id != internalWinId()) Attach(size);
        if (m_size.x != size.x || m_size.y != size.y) m_plotter.OnSize(0, size.x, size.y);
        m_size = size;
        m_plotter.OnDraw();
    }

    void Attach(const POINT& size) {
        Detach();
        m_id = internalWinId();
        m_size = size;
        m_window = AttachX11Window(static_cast<unsigned long>(m_id));
        if (m_plotter.OnCreate(m_window, size.x, size.y, true) != 0) {
            std::fprintf(stderr, "qt_native_host: %s\n", LastWindowError());
            std::exit(1);
        }
        m_plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    }

    void Detach() {
        m_plotter.OnDestroy();
        ReleaseWindow(m_window);
        m_window = nullptr;
    }
    // [docs: end]

    // Qt grabs the pointer for the widget while a button is down.
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) m_plotter.OnLButtonDown(State(*event), Client(*event));
        if (event->button() == Qt::RightButton) m_plotter.OnRButtonDown(State(*event), Client(*event));
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    // [docs: motion]
    // On X11 Qt makes one of moves that wait. Where it has left one out before a release, it sends a move to
    // the release's place first.
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) m_plotter.OnLButtonUp(State(*event), Client(*event));
        if (event->button() != Qt::RightButton) return;
        m_plotter.OnRButtonUp(State(*event), Client(*event));
        DrawWhole();
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        m_plotter.OnMouseMove(State(*event), Client(*event));
        m_rest.start(restTime, this); // anew with each
    }
    void timerEvent(QTimerEvent*) override { DrawWhole(); }
    void DrawWhole() {
        m_rest.stop();
        if (IsDetailReduced(m_plotter)) update();
    }
    // [docs: end]
    // Wheels and touchpads of a high resolution turn a step in many small events, fast ones several in one.
    void wheelEvent(QWheelEvent* event) override {
        const int steps = WheelSteps(m_wheel, event->angleDelta().y());
        for (int i = 0; i < std::abs(steps); ++i)
            m_plotter.OnMouseWheel(State(*event), steps > 0 ? 120 : -120, Screen(event->globalPosition()));
        m_rest.start(restTime, this);
    }

private:
    static unsigned int State(const QSinglePointEvent& event) {
        const Qt::MouseButtons buttons = event.buttons();
        const Qt::KeyboardModifiers keys = event.modifiers();
        return KeyState(buttons & Qt::LeftButton, buttons & Qt::MiddleButton, buttons & Qt::RightButton,
                        keys & Qt::ShiftModifier, keys & Qt::ControlModifier);
    }
    POINT Client(const QSinglePointEvent& event) const {
        return ToPixels(event.position().x(), event.position().y(), devicePixelRatioF());
    }
    // Qt scales distances within a screen, but not the screen's own place.
    POINT Screen(const QPointF& position) const {
        const QPoint origin = screen()->geometry().topLeft();
        const POINT offset =
            ToPixels(position.x() - origin.x(), position.y() - origin.y(), devicePixelRatioF());
        return {origin.x() + offset.x, origin.y() + offset.y};
    }

    WId m_id = 0;
    HWND m_window = nullptr;
    CKivoFunctionPlotter m_plotter;
    std::vector<float> m_points = HillPoints();
    POINT m_size = {};
    QBasicTimer m_rest; // runs from the last movement on
    int m_wheel = 0;    // turned beyond whole steps
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "xcb;offscreen"); // on Wayland, too: the plotter draws in X11 windows
    QApplication application(argc, argv);
    if (QApplication::platformName() != "xcb") {
        std::fprintf(stderr, "qt_native_host: %s\n", noDisplay);
        return 1;
    }
    QWidget window;
    auto* const plot = new PlotWidget;
    auto* const layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(hillHelp));
    layout->addWidget(plot, 1);
    for (const Qt::Key key : {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_H})
        QObject::connect(new QShortcut(key, &window), &QShortcut::activated, [=] { plot->OnKey(key); });
    window.setWindowTitle(hillTitle);
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
