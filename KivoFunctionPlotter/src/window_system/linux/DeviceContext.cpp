#include "DeviceContext.h"

#include "LastError.h"
#include "LiveHandles.h"
#include "NativeWindow.h"

#include <cstdlib>
#include <limits>
#include <string>

namespace KivoDrawingTools {

namespace {

/// Selects an object into the slot of its kind and returns the one selected before.
template <typename Kind>
HGDIOBJ Exchange(Kind*& slot, Kind* object) {
    Kind* const before = slot;
    --before->selections;
    ++object->selections;
    slot = object;
    return before;
}

HGDIOBJ SelectBitmap(DeviceContext& dc, BitmapObject* bitmap) {
    if (dc.window) {
        Fail(ERROR_INVALID_HANDLE, "SelectObject: a window takes no bitmap; use a memory device context.");
        return nullptr;
    }
    if (bitmap != dc.bitmap && bitmap->selections > 0) {
        Fail(ERROR_BUSY,
             "SelectObject: another device context has the bitmap selected; take it out there first.");
        return nullptr;
    }
    return Exchange(dc.bitmap, bitmap);
}

} // namespace

DeviceContext::DeviceContext(NativeWindow* owner)
    : window(owner), ownBitmap(1, 1), font(&DefaultFont()), bitmap(owner ? nullptr : &ownBitmap),
      brush(&DefaultBrush()) {
    ownBitmap.owned = true;
    ++font->selections;
    ++brush->selections;
    if (bitmap) ++bitmap->selections;
    Live<DeviceContext>().Add(this);
}

DeviceContext::~DeviceContext() {
    Live<DeviceContext>().Remove(this);
    --font->selections;
    --brush->selections;
    if (bitmap) --bitmap->selections;
}

DeviceContext* ValidDc(HDC dc, const char* operation) {
    if (Live<DeviceContext>().Contains(dc)) return dc;
    const std::string words =
        std::string(operation) + ": there is no such device context; its window may have been released.";
    dc ? Fail(ERROR_INVALID_HANDLE, words) : FailFurther(ERROR_INVALID_HANDLE, words);
    return nullptr;
}

NativeWindow* WindowOfDc(HDC dc, const char* operation) {
    DeviceContext* const live = ValidDc(dc, operation);
    if (live && !live->window)
        Fail(ERROR_INVALID_HANDLE,
             std::string(operation) + ": the device context is in memory; pass a window's.");
    return live ? live->window : nullptr;
}

DeviceContext* MemoryDc(HDC dc, const char* operation) {
    DeviceContext* const live = ValidDc(dc, operation);
    if (!live || !live->window) return live;
    Fail(ERROR_NOT_SUPPORTED,
         std::string(operation) + ": nothing but OpenGL draws into a window; use a memory device context.");
    return nullptr;
}

int MulDiv(int a, int b, int c) {
    if (c == 0) return -1;
    const std::int64_t product = static_cast<std::int64_t>(a) * b;
    const std::int64_t divisor = c;
    const std::int64_t rounded = (std::llabs(product) + std::llabs(divisor) / 2) / std::llabs(divisor);
    const std::int64_t result = (product < 0) != (divisor < 0) ? -rounded : rounded;
    if (result < std::numeric_limits<int>::min() || result > std::numeric_limits<int>::max()) return -1;
    return static_cast<int>(result);
}

int GetDeviceCaps(HDC dc, int index) {
    const DeviceContext* const live = ValidDc(dc, "GetDeviceCaps");
    if (!live) return 0;
    if (index != LOGPIXELSX && index != LOGPIXELSY)
        return Fail(ERROR_INVALID_PARAMETER,
                    "GetDeviceCaps: only dots per inch are known; ask for LOGPIXELSX or Y.");
    return live->window ? live->window->DotsPerInch() : live->dotsPerInch;
}

HDC CreateCompatibleDC(HDC dc) {
    const DeviceContext* const model = ValidDc(dc, "CreateCompatibleDC");
    if (!model) return nullptr;
    auto* const memory = new DeviceContext(nullptr);
    memory->dotsPerInch = model->window ? model->window->DotsPerInch() : model->dotsPerInch;
    return memory;
}

BOOL DeleteDC(HDC dc) {
    if (!MemoryDc(dc, "DeleteDC")) return 0;
    delete dc;
    return 1;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
    DeviceContext* const live = ValidDc(dc, "SelectObject");
    if (!live) return nullptr;
    if (auto* const font = ObjectAs<FontObject>(object)) {
        live->measuredLine.reset();
        return Exchange(live->font, font);
    }
    if (auto* const brush = ObjectAs<BrushObject>(object)) return Exchange(live->brush, brush);
    if (auto* const bitmap = ObjectAs<BitmapObject>(object)) return SelectBitmap(*live, bitmap);
    Fail(ERROR_INVALID_HANDLE, "SelectObject: there is no such object; pass a live font, bitmap or brush.");
    return nullptr;
}

} // namespace KivoDrawingTools
