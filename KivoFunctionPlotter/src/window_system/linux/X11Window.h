// A host's window on an X11 display.
#pragma once

#include "NativeWindow.h"
#include "XChildWindow.h"
#include "XConnection.h"
#include "XImagePresenter.h"

#include <memory>
#include <vector>

namespace KivoDrawingTools {

/// Draws, in this order of preference, into the window itself, into a child of a visual that can draw OpenGL,
/// or into memory from where the pixels are sent to the window.
class X11Window final : public NativeWindow {
public:
    /// @return null, with the failure recorded, when the window cannot be drawn to
    static std::unique_ptr<X11Window> Attach(std::shared_ptr<XConnection> connection, xcb_window_t window);

    ~X11Window() override;

    bool MeasureClient(SIZE& size) override;
    bool LocateOnScreen(POINT& origin) override;
    int DotsPerInch() override { return m_connection->DotsPerInch(m_screen->root); }
    bool Follow() override;
    bool Present(const SIZE& client) override;
    bool IsDoubleBuffered() const override { return true; }
    bool IsOnScreen() const override { return true; }

protected:
    std::vector<EGLConfig> FittingConfigs() const override;
    EGLSurface MakeSurface(EGLConfig config) override;

private:
    /// Where and how the picture is shown.
    struct Target {
        std::shared_ptr<EglDisplay> display;
        XVisual visual;       // of the window or the child that shows it
        bool isChild = false; // in a child
        bool isSent = false;  // by sending pixels
    };
    static bool FindTarget(const std::shared_ptr<XConnection>& connection, const xcb_screen_t& screen,
                           int number, xcb_visualid_t own, Target& target);

    X11Window(std::shared_ptr<XConnection> connection, xcb_window_t window, const xcb_screen_t* screen,
              Target target, xcb_colormap_t colormap);
    bool FollowWithChild(const SIZE& client);
    bool RenewSurface();

    std::shared_ptr<XConnection> m_connection;
    const xcb_window_t m_window;
    const xcb_screen_t* const m_screen;
    const Target m_target;
    const xcb_colormap_t m_colormap; // the window's own
    XChildWindow m_child;
    std::unique_ptr<XImagePresenter> m_presenter;
    SIZE m_surfaceSize{};       // when it was made or first used after a picture
    bool m_isPresented = false; // and the surface not been used since
};

} // namespace KivoDrawingTools
