// How a host gets the window handle that CKivoFunctionPlotter::OnCreate takes, where the platform has none of
// its own, and windows without a screen on every platform.
//
// A window handle is released after the plotter's OnDestroy. All functions are called on the thread that uses
// the window; windows of different threads are independent of each other. A host's own OpenGL context stays
// current.
#pragma once

#include "KivoPlatform.h"

namespace KivoDrawingTools {

#if !defined(_WIN32)
/// Attaches to an X11 window that the host owns. The plotter talks to the display over a connection of its
/// own, which all windows that a thread attaches to there share; it closes with the last of them. Attach in
/// the thread that draws: other threads have connections of their own.
///
/// A connection whose server has ended is lost for its windows, and their operations fail; a window that is
/// attached afterwards gets a new one.
///
/// Any visual will do: where the window's own visual cannot draw OpenGL with a depth buffer, the picture is
/// shown in a child window of a fitting visual that follows the host window's size and lets all input
/// through.
/// @param window       the window's XID
/// @param displayName  the display, for example ":0"; null for the one that the environment names
/// @return the handle, or null: LastWindowError() says why. Handing null to OnCreate gives -1 and keeps
///         those words.
KIVO_API HWND AttachX11Window(unsigned long window, const char* displayName = nullptr);
#endif

/// Makes a window without a screen. Elsewhere than on Windows no display server is needed; on Windows it is a
/// hidden window.
/// @param width   of the client area in pixels, 1 to 16384
/// @param height  of the client area in pixels, 1 to 16384
/// @param dpi     dots per inch that text is sized for, 1 to 1200
/// @return the handle, or null: LastWindowError() says why
KIVO_API HWND CreateOffscreenWindow(int width, int height, int dpi = 96);

/// Changes the size of a window made by CreateOffscreenWindow; call the plotter's OnSize afterwards. The
/// picture drawn so far is lost.
/// @param window  made by CreateOffscreenWindow
/// @param width   in pixels, 1 to 16384
/// @param height  in pixels, 1 to 16384
/// @return 0, or -1 when the handle or the size is refused or the memory is not there; the window is then
///         as before
KIVO_API int ResizeOffscreenWindow(HWND window, int width, int height);

/// Changes the dots per inch of a window made by CreateOffscreenWindow; call OnDensityChanged of KivoStyle.h
/// for its plotter afterwards.
/// @param window  made by CreateOffscreenWindow
/// @param dpi     dots per inch that text is sized for, 1 to 1200
/// @return 0, or -1 when the handle or the value is refused; the window is then as before
KIVO_API int SetOffscreenDpi(HWND window, int dpi);

/// Dots per inch that a plotter in this window sizes its texts for when it is created: off-screen what the
/// window was given, in an X11 window the display's present setting Xft.dpi, 96 where there is none; on
/// Windows what the system says of the window, 96 for processes that do not say that they care.
/// @return 1 or more; 0 for a handle that is no window
KIVO_API int GetWindowDpi(HWND window);

/// Makes the frames that a plotter shows in a window smooth from the next one on: each is drawn so many times
/// as large beside the window and averaged, so that texts and lines have soft edges. The sizes of everything
/// stay. The mouse members' frames are smooth, too, as are the pictures of KivoPicture.h that have no
/// smoothing of their own. From the first such frame until the plotter's OnDestroy it takes a surface of
/// factor * factor times the window's pixels, eight bytes each, four bytes for each pixel of the window, and
/// factor * factor times the memory of the plot's texts. Where there is no memory for it,
/// frames are drawn as without.
/// @param window  made by one of the functions above, on Windows any
/// @param factor  1 to 4; 1, as a window is made, draws frames as they are. On Windows a host that destroys
///                its window itself puts it back to 1 before.
/// @return 0, or -1 when the handle or the factor is refused
KIVO_API int SetWindowSmoothing(HWND window, int factor);

/// @return what SetWindowSmoothing has set; 1 for a handle that is no window
KIVO_API int GetWindowSmoothing(HWND window);

/// Gives back a handle made by one of the functions above, after the plotter's OnDestroy. A window that the
/// host owns is never touched. Null is accepted.
/// @return 0, or -1 for a handle that is not one of those
KIVO_API int ReleaseWindow(HWND window);

/// What went wrong in the last window-system operation of this thread that failed, in one sentence that says
/// what to do about it, of at most 1023 bytes; an empty string when none has failed. An operation that
/// succeeds changes nothing, nor does one that fails because of a failure before, as all do without a window:
/// ask after a failure. The pointer is the same each time and valid as long as the thread runs, the words
/// until the next failure, so that it may be asked in the expression that holds the call.
KIVO_API const char* LastWindowError();

} // namespace KivoDrawingTools
