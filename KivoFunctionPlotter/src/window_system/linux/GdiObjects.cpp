#include "GdiObjects.h"

#include "LastError.h"
#include "LiveHandles.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

namespace KivoDrawingTools {

namespace {

constexpr int largestBitmapSide = 32767; // what Cairo can draw on

LOGFONTA DefaultFontDescription() {
    LOGFONTA description{};
    description.lfHeight = -12;
    std::strcpy(description.lfFaceName, "Sans");
    return description;
}

/// Marks an object as one that no operation may delete.
template <typename Kind>
Kind* Owned(Kind* object) {
    object->owned = true;
    return object;
}

template <typename Description>
int CopyDescription(const Description& source, int size, void* target) {
    if (!target) return sizeof source;
    const int bytes = std::clamp(size, 0, static_cast<int>(sizeof source));
    std::memcpy(target, &source, static_cast<std::size_t>(bytes));
    return bytes;
}

} // namespace

GdiObject::GdiObject() {
    Live<GdiObject>().Add(this);
}

GdiObject::~GdiObject() {
    Live<GdiObject>().Remove(this);
}

const FontMeasures& FontObject::Measures(Smoothing smoothing) const {
    const auto index = static_cast<std::size_t>(smoothing);
    std::call_once(m_measured[index], [&] { m_measures[index] = MeasureFont(description, smoothing); });
    return m_measures[index];
}

BitmapObject::BitmapObject(int columns, int rows)
    : width(columns), height(rows),
      pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

template <typename Kind>
Kind* ObjectAs(HGDIOBJ object) {
    return Live<GdiObject>().Contains(object) ? dynamic_cast<Kind*>(object) : nullptr;
}

template GdiObject* ObjectAs<GdiObject>(HGDIOBJ object);
template FontObject* ObjectAs<FontObject>(HGDIOBJ object);
template BitmapObject* ObjectAs<BitmapObject>(HGDIOBJ object);
template BrushObject* ObjectAs<BrushObject>(HGDIOBJ object);

FontObject& DefaultFont() {
    static auto* const font = Owned(new FontObject(DefaultFontDescription()));
    return *font;
}

BrushObject& DefaultBrush() {
    static auto* const brush = Owned(new BrushObject(0xFFFFFF));
    return *brush;
}

HFONT CreateFontIndirectA(const LOGFONTA* description) {
    if (!description) {
        Fail(ERROR_INVALID_PARAMETER, "CreateFontIndirect: there is no description; pass a LOGFONT.");
        return nullptr;
    }
    return new FontObject(*description);
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return new BrushObject(color);
}

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
    if (!dc || width < 1 || height < 1 || width > largestBitmapSide || height > largestBitmapSide) {
        Fail(ERROR_INVALID_PARAMETER, "CreateCompatibleBitmap: the device context is null or the size is not "
                                      "1 to 32767; pass both.");
        return nullptr;
    }
    try {
        return new BitmapObject(width, height);
    } catch (const std::bad_alloc&) {
        Fail(ERROR_NOT_ENOUGH_MEMORY,
             "CreateCompatibleBitmap: there is not enough memory; ask for a smaller one.");
        return nullptr;
    }
}

BOOL DeleteObject(HGDIOBJ object) {
    GdiObject* const live = ObjectAs<GdiObject>(object);
    if (!live)
        return Fail(ERROR_INVALID_HANDLE, "DeleteObject: there is no such object; pass a live handle.");
    if (live->owned) return 1;
    if (live->selections > 0)
        return Fail(ERROR_BUSY,
                    "DeleteObject: a device context has the object selected; select another first.");
    delete live;
    return 1;
}

int GetObjectA(HGDIOBJ object, int size, void* description) {
    if (const auto* const bitmap = ObjectAs<BitmapObject>(object)) {
        BITMAP answer{};
        answer.bmWidth = bitmap->width;
        answer.bmHeight = bitmap->height;
        answer.bmWidthBytes = bitmap->width * 4;
        answer.bmPlanes = 1;
        answer.bmBitsPixel = 32;
        return CopyDescription(answer, size, description);
    }
    if (const auto* const font = ObjectAs<FontObject>(object))
        return CopyDescription(font->description, size, description);
    return Fail(ERROR_INVALID_HANDLE, "GetObject: there is no such bitmap or font; pass a live handle.");
}

LONG GetBitmapBits(HBITMAP bitmap, LONG size, void* bits) {
    const auto* const live = ObjectAs<BitmapObject>(bitmap);
    if (!live || !bits || size < 0)
        return Fail(ERROR_INVALID_PARAMETER,
                    "GetBitmapBits: bitmap, buffer or size is missing; pass all three.");
    const auto bytes = std::min(live->pixels.size() * 4, static_cast<std::size_t>(size));
    std::memcpy(bits, live->pixels.data(), bytes);
    return static_cast<LONG>(bytes);
}

} // namespace KivoDrawingTools
