// A Qt 6 host with a QOpenGLWidget beside the plot, which has a native window on the screen.
#include "OpenGlHost.h"

#include <KivoHost.h>
#include <KivoWindow.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QShortcut>
#include <QStackedWidget>

#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

class PlotWidget : public QWidget {
public:
    PlotWidget() {
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_DontCreateNativeAncestors); // their windows could not show the other widget
        setAttribute(Qt::WA_PaintOnScreen);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }
    ~PlotWidget() override { Detach(); }
    PlotWidget(const PlotWidget&) = delete;
    PlotWidget& operator=(const PlotWidget&) = delete;

    QPaintEngine* paintEngine() const override { return nullptr; }

    void Choose(int key) {
        const CKeepContext keep;
        if (ChoosePlot(m_plotter, key)) m_plotter.OnDraw();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const CKeepContext keep; // Qt's
        if (m_id != internalWinId()) Attach();
        if (m_size != size()) m_plotter.OnSize(0, width(), height());
        m_size = size();
        m_plotter.OnDraw();
    }

private:
    void Attach() {
        Detach();
        m_id = internalWinId();
        m_size = size();
        m_window = AttachX11Window(static_cast<unsigned long>(m_id));
        if (m_plotter.OnCreate(m_window, width(), height(), true) != 0) std::exit(1);
        m_plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    }
    void Detach() {
        const CKeepContext keep;
        m_plotter.OnDestroy();
        ReleaseWindow(m_window);
        m_window = nullptr;
    }

    WId m_id = 0;
    HWND m_window = nullptr;
    CKivoFunctionPlotter m_plotter;
    std::vector<float> m_points = HillPoints();
    QSize m_size;
};

class ColorWidget : public QOpenGLWidget {
public:
    void ChangeColor() {
        m_color = 1 - m_color;
        update();
    }

protected:
    void paintGL() override {
        const OpenGlColor& color = openGlColors[m_color];
        QOpenGLFunctions* const gl = context()->functions();
        gl->glClearColor(color.red, color.green, color.blue, 1);
        gl->glClear(GL_COLOR_BUFFER_BIT);
    }

private:
    int m_color = 0;
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); // QOpenGLWidget has no window
    QApplication application(argc, argv);
    QStackedWidget window;
    auto* const halves = new QWidget;
    auto* const plot = new PlotWidget;
    auto* const color = new ColorWidget;
    auto* const layout = new QHBoxLayout(halves);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(plot, 1);
    layout->addWidget(color, 1);
    window.addWidget(halves);
    window.addWidget(new QWidget);
    const auto onKey = [&](Qt::Key key, auto action) {
        QObject::connect(new QShortcut(key, &window), &QShortcut::activated, action);
    };
    onKey(Qt::Key_C, [=] { color->ChangeColor(); });
    onKey(Qt::Key_T, [&] { window.setCurrentIndex(1 - window.currentIndex()); });
    for (const Qt::Key key : {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3})
        onKey(key, [=] { plot->Choose(key); });
    window.setWindowTitle(openGlTitle);
    window.resize(openGlWidth, openGlHeight);
    window.show();
    return QApplication::exec();
}
