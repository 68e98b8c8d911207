#include "Display.h"

#include "Failure.h"

#include "Picture.h"

#include <QByteArray>
#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QRegularExpression>

#include <xcb/xcb.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace KivoViewer {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

// The settings of the screen that a window is on, a line each.
QString ResourcesOf(xcb_connection_t* connection, xcb_window_t window) {
    constexpr std::uint32_t longest = 1U << 18; // in units of four bytes
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    if (!geometry) return {};
    const auto request = xcb_get_property(connection, 0, geometry->root, XCB_ATOM_RESOURCE_MANAGER,
                                          XCB_ATOM_STRING, 0, longest);
    const Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(connection, request, nullptr));
    if (!property) return {};
    return QString::fromLatin1(static_cast<const char*>(xcb_get_property_value(property.get())),
                               xcb_get_property_value_length(property.get()));
}

} // namespace

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

// Qt's own figure is divided by its scale factor, which the plot does not have.
int TextResolution(unsigned long window) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) return usualResolution;
    static const QRegularExpression line("^Xft\\.dpi:[ \t]*([0-9.]+)", QRegularExpression::MultilineOption);
    const QString resources = ResourcesOf(x11->connection(), static_cast<xcb_window_t>(window));
    const double dpi = line.match(resources).captured(1).toDouble();
    return dpi >= 1.0 && dpi <= maxResolution ? static_cast<int>(std::lround(dpi)) : usualResolution;
}

} // namespace KivoViewer
