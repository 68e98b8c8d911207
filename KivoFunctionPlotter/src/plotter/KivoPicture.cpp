#include "KivoPicture.h"

#include "drawing/GLScopes.h"
#include "PictureDrawing.h"
#include "ViewState.h"
#include "window_system/Failure.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>

namespace KivoDrawingTools {

namespace {

constexpr int largestPictureSide = 16384;
constexpr float largestPictureScale = 8.0f;
constexpr float largestScaleInAll = 32.0f;
constexpr int stopped = -4;

// Makes a plotter's context current for the life of the object.
class PlotterContext : public ContextScope {
public:
    explicit PlotterContext(const CKivoFunctionPlotter& plotter)
        : ContextScope(PictureAccess::Dc(plotter), PictureAccess::Context(plotter)) {}
    bool IsUsable() const { return wglGetCurrentContext() != nullptr; }
};

bool IsSide(int side) {
    return side >= 1 && side <= largestPictureSide;
}

PictureTarget TargetOf(std::vector<unsigned char>& rgba, int width) {
    return {rgba.data(), std::ptrdiff_t{width} * 4, GL_RGBA};
}

std::vector<unsigned char> PixelsOf(int width, int height) {
    return std::vector<unsigned char>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
}

// In the window itself, in tiles of its size.
void DrawInWindow(CKivoFunctionPlotter& plotter, int width, int height, const SIZE& tile,
                  const PictureTarget& target) {
    const ViewScope shown(plotter);
    ViewAccess::LayOut(plotter, width, height);
    const ViewState whole = ViewAccess::Save(plotter);
    const PlotterContext context(plotter);
    const int columns = static_cast<int>(tile.cx);
    const int rows = static_cast<int>(tile.cy);
    for (int y = 0; y < height; y += rows)
        for (int x = 0; x < width; x += columns) {
            ViewState view = whole;
            view.ShiftTo(x, y);
            ViewAccess::Restore(plotter, view);
            ViewAccess::ApplyVolume(plotter);
            PictureAccess::Draw(plotter);
            ReadPart(PictureAccess::Store(plotter), target, height,
                     {x, y, std::min(columns, width - x), std::min(rows, height - y), 1});
        }
}

// Pictures that are smoothed, scaled or transparent.
int DrawPlanned(CKivoFunctionPlotter& plotter, const PicturePlan& plan, const PictureTarget& target) {
    if (!PlotterContext(plotter).IsUsable()) return -1;
    return PictureAccess::DrawBeside(plotter, plan, target) ? 0 : -1;
}

// Whether there is the memory for a smooth picture of a smooth window; its frames, too, are drawn plain
// without.
bool DrawSmoothed(CKivoFunctionPlotter& plotter, int width, int height, bool isLaidOut,
                  const PictureTarget& target) {
    const int smoothing = PictureAccess::WindowSmoothing(plotter);
    if (smoothing == 1) return false;
    const KeepFailure keep;
    try {
        return DrawPlanned(plotter, {width, height, 1.0f, smoothing, false, isLaidOut, false}, target) == 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

int RefuseForMemory() {
    RecordFailure(ERROR_NOT_ENOUGH_MEMORY,
                  "Picture: there is not enough memory for this size; ask for a smaller one.");
    return -1;
}

bool AreWithinLimits(const CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options) {
    const bool isScale = options.scale > 0.0f && options.scale <= largestPictureScale; // no number is none
    const float scaleInAll = PictureAccess::PixelScale(plotter) * options.scale;
    return isScale && scaleInAll > 0.0f && scaleInAll <= largestScaleInAll && options.smoothing >= 1 &&
           options.smoothing <= 4 && options.width >= 0 && options.height >= 0;
}

// A size that is given, or else the window's.
int SideOf(int given, int windowSide, float scale) {
    if (given != 0) return given;
    return static_cast<int>(std::lround(static_cast<float>(windowSide) * scale));
}

int PlanOf(const CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options, PicturePlan& plan) {
    if (!AreWithinLimits(plotter, options)) return -3;
    int windowWidth = 0;
    int windowHeight = 0;
    if (!PictureAccess::WindowSize(plotter, windowWidth, windowHeight)) return -1;
    plan.width = SideOf(options.width, windowWidth, options.scale);
    plan.height = SideOf(options.height, windowHeight, options.scale);
    plan.scale = options.scale;
    plan.smoothing = options.smoothing;
    plan.isTransparent = options.transparent;
    plan.isMoving = options.moving;
    plan.isLaidOut = plan.width == windowWidth && plan.height == windowHeight;
    return IsSide(plan.width) && IsSide(plan.height) ? 0 : -3;
}

} // namespace

int CapturePicture(CKivoFunctionPlotter& plotter, std::vector<unsigned char>& rgba, int& width, int& height) {
    const HostContextScope host(nullptr); // in windows on a screen, too: nothing is presented
    int windowWidth = 0;
    int windowHeight = 0;
    if (!PictureAccess::WindowSize(plotter, windowWidth, windowHeight)) return -1;
    std::vector<unsigned char> picture = PixelsOf(windowWidth, windowHeight);
    const PictureTarget target = TargetOf(picture, windowWidth);
    if (!DrawSmoothed(plotter, windowWidth, windowHeight, true, target)) {
        const PlotterContext context(plotter);
        if (!context.IsUsable()) return -1;
        PictureAccess::Draw(plotter);
        ReadPart(PictureAccess::Store(plotter), target, windowHeight, {0, 0, windowWidth, windowHeight, 1});
    }
    rgba.swap(picture);
    width = windowWidth;
    height = windowHeight;
    return 0;
}

int CapturePicture(CKivoFunctionPlotter& plotter, int wantedWidth, int wantedHeight,
                   std::vector<unsigned char>& rgba) {
    if (!IsSide(wantedWidth) || !IsSide(wantedHeight)) return -3;
    const HostContextScope host(nullptr);
    int tileWidth = 0;
    int tileHeight = 0;
    if (!PictureAccess::WindowSize(plotter, tileWidth, tileHeight)) return -1;
    std::vector<unsigned char> picture = PixelsOf(wantedWidth, wantedHeight);
    const PictureTarget target = TargetOf(picture, wantedWidth);
    if (!PlotterContext(plotter).IsUsable()) return -1;
    if (!DrawSmoothed(plotter, wantedWidth, wantedHeight, false, target))
        DrawInWindow(plotter, wantedWidth, wantedHeight, {tileWidth, tileHeight}, target);
    rgba.swap(picture);
    return 0;
}

int MeasurePicture(const CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options, int& width,
                   int& height) {
    PicturePlan plan = {};
    const int result = PlanOf(plotter, options, plan);
    if (result != 0) return result;
    width = plan.width;
    height = plan.height;
    return 0;
}

int DrawPicture(CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options, unsigned char* pixels,
                std::size_t rowBytes, KivoPixelOrder order) {
    PicturePlan plan = {};
    const int result = PlanOf(plotter, options, plan);
    if (result != 0) return result;
    constexpr std::size_t longest = std::numeric_limits<std::ptrdiff_t>::max();
    const bool isLong = rowBytes >= static_cast<std::size_t>(plan.width) * 4;
    if (!pixels || !isLong || rowBytes > longest / static_cast<std::size_t>(plan.height)) return -3;
    const HostContextScope host(nullptr);
    const GLenum glOrder = order == KivoPixelOrder::bgra ? GL_BGRA : GL_RGBA;
    try {
        const StopScope stop(plotter, options.stop);
        const int drawn =
            DrawPlanned(plotter, plan, {pixels, static_cast<std::ptrdiff_t>(rowBytes), glOrder});
        return drawn == 0 && stop.WasStopped() ? stopped : drawn;
    } catch (const std::bad_alloc&) {
        return RefuseForMemory();
    }
}

int CapturePicture(CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options,
                   std::vector<unsigned char>& rgba, int& width, int& height) {
    PicturePlan plan = {};
    int result = PlanOf(plotter, options, plan);
    if (result != 0) return result;
    try {
        std::vector<unsigned char> picture = PixelsOf(plan.width, plan.height);
        result = DrawPicture(plotter, options, picture.data(), static_cast<std::size_t>(plan.width) * 4,
                             KivoPixelOrder::rgba);
        if (result != 0) return result;
        rgba.swap(picture);
    } catch (const std::bad_alloc&) {
        return RefuseForMemory();
    }
    width = plan.width;
    height = plan.height;
    return 0;
}

int TakeView(CKivoFunctionPlotter& plotter, const CKivoFunctionPlotter& shown) {
    const ViewState view = ViewAccess::Save(shown);
    if (view.plotViewport[2] <= 0 || view.plotViewport[3] <= 0) return -3;
    int width = 0;
    int height = 0;
    if (!PictureAccess::WindowSize(plotter, width, height)) return -1;
    const PlotterContext context(plotter);
    if (!context.IsUsable()) return -1;
    ViewAccess::Restore(plotter, view);
    ViewAccess::ApplyCamera(plotter);
    return 0;
}

} // namespace KivoDrawingTools
