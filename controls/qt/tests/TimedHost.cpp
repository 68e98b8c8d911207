// kivo-timed-host: a plot in a Qt window, as the control or in a native window of its own, for what measures
// how soon the screen shows what the hand does: kivo-timed-host control|native POINTS WIDTH HEIGHT [COUNT]
#include "KivoPlotWidget.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <QApplication>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr unsigned int movingPoints = 150;

std::vector<float> Points(unsigned int side) {
    std::vector<float> points;
    points.reserve(std::size_t{side} * side * 3);
    for (unsigned int r = 0; r < side; ++r)
        for (unsigned int c = 0; c < side; ++c) {
            const float x = 6.0f * static_cast<float>(c) / static_cast<float>(side - 1) - 3.0f;
            const float y = 6.0f * static_cast<float>(r) / static_cast<float>(side - 1) - 3.0f;
            points.insert(points.end(), {x, y, std::sin(x) * std::cos(y)});
        }
    return points;
}

// As a host does that wants every millisecond: the mouse members draw.
class NativePlot : public QWidget {
public:
    explicit NativePlot(std::vector<float> points, unsigned int side)
        : m_points(std::move(points)), m_side(side) {
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_PaintOnScreen);
        setAttribute(Qt::WA_NoSystemBackground);
    }
    ~NativePlot() override {
        m_plotter.OnDestroy();
        ReleaseWindow(m_window);
    }
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    void paintEvent(QPaintEvent*) override {
        if (!m_window) {
            m_window = AttachX11Window(static_cast<unsigned long>(internalWinId()));
            if (m_plotter.OnCreate(m_window, width(), height(), true) != 0) std::exit(1);
            m_plotter.SetDataReference(m_points.data(), m_side, m_side, 1, m_side, 3);
            SetMotionDetail(m_plotter, movingPoints);
        }
        m_plotter.OnDraw();
    }
    void mousePressEvent(QMouseEvent* event) override {
        m_plotter.OnRButtonDown(MK_RBUTTON, ToPixels(event->position().x(), event->position().y(), 1.0));
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        m_plotter.OnRButtonUp(0, ToPixels(event->position().x(), event->position().y(), 1.0));
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        m_plotter.OnMouseMove(MK_RBUTTON, ToPixels(event->position().x(), event->position().y(), 1.0));
    }

private:
    std::vector<float> m_points;
    unsigned int m_side;
    HWND m_window = nullptr;
    CKivoFunctionPlotter m_plotter;
};

QWidget* MakePlot(bool isControl, unsigned int side) {
    std::vector<float> points = Points(side);
    if (!isControl) return new NativePlot(std::move(points), side);
    auto* const plot = new KivoPlotWidget;
    plot->setReducedWhileMoving(false);
    SetMotionDetail(plot->plotter(), movingPoints);
    plot->setGrid(points.data(), static_cast<int>(side), static_cast<int>(side));
    return plot;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 5) return 2;
    const bool isControl = std::strcmp(argv[1], "control") == 0;
    const auto side = static_cast<unsigned int>(std::atoi(argv[2]));
    const int count = argc > 5 ? std::atoi(argv[5]) : 1;
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int i = 0; i < count; ++i)
        layout->addWidget(MakePlot(isControl, side));
    window.setWindowTitle("kivo-timed-host");
    window.setGeometry(0, 0, std::atoi(argv[3]), std::atoi(argv[4]));
    window.show();
    return QApplication::exec();
}
