// A plot in a window of Qt Quick, by the control.
#include "Hill.h"

#include <KivoPlotItem.h>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    // [docs: control]
    KivoPlotItem::registerType();
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick; import Kivo; Window { width: 900; height: 600; visible: true;"
                    "KivoPlotItem { objectName: 'plot'; anchors.fill: parent; focus: true } }");
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    auto* const plot = window ? window->findChild<KivoPlotItem*>("plot") : nullptr;
    if (!plot) return 1;
    const std::vector<float> points = HillPoints();
    plot->setGrid(points.data(), hillColumns, hillRows);
    // [docs: end]
    window->setTitle(hillTitle);
    return QGuiApplication::exec();
}
