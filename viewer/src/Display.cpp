#include "Display.h"

#include "Failure.h"

#include <QByteArray>
#include <QFile>
#include <QLibraryInfo>

#include <xcb/xcb.h>

#include <string>

namespace KivoViewer {

void ChooseDisplay() {
    const std::string wayOut = "; set DISPLAY or use --picture FILE.png";
    const std::string display = qgetenv("DISPLAY").toStdString();
    if (display.empty()) throw Failure("no display" + wayOut);

    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool failed = xcb_connection_has_error(connection) != 0;
    xcb_disconnect(connection);
    if (failed) throw Failure("cannot open display " + display + wayOut);

    // The plotter draws into X11 windows; Wayland sessions have them through Xwayland.
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.isEmpty()) qputenv("QT_QPA_PLATFORM", "xcb");
    if (!platform.isEmpty() && !platform.startsWith("xcb"))
        throw Failure("QT_QPA_PLATFORM is " + platform.toStdString() + ", but the plot needs xcb; unset it");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM_PLUGIN_PATH") &&
        !qEnvironmentVariableIsSet("QT_PLUGIN_PATH") &&
        !QFile::exists(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/libqxcb.so"))
        throw Failure("Qt's plugin for X11 is missing; install the package qt6-qpa-plugins");
}

} // namespace KivoViewer
