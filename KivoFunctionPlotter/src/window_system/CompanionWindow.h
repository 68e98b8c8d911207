// Windows beside a plotter's own, for what is drawn larger than that.
#pragma once

#include "KivoPlatform.h"

namespace KivoDrawingTools {

/// Makes a window without a screen that the contexts of another window can draw to as well. Size, resizing
/// and release are those of off-screen windows.
/// @param dc  the other window's, with its pixel format set
/// @return null, with the failure recorded, when there is no memory for it or the driver has no such windows
HWND CreateCompanionWindow(HDC dc, int width, int height);

} // namespace KivoDrawingTools
