// Shows a plot in a window of Qt, and looks whether it is there.
#include <KivoPlotWidget.h>
#include <KivoVersion.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 0};
    KivoPlotWidget plot;
    plot.setGrid(points, 2, 2);
    plot.resize(320, 240);
    plot.show();
    bool isDrawn = false;
    QTimer::singleShot(0, &plot, [&] {
        const QImage shown = plot.grab().toImage();
        for (int x = 0; x < shown.width(); ++x)
            isDrawn = isDrawn || shown.pixel(x, shown.height() / 2) != shown.pixel(0, 0);
        std::printf("%s\n", KIVO_VERSION);
        QApplication::quit();
    });
    QApplication::exec();
    return isDrawn ? 0 : 1;
}
