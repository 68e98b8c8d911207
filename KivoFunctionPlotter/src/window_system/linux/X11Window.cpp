#include "X11Window.h"

#include "KivoWindow.h"
#include "LastError.h"

#include <cstdlib>
#include <limits>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr EGLint depthNeeded = 24;
constexpr EGLint stencilNeeded = 8;
constexpr int depthWithAlpha = 32;

/// Whether pictures come out right in a visual: colours by channels, and no alpha, which a compositor would
/// take for transparency.
bool ShowsPictures(const XVisual& visual) {
    return visual.type->_class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.depth != depthWithAlpha;
}

XVisual FindVisual(const xcb_screen_t& screen, xcb_visualid_t id) {
    XVisual found;
    ForEachVisual(screen, [&](const XVisual& visual) {
        if (visual.type->visual_id == id) found = visual;
    });
    return found;
}

/// Whether EGL can draw to windows of the visual, with depth and stencil.
bool HasFullConfig(const EglDisplay& display, const std::vector<EGLConfig>& configs, xcb_visualid_t visual) {
    for (const EGLConfig config : configs) {
        if (display.Attribute(config, EGL_NATIVE_VISUAL_ID) == static_cast<EGLint>(visual) &&
            display.Attribute(config, EGL_DEPTH_SIZE) >= depthNeeded &&
            display.Attribute(config, EGL_STENCIL_SIZE) >= stencilNeeded)
            return true;
    }
    return false;
}

/// Of the visuals that show pictures and pass the test, the one nearest to 24 bits; none when there is none.
template <typename Test>
XVisual NearestTo24Bits(const xcb_screen_t& screen, Test test) {
    XVisual best;
    ForEachVisual(screen, [&](const XVisual& visual) {
        if (!ShowsPictures(visual) || !test(visual)) return;
        if (!best.type || std::abs(visual.depth - 24) < std::abs(best.depth - 24)) best = visual;
    });
    return best;
}

} // namespace

bool X11Window::FindTarget(const std::shared_ptr<XConnection>& connection, const xcb_screen_t& screen,
                           int number, xcb_visualid_t own, Target& target) {
    target.visual = FindVisual(screen, own);
    if (!target.visual.type)
        return Fail(ERROR_NOT_SUPPORTED, "X11: the screen does not list the window's visual " + Hex(own) +
                                             "; use another visual.");
    target.display = connection->EglOfScreen(number);
    if (target.display) {
        const auto configs = target.display->Configs(EGL_WINDOW_BIT);
        const auto drawable = [&](const XVisual& visual) {
            return HasFullConfig(*target.display, configs, visual.type->visual_id);
        };
        if (ShowsPictures(target.visual) && drawable(target.visual)) return true;
        const XVisual other = NearestTo24Bits(screen, drawable);
        if (other.type) {
            target.visual = other;
            target.isChild = true;
            return true;
        }
    }
    // EGL draws to no window of this screen: its pictures are sent, as pixels.
    target.isSent = true;
    target.display = EglDisplay::WithoutScreen();
    if (!target.display) return false;
    if (target.visual.type->_class != XCB_VISUAL_CLASS_DIRECT_COLOR && target.visual.depth != depthWithAlpha)
        return true;
    // Nobody but the host knows what is in the colormap of a DirectColor window.
    const XVisual other = NearestTo24Bits(screen, [](const XVisual&) { return true; });
    target.isChild = other.type != nullptr;
    if (target.isChild) target.visual = other;
    return true;
}

std::unique_ptr<X11Window> X11Window::Attach(std::shared_ptr<XConnection> connection, xcb_window_t window) {
    const auto request = xcb_get_window_attributes(connection->Handle(), window);
    const XReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection->Handle(), request, nullptr));
    if (!attributes) {
        connection->FailNumber(window);
        return nullptr;
    }
    if (attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) {
        Fail(ERROR_INVALID_WINDOW_HANDLE,
             "X11: window " + Hex(window) +
                 " takes input only; pass the XID of a window that shows something.");
        return nullptr;
    }
    const auto geometry = connection->Geometry(window);
    if (!geometry) return nullptr;
    int number = 0;
    const xcb_screen_t* const screen = connection->ScreenOf(geometry->root, number);
    Target target;
    if (!screen || !FindTarget(connection, *screen, number, attributes->visual, target)) return nullptr;
    return std::unique_ptr<X11Window>(
        new X11Window(std::move(connection), window, screen, std::move(target), attributes->colormap));
}

X11Window::X11Window(std::shared_ptr<XConnection> connection, xcb_window_t window, const xcb_screen_t* screen,
                     Target target, xcb_colormap_t colormap)
    : NativeWindow(target.display), m_connection(std::move(connection)), m_window(window), m_screen(screen),
      m_target(std::move(target)), m_colormap(colormap) {}

