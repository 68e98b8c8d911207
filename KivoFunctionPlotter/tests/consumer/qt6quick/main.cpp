// Shows a plot in a window of Qt Quick, and looks whether it is there. With an argument the QML module is
// found by its plugin.
#include <KivoPlotItem.h>
#include <KivoVersion.h>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    if (argc == 1) KivoPlotItem::registerType();
    QQmlApplicationEngine engine;
    if (argc > 1) engine.addImportPath(argv[1]);
    engine.loadData(
        "import QtQuick; import Kivo; Window { width: 320; height: 240; visible: true;"
        "KivoPlotItem { anchors.fill: parent; columns: 2; points: [0,0,0, 1,0,1, 0,1,1, 1,1,0] } }");
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (!window) return 1;
    bool isDrawn = false;
    const auto look = [&] {
        const QImage shown = window->grabWindow();
        for (int x = 0; x < shown.width(); ++x)
            isDrawn = isDrawn || shown.pixel(x, shown.height() / 2) != shown.pixel(0, 0);
        QGuiApplication::quit();
    };
    QObject::connect(window, &QQuickWindow::frameSwapped, window, look, Qt::QueuedConnection);
    QTimer::singleShot(20000, window, &QGuiApplication::quit);
    std::printf("%s\n", KIVO_VERSION);
    QGuiApplication::exec();
    return isDrawn ? 0 : 1;
}
