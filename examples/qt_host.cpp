// A plot in a window of Qt 6, by the control.
#include "Hill.h"

#include <KivoPlotWidget.h>

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    // [docs: control]
    const std::vector<float> points = HillPoints();
    KivoPlotWidget plot;
    plot.setGrid(points.data(), hillColumns, hillRows);
    plot.resize(900, 600);
    plot.show();
    // [docs: end]
    plot.setWindowTitle(hillTitle);
    return QApplication::exec();
}
