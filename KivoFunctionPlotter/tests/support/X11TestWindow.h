// A host's window on an X11 display, for tests: of any visual and size, with input injected by XTEST, its
// events and what the screen shows of it.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace KivoTest {

/// A visual of the display's default screen.
struct XTestVisual {
    xcb_visualid_t id;
    int visualClass; // XCB_VISUAL_CLASS_...
    int depth;
};

/// Whether the environment names a display; tests of X11 windows skip otherwise.
bool HasDisplay();

/// The host's half: its own connection and one mapped window, destroyed with the object.
class X11TestWindow {
public:
    struct Options {
        int x = 0;
        int y = 0;
        int width = 320;
        int height = 240;
        xcb_visualid_t visual = 0; ///< 0: that of the root window
        std::uint32_t eventMask = 0;
        std::string display; ///< empty: the one that the environment names
        bool inputOnly = false;
    };

    X11TestWindow() : X11TestWindow(Options()) {}
    explicit X11TestWindow(const Options& options);
    ~X11TestWindow();
    X11TestWindow(const X11TestWindow&) = delete;
    X11TestWindow& operator=(const X11TestWindow&) = delete;

    /// Whether the window was made.
    bool Ok() const { return m_window != XCB_NONE; }
    unsigned long Id() const { return m_window; }
    xcb_connection_t* Connection() const { return m_connection; }
    const xcb_screen_t& Screen() const { return *m_screen; }
    /// The visuals of the screen whose windows have a colormap, one of each class and depth.
    std::vector<XTestVisual> Visuals() const;

    void Resize(int width, int height);
    void Destroy();
    /// The windows inside this one.
    std::vector<xcb_window_t> Children() const;

    /// Moves the pointer to a place in the window.
    void MovePointer(int x, int y);
    /// Presses or releases a button, 1 to 3.
    void Button(int button, bool down);
    /// Presses or releases a key by its keycode; the window has the focus.
    void Key(int keycode, bool down);
    /// Waits for the next event of this type; false where it does not come in time.
    bool WaitForEvent(int type, xcb_generic_event_t& event);

    /// What the screen shows of the window, RGBA, top row first; empty when it cannot be read. For visuals
    /// with channels the colours are taken from the pixel's masks, otherwise from the window's colormap.
    std::vector<std::uint8_t> Grab() const;
    /// Sets the root window's resources, from which desktop settings such as Xft.dpi are read.
    void SetResources(const std::string& text);

private:
    void FakeInput(std::uint8_t type, std::uint8_t detail, int x, int y);

    xcb_connection_t* m_connection = nullptr;
    const xcb_screen_t* m_screen = nullptr;
    xcb_window_t m_window = XCB_NONE;
    xcb_colormap_t m_colormap = XCB_NONE;
    xcb_visualid_t m_visual = 0;
};

/// A private X server without a screen, which a test may end.
class PrivateXServer {
public:
    /// @param screen  size and depth, for example "640x480x24"
    /// @param smallRequests  whether requests are limited to 4 MiB, a quarter of what is usual
    explicit PrivateXServer(const std::string& screen, bool smallRequests = false);
    ~PrivateXServer() { Kill(); }
    PrivateXServer(const PrivateXServer&) = delete;
    PrivateXServer& operator=(const PrivateXServer&) = delete;

    /// The display's name, for example ":5"; empty when the server did not start.
    const std::string& Display() const { return m_display; }
    void Kill();
    /// Ends it, and starts another one of the same name.
    void Replace();

private:
    void Start();

    std::string m_screen;
    bool m_smallRequests;
    int m_process = -1;
    std::string m_display;
};

} // namespace KivoTest
