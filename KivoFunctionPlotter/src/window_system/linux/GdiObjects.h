// Fonts, bitmaps and brushes.
#pragma once

#include "TextLine.h"
#include "Win32Names.h"

#include <atomic>
#include <mutex>
#include <vector>

namespace KivoDrawingTools {

/// What all selectable objects have.
struct GdiObject {
    GdiObject();
    virtual ~GdiObject();
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    std::atomic<int> selections{0}; // device contexts that have it selected
    bool owned = false;             // by a device context or the layer: DeleteObject leaves it alone
};

struct FontObject final : GdiObject {
    explicit FontObject(const LOGFONTA& logFont) : description(logFont) {}
    /// Measured at first use; device contexts of several threads may have the font selected.
    const FontMeasures& Measures(Smoothing smoothing) const;

    const LOGFONTA description;

private:
    mutable std::once_flag m_measured[2]; // by smoothing
    mutable FontMeasures m_measures[2] = {};
};

struct BitmapObject final : GdiObject {
    BitmapObject(int columns, int rows);
    LONG width;
    LONG height;
    std::vector<std::uint32_t> pixels; // 0x00RRGGBB, top row first
};

struct BrushObject final : GdiObject {
    explicit BrushObject(COLORREF rgb) : color(rgb) {}
    COLORREF color; // 0x00BBGGRR
};

/// The live object as the kind asked for, or null.
template <typename Kind>
Kind* ObjectAs(HGDIOBJ object);

/// What a new device context has selected. Never destroyed, for device contexts may live as long as the
/// process.
FontObject& DefaultFont();
BrushObject& DefaultBrush();

} // namespace KivoDrawingTools