X11Window::~X11Window() {
    ReplaceSurface(EGL_NO_SURFACE); // before the child that it draws to
    m_presenter.reset();            // its colours may be the child's
    m_child.Destroy();
    xcb_flush(m_connection->Handle()); // others may go on using it, and not soon
    m_connection->DropEvents();
}

bool X11Window::MeasureClient(SIZE& size) {
    m_connection->DropEvents();
    const auto geometry = m_connection->Geometry(m_window);
    if (!geometry) return false;
    size = {geometry->width, geometry->height};
    return true;
}

bool X11Window::LocateOnScreen(POINT& origin) {
    xcb_connection_t* const x = m_connection->Handle();
    const auto request = xcb_translate_coordinates(x, m_window, m_screen->root, 0, 0);
    const XReply<xcb_translate_coordinates_reply_t> reply(
        xcb_translate_coordinates_reply(x, request, nullptr));
    if (!reply) return m_connection->FailWindow(m_window);
    origin = {reply->dst_x, reply->dst_y};
    return true;
}

std::vector<EGLConfig> X11Window::FittingConfigs() const {
    if (m_target.isSent) return Display()->Configs(EGL_PBUFFER_BIT);
    std::vector<EGLConfig> fitting;
    for (const EGLConfig config : Display()->Configs(EGL_WINDOW_BIT)) {
        if (Display()->Attribute(config, EGL_NATIVE_VISUAL_ID) ==
            static_cast<EGLint>(m_target.visual.type->visual_id))
            fitting.push_back(config);
    }
    return fitting;
}

EGLSurface X11Window::MakeSurface(EGLConfig config) {
    SIZE client{};
    if (!MeasureClient(client)) return EGL_NO_SURFACE;
    m_surfaceSize = client;
    if (m_target.isChild && !m_child.IsMade() &&
        !m_child.Make(m_connection, m_window, m_target.visual, client))
        return EGL_NO_SURFACE;
    xcb_window_t window = m_child.IsMade() ? m_child.Id() : m_window;
    if (m_target.isSent) {
        const xcb_colormap_t colormap = m_child.IsMade() ? m_child.Colormap() : m_colormap;
        m_presenter = XImagePresenter::Make(m_connection, m_target.visual, colormap);
        return m_presenter ? MakePbuffer(*Display(), config, client) : EGL_NO_SURFACE;
    }
    const EGLSurface surface = eglCreatePlatformWindowSurface(Display()->Handle(), config, &window, nullptr);
    if (surface == EGL_NO_SURFACE)
        Fail(ERROR_GEN_FAILURE,
             EglFailure("cannot draw to the window") + "; make no other OpenGL surface for it.");
    return surface;
}

bool X11Window::FollowWithChild(const SIZE& client) {
    return !m_child.IsMade() || m_child.Resize(client);
}

// A window has one surface at a time: the old one goes first.
bool X11Window::RenewSurface() {
    if (eglGetCurrentSurface(EGL_DRAW) == Surface()) return true; // in use
    ReplaceSurface(EGL_NO_SURFACE);
    const EGLSurface surface = MakeSurface(Config());
    ReplaceSurface(surface);
    return surface != EGL_NO_SURFACE;
}

bool X11Window::Follow() {
    SIZE client{};
    if (!MeasureClient(client) || !FollowWithChild(client)) return false;
    // The driver follows the size of a window by itself, but only with the first use after a picture was
    // presented.
    if (!m_target.isSent && std::exchange(m_isPresented, false)) m_surfaceSize = client;
    if (client.cx == m_surfaceSize.cx && client.cy == m_surfaceSize.cy) return true;
    if (!m_target.isSent) return RenewSurface();
    const EGLSurface surface = MakePbuffer(*Display(), Config(), client);
    if (surface == EGL_NO_SURFACE) return false;
    ReplaceSurface(surface);
    m_surfaceSize = client;
    return true;
}

bool X11Window::Present(const SIZE& client) {
    if (!FollowWithChild(client)) return false;
    if (!m_target.isSent) {
        m_isPresented = true;
        return SwapSurface();
    }
    return m_presenter->Present(m_child.IsMade() ? m_child.Id() : m_window, m_surfaceSize);
}

HWND AttachX11Window(unsigned long window, const char* displayName) {
    auto connection = XConnection::To(displayName);
    if (!connection) return nullptr;
    if (window == 0 || window > std::numeric_limits<xcb_window_t>::max()) {
        connection->FailNumber(window);
        return nullptr;
    }
    return X11Window::Attach(std::move(connection), static_cast<xcb_window_t>(window)).release();
}

} // namespace KivoDrawingTools
