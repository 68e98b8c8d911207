// The viewer as a user has it: the real program on a real display, driven by injected input and judged by
// what the screen shows. Pictures of each step go to the run's own folder.
#pragma once

#include "support/Desktop.h"
#include "support/Image.h"
#include "support/PrivateFolder.h"
#include "support/WaitFor.h"
#include "support/Xcb.h"
#include "ViewerProcess.h"

#include <gtest/gtest.h>

#include <xcb/xcb.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace KivoTest {

using KivoDrawingTools::Image;

constexpr int plotWidth = 800;
constexpr int plotHeight = 600;

/// The plot in what a window of the viewer shows: on the left, between menus, panels and status bar. Its left
/// edge shows the ground. All 0 where there is none.
ScreenArea PlotIn(const Image& window);

/// Of a pixel, whether it can only be the surface's or the legend's.
bool IsColorful(const unsigned char* rgb);

/// A text of the window, and what has it.
using Text = std::pair<std::string, std::string>;

/// Starts the viewer for each test, with a home of its own: nothing is remembered from before. Skips where
/// there is no display.
class ViewerWindow : public testing::Test {
protected:
    // An X server starts anew when the last of its clients leaves; one stays from test to test.
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    void SetUp() override;

    void TearDown() override;

    /// Starts the viewer, in place of the one before, and waits for its picture.
    void Start(const std::vector<std::string>& arguments, Environment environment = {});
    /// Both, one after the other.
    void Launch(const std::vector<std::string>& arguments, Environment environment = {});
    void WaitForPicture();

    // ---- Windows

    /// The viewer's shown windows.
    std::vector<xcb_window_t> Windows() const;

    static ScreenArea AreaOf(xcb_window_t window) { return desktop->AreaOf(window); }

    /// The viewer's shown window and, where that has been drawn, the plot in it.
    bool FindWindows();

    // ---- Pictures

    /// What the screen shows of the plot.
    Image Grab() const { return Grab(m_plotArea); }

    static Image Grab(const ScreenArea& area);

    /// Waits until the viewer has done all that it was asked by keys and mouse, and shows it.
    void Settle() const;

    /// The picture then.
    Image Settled() const;

    /// Keeps a picture, where there is one, for a person to look at.
    static void Keep(const Image& image, const std::string& step);

    /// Pixels of the rows from first to last that differ.
    static int DifferingPixels(const Image& a, const Image& b, int first, int last);

    static int CountOf(const Image& image, bool (*condition)(const unsigned char*));

    /// Does something and returns the picture afterwards, which must differ from the one before.
    Image After(const std::string& step, const std::function<void()>& action, double leastMean = 0.2);

    /// Does something that must leave the picture alone.
    void ExpectNoChange(const std::string& step, const std::function<void()>& action);

    /// Fails where the picture is not that of the start.
    void ExpectStart(const Image& image);

    // ---- Input

    static void Press(xcb_keysym_t symbol) { desktop->Press(symbol); }

    /// To a place in the plot, in steps as a hand makes them. The viewer may see several as one.
    void MoveBy(int dx, int dy);

    /// A drag from the middle of the plot.
    void Drag(PointerButton button, int dx, int dy, xcb_keysym_t modifier = 0);

    /// A step of the wheel.
    void Wheel(PointerButton direction) const {
        desktop->Click(direction);
        Rest();
    }

    /// Keeps the hand still until the plot is complete and smooth again, however slowly it is drawn here.
    void Rest() const;

    void Resize(int width, int height) { desktop->ResizeWindow(m_window, width, height); }

    /// Waits until the plot's window has changed its size.
    bool WaitForPlotSize(int width, int height);

    /// Asks the viewer to close, as the window's frame does, and waits for its end. @return its exit code
    int Close();

    // ---- Menus and dialogs

    /// All texts of the windows at this moment, in their order, of a viewer that has been started with the
    /// module KIVO_TEXTS_KEY.
    std::vector<Text> Texts();

    /// Opens a menu by its letter.
    void OpenMenu(char letter);
    /// Waits for a window of the viewer beside its main one.
    /// @param title  of the window; empty: of any title, also none
    xcb_window_t WaitForWindow(const std::string& title = {});
    /// Waits for a dialog of this title, and for it to be ready for its user, and gives it the keys.
    xcb_window_t WaitForDialog(const std::string& title);
    /// Waits for the dialog that tells of something that goes on, and gives it the keys. Its bar moves, so
    /// that the viewer does not come to rest.
    xcb_window_t WaitForProgress();
    /// Ends it by a key, which it may not be ready for at first.
    void EndProgress(xcb_window_t dialog);
    /// Waits until there is none but the main window, and gives that the keys.
    void WaitForNoDialog();
    /// Saves the session as NAME.kivo in this test's folder.
    void SaveSession(const std::string& name);
    /// Opens a file of this test's folder by the window's dialog.
    void OpenFile(const std::string& name);
    /// Presses the keys of a text of letters, digits, points, dashes and slashes.
    static void Type(const std::string& text);
    /// Presses a key while another is down.
    static void PressWith(xcb_keysym_t modifier, xcb_keysym_t symbol);

    /// A path in this test's folder.
    std::string Path(const std::string& name) const { return m_folder.Path() + '/' + name; }

    inline static std::unique_ptr<Desktop> desktop;
    PrivateFolder m_folder; ///< the viewer's home
    std::unique_ptr<ViewerProcess> m_viewer;
    xcb_window_t m_window = XCB_NONE;
    ScreenArea m_plotArea;
    Image m_start; ///< the first picture

private:
    std::size_t m_told = 0; ///< of the viewer's output, by Texts
};

} // namespace KivoTest
