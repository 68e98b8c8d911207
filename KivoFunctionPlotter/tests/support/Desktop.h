// The X11 display as a user has it: the windows that programs show there, read from the screen and driven by
// injected input.
#pragma once

#include "Image.h"
#include "WaitFor.h"
#include "Xcb.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace KivoTest {

/// A connection to a display. Positions are those of the screen.
class Desktop {
public:
    /// @param display  its name; empty: the one that the environment names
    explicit Desktop(const std::string& display = {});
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// Whether there is the display.
    bool Ok() const { return m_screen != nullptr; }

    /// Waits until the display has done what it was asked before, and its events are with the programs.
    void Sync() const;
    /// Whether the display waits for something to do: it has done all that was asked by any program. Always
    /// where its server is not a process of this machine.
    bool IsIdle() const;

    // ---- Windows

    xcb_window_t Root() const { return m_screen->root; } ///< the whole screen
    std::vector<xcb_window_t> ChildrenOf(xcb_window_t window) const;
    std::string TitleOf(xcb_window_t window) const;
    /// The shown window of this title; XCB_NONE where there is none.
    xcb_window_t FindWindow(const std::string& title) const;
    /// The part of a program's window that shows the plot: the largest shown window inside it, or the window
    /// itself where none takes up half of it.
    xcb_window_t PlotIn(xcb_window_t window) const;
    bool IsShown(xcb_window_t window) const;
    /// The process that a window says it belongs to; 0 where it does not say.
    std::uint32_t ProcessOf(xcb_window_t window) const;
    ScreenArea AreaOf(xcb_window_t window) const; ///< all 0 where there is no such window
    void MoveWindow(xcb_window_t window, int x, int y);
    void ResizeWindow(xcb_window_t window, int width, int height);
    void HideWindow(xcb_window_t window);
    void ShowWindow(xcb_window_t window);
    /// What a window manager sends when the user closes a window.
    void AskToClose(xcb_window_t window);
    /// Gives the keys to a window.
    void Focus(xcb_window_t window);
    /// The resources of the root window, from which desktop settings such as Xft.dpi are read.
    std::string Resources() const;
    void SetResources(const std::string& text);
    xcb_atom_t Atom(const char* name) const;

    /// What a window within the screen shows; an empty image where it cannot be read.
    KivoDrawingTools::Image Grab(xcb_window_t window) const;
    /// The same for a part of the screen.
    KivoDrawingTools::Image Grab(const ScreenArea& area) const;

    // ---- Input

    void MovePointer(int x, int y);
    void Button(PointerButton button, bool down);
    void Click(PointerButton button); ///< press and release
    void Key(xcb_keysym_t symbol, bool down);
    void Press(xcb_keysym_t symbol); ///< and release

private:
    xcb_window_t FindShown(xcb_window_t root, const std::string& title) const;
    /// @param inside  the part of the window that is wanted
    KivoDrawingTools::Image Read(xcb_window_t window, const ScreenArea& inside) const;
    void FakeInput(std::uint8_t type, std::uint8_t detail, int x, int y);
    xcb_keycode_t CodeOf(xcb_keysym_t symbol) const;

    xcb_connection_t* m_connection = nullptr;
    const xcb_screen_t* m_screen = nullptr;
    int m_server = 0; // its process
};

} // namespace KivoTest
