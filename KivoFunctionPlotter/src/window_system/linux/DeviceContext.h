// Device contexts, of windows and in memory.
#pragma once

#include "GdiObjects.h"
#include "TextLine.h"
#include "Win32Names.h"

#include <optional>
#include <thread>

namespace KivoDrawingTools {

/// What an operation draws through: a window, or the bitmap selected into a memory device context. Text is
/// always black on opaque white.
struct DeviceContext {
    /// A line that has been measured, kept to be drawn without shaping it again.
    struct MeasuredLine {
        TextLine line;
        std::thread::id thread; // on which alone it is used, as its font map is
    };

    /// A device context of the window, or in memory when the window is null.
    explicit DeviceContext(NativeWindow* owner);
    ~DeviceContext();
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;

    NativeWindow* const window;
    int dotsPerInch = 96;                     // of a memory device context; a window is asked
    BitmapObject ownBitmap;                   // 1 x 1, selected until another bitmap is
    FontObject* font;                         // never null
    BitmapObject* bitmap;                     // null with a window
    BrushObject* brush;                       // never null
    std::optional<MeasuredLine> measuredLine; // in the font that is selected
};

/// The live device context, or null with the failure recorded in the operation's name.
DeviceContext* ValidDc(HDC dc, const char* operation);
/// The live window that the device context belongs to, or null with the failure recorded.
NativeWindow* WindowOfDc(HDC dc, const char* operation);
/// The live memory device context, or null with the failure recorded.
DeviceContext* MemoryDc(HDC dc, const char* operation);

} // namespace KivoDrawingTools
