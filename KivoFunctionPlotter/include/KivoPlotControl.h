// The plot as a Windows control: a window class for dialogs and windows of any toolkit, with styles, messages
// and notifications as the system's own controls have them. On Windows alone.
//
// A left or right drag turns the plot, a middle one shifts it; with Ctrl they zoom, with Shift they shift.
// Wheel and pinch zoom at the pointer. Arrows turn, with Shift they shift; + and - zoom, Home goes back to
// the start view, 0 to 3 choose the plot. A right click opens a menu, WM_COPY copies the picture,
// WM_PRINTCLIENT draws it. The text of the window is the control's name for those who do not see it.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

/// The class of the control.
constexpr char kivoPlotClassName[] = "KivoFunctionPlotter";

/// Registers the class for all modules of the process, so that dialog resources may name it.
/// @param instance  the module that stays loaded as long as there are such controls
/// @return 0, also where it is registered already; -1: GetLastError() says why
KIVO_API int RegisterKivoPlotClass(HINSTANCE instance);

// ---- Styles, beside those of all windows

/// Frames are shown as images instead of being drawn in the window: below other windows, layered ones and
/// drawings of the host's, where OpenGL does not reach.
constexpr DWORD KPS_IMAGE = 0x0001;
/// A right click opens no menu; the parent gets WM_CONTEXTMENU.
constexpr DWORD KPS_NOMENU = 0x0002;
/// Texts, axes and ground have the system's colours of text and windows. Taken off again, the style leaves
/// those of a new plot.
constexpr DWORD KPS_SYSTEMCOLORS = 0x0004;
/// Drags and arrows keep Z upright.
constexpr DWORD KPS_UPRIGHT = 0x0008;

// ---- Messages

/// What KPM_SETGRID takes.
struct SKivoGrid {
    const float* points;  ///< x, y, z of each, the first row's first; copied
    unsigned int columns; ///< points in a row
    unsigned int rows;    ///< number of rows
};

/// @return the control's CKivoFunctionPlotter*, bound already; KPM_UPDATE shows what is set of it. It goes
/// with
///         the control
constexpr UINT KPM_GETPLOTTER = WM_USER + 1;
/// lParam: a SKivoGrid*. @return 0; -3 for null and counts of 0, -1 without memory
constexpr UINT KPM_SETGRID = WM_USER + 2;
/// Shows what has been set of the plotter. @return 0
constexpr UINT KPM_UPDATE = WM_USER + 3;
/// wParam: the size of a buffer; lParam: a char* that receives why nothing is drawn, empty where it is.
/// @return the length of these words
constexpr UINT KPM_GETFAILURE = WM_USER + 4;
/// Writes the picture that is shown, smooth, as PNG. lParam: the file's name, a const wchar_t*.
/// @return 0; -1 where it cannot be drawn or written, -3 for null
constexpr UINT KPM_SAVEPICTURE = WM_USER + 5;

// ---- Notifications: WM_NOTIFY to the parent

/// The point under the pointer in trace mode has changed: lParam is a SKivoTraced*.
constexpr UINT KPN_TRACED = 0U - 3001U;
/// The hand has turned, shifted or zoomed the plot, or switched to another one: lParam is an NMHDR*.
constexpr UINT KPN_VIEWCHANGED = 0U - 3002U;
/// The plot cannot be drawn; the control shows the words: lParam is an NMHDR*.
constexpr UINT KPN_FAILED = 0U - 3003U;

/// What KPN_TRACED brings.
struct SKivoTraced {
    NMHDR header;   ///< of any notification
    BOOL isTraced;  ///< whether there is a point
    float point[3]; ///< x, y, z in data coordinates
};

} // namespace KivoDrawingTools
