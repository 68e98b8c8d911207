#include "PictureDrawing.h"

#include "computing/PixelAverage.h"
#include "drawing/GLScopes.h"
#include "ReducedSurface.h"
#include "window_system/CompanionWindow.h"
#include "window_system/Failure.h"
#include "window_system/HostContext.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace KivoDrawingTools {

namespace {

// A picture that takes no more than this is drawn in one piece: what has been read and drawn is eight bytes a
// pixel.
constexpr std::int64_t mostPixelsAtOnce = 1 << 25;
constexpr LONG longestSideAtOnce = 16384;
constexpr LONG tileWidth = 8192, tileHeight = 4096;
constexpr LONG leastTile = 256;
constexpr std::size_t stripBytes = 1 << 20; // which stay in a processor's cache
// Beyond this the smoothing goes down: texts take memory by the square of their scale.
constexpr float largestTextScale = 16.0f;
constexpr float widestText = 512.0f; // at a scale of 1

// ---- Reading back

class ReadingScope {
public:
    ReadingScope() {
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glPixelStorei(GL_PACK_ROW_LENGTH, 0);
        glPixelStorei(GL_PACK_SKIP_ROWS, 0);
        glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
        glGetIntegerv(GL_READ_BUFFER, &m_readBuffer);
        glReadBuffer(GL_BACK);
    }
    ~ReadingScope() {
        glReadBuffer(static_cast<GLenum>(m_readBuffer));
        glPopClientAttrib();
    }
    ReadingScope(const ReadingScope&) = delete;
    ReadingScope& operator=(const ReadingScope&) = delete;

private:
    GLint m_readBuffer = GL_BACK;
};

// Room for rows of so many pixels that are drawn.
void Reserve(SPictureStore& store, std::size_t drawnWidth, int factor) {
    const std::size_t rowBytes = drawnWidth * 4;
    const std::size_t leastStrip = rowBytes * static_cast<std::size_t>(factor);
    const auto grow = [](auto& room, std::size_t size) {
        if (room.size() < size) room.resize(size);
    };
    grow(store.strip, std::max(stripBytes, leastStrip));
    grow(store.sums, rowBytes);
    grow(store.row, rowBytes);
}

// Reads what has been drawn for a part of the picture, in the lower left corner of the surface, and calls
// take(target row, rows to average) for each of its rows.
template <typename Take>
void ReadRows(SPictureStore& store, const PictureTarget& target, int pictureHeight, const PicturePart& part,
              Take take) {
    const int factor = part.factor;
    const auto side = static_cast<std::size_t>(factor);
    const std::size_t drawnRow = static_cast<std::size_t>(part.width) * side * 4;
    const int most = static_cast<int>(std::max<std::size_t>(store.strip.size() / (drawnRow * side), 1));
    const ReadingScope reading;
    for (int row = 0; row < part.height && !IsStopped(store.stop); row += most) {
        const int count = std::min(most, part.height - row);
        glReadPixels(0, row * factor, part.width * factor, count * factor, store.readOrder, GL_UNSIGNED_BYTE,
                     store.strip.data());
        for (int i = 0; i < count; ++i) {
            unsigned char* const pixels =
                target.top + (pictureHeight - 1 - (part.y + row + i)) * target.rowStep + 4 * part.x;
            take(pixels,
                 AveragedRows{store.strip.data() + static_cast<std::size_t>(i) * side * drawnRow, drawnRow,
                              static_cast<unsigned int>(factor), store.readOrder != target.order});
        }
    }
}

void ReadAveraged(SPictureStore& store, const PictureTarget& target, int pictureHeight,
                  const PicturePart& part) {
    ReadRows(store, target, pictureHeight, part, [&](unsigned char* pixels, const AveragedRows& rows) {
        AverageRow(rows, static_cast<std::size_t>(part.width), store.sums.data(), pixels);
    });
}

// The target has what was drawn on black.
void ReadOpacity(SPictureStore& store, const PictureTarget& target, int pictureHeight,
                 const PicturePart& part) {
    const auto width = static_cast<std::size_t>(part.width);
    ReadRows(store, target, pictureHeight, part, [&](unsigned char* pixels, const AveragedRows& rows) {
        AverageRow(rows, width, store.sums.data(), store.row.data());
        FindOpacity(pixels, store.row.data(), width);
    });
}

void AskDriver(SPictureStore& store) {
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, store.largestViewport);
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &store.largestTexture);
    glGetFloatv(GL_LINE_WIDTH_RANGE, store.lineWidths);
    const auto* const extensions = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    if (!extensions || !std::strstr(extensions, "GL_ARB_ES2_compatibility")) return;
    constexpr GLenum ownReadOrder = 0x8B9B; // GL_IMPLEMENTATION_COLOR_READ_FORMAT
    GLint order = 0;
    glGetIntegerv(ownReadOrder, &order);
    if (order == GL_BGRA) store.readOrder = GL_BGRA;
}

// ---- What is drawn to

LONG WholeMultiple(LONG size, int factor) {
    return size / factor * factor;
}

// The picture in one piece, or its largest tile, in pixels that are drawn.
SIZE LargestTile(const SIZE& drawn, int factor) {
    const bool isWhole = drawn.cx <= longestSideAtOnce && drawn.cy <= longestSideAtOnce &&
                         static_cast<std::int64_t>(drawn.cx) * drawn.cy <= mostPixelsAtOnce;
    if (isWhole) return drawn;
    return {std::min(drawn.cx, WholeMultiple(tileWidth, factor)),
            std::min(drawn.cy, WholeMultiple(tileHeight, factor))};
}

// Another one for another size: not every system's drivers follow a window that is not shown.
bool FitWindow(SPictureStore& store, HDC dc, const SIZE& size) {
    if (store.window && store.size.cx == size.cx && store.size.cy == size.cy) return true;
    ReleaseWindow(std::exchange(store.window, nullptr));
    store.window = CreateCompanionWindow(dc, static_cast<int>(size.cx), static_cast<int>(size.cy));
    store.size = size;
    return store.window != nullptr;
}

SIZE HalfTile(const SIZE& tile, int factor) {
    const auto half = [factor](LONG side) {
        return std::max(WholeMultiple(side / 2, factor), std::min(side, WholeMultiple(leastTile, factor)));
    };
    return {half(tile.cx), half(tile.cy)};
}

// As large a tile as there is memory for, and the next time the same.
bool FindWindow(SPictureStore& store, HDC dc, const SIZE& drawn, int factor) {
    if (store.window && store.drawn.cx == drawn.cx && store.drawn.cy == drawn.cy) return true;
    KeepFailure keep; // of sizes that there is not enough memory for
    SIZE tile = LargestTile(drawn, factor);
    store.drawn = drawn;
    while (!FitWindow(store, dc, tile)) {
        if (tile.cx <= leastTile && tile.cy <= leastTile) {
            keep.Forget();
            return false;
        }
        tile = HalfTile(tile, factor);
    }
    return true;
}

// OpenGL narrows larger viewports and wider lines without a word, and refuses larger textures.
int UsableSmoothing(const SPictureStore& store, const PicturePlan& plan, float ownScale, float widestLine) {
    const float largestScale =
        std::min(largestTextScale, static_cast<float>(store.largestTexture) / widestText);
    int factor = plan.smoothing;
    const auto isTooLarge = [&] {
        const float scale = ownScale * plan.scale * static_cast<float>(factor);
        return std::int64_t{plan.width} * factor > store.largestViewport[0] ||
               std::int64_t{plan.height} * factor > store.largestViewport[1] || scale > largestScale ||
               scale * widestLine > store.lineWidths[1];
    };
    while (factor > 1 && isTooLarge())
        --factor;
    return factor;
}

// ---- Scopes

// Pixels are read and drawn as they are, whatever a derived class has set for its own.
class PlainPixelsScope {
public:
    PlainPixelsScope() {
        glPushAttrib(GL_PIXEL_MODE_BIT);
        glPixelZoom(1.0f, 1.0f);
        glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
        for (const GLenum scale : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE})
            glPixelTransferf(scale, 1.0f);
        for (const GLenum bias : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS})
            glPixelTransferf(bias, 0.0f);
    }
    ~PlainPixelsScope() { glPopAttrib(); }
    PlainPixelsScope(const PlainPixelsScope&) = delete;
    PlainPixelsScope& operator=(const PlainPixelsScope&) = delete;
};

// Nothing but what glDrawPixels is given reaches the pixels, and they start in the lower left corner.
class PixelsAloneScope {
public:
    PixelsAloneScope() {
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
        glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
        glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
        glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT | GL_VIEWPORT_BIT | GL_TRANSFORM_BIT);
        for (const GLenum test : {GL_LIGHTING, GL_DEPTH_TEST, GL_TEXTURE_2D, GL_BLEND, GL_ALPHA_TEST, GL_FOG,
                                  GL_SCISSOR_TEST, GL_STENCIL_TEST, GL_COLOR_LOGIC_OP})
            glDisable(test);
        for (const GLenum mode : {GL_PROJECTION, GL_MODELVIEW}) {
            glMatrixMode(mode);
            glPushMatrix();
            glLoadIdentity();
        }
    }
    ~PixelsAloneScope() {
        for (const GLenum mode : {GL_PROJECTION, GL_MODELVIEW}) {
            glMatrixMode(mode);
            glPopMatrix();
        }
        glPopAttrib();
        glPopClientAttrib();
    }
    PixelsAloneScope(const PixelsAloneScope&) = delete;
    PixelsAloneScope& operator=(const PixelsAloneScope&) = delete;

private:
    const PlainPixelsScope m_plainPixels;
};

// Frames load matrices of their own, which then stay; the lights of new data are placed by them.
class MatrixScope {
public:
    MatrixScope() { Do(glPushMatrix); }
    ~MatrixScope() { Do(glPopMatrix); }
    MatrixScope(const MatrixScope&) = delete;
    MatrixScope& operator=(const MatrixScope&) = delete;

private:
    template <typename Action>
    static void Do(Action action) {
        const MatrixModeScope modelView(GL_MODELVIEW);
        action();
    }
};

// Texts, and everything else that is measured in pixels, of another scale.
class ScaleScope {
public:
    ScaleScope(CKivoFunctionPlotter& plotter, TextSet& texts, float scale)
        : m_plotter(plotter), m_texts(texts), m_isOther(scale != 1.0f) {
        if (!m_isOther) return;
        m_isMade = texts.MakeScaled(plotter, scale);
        if (m_isMade) texts.Exchange(plotter);
    }
    ~ScaleScope() {
        if (m_isOther && m_isMade) m_texts.Exchange(m_plotter);
    }
    ScaleScope(const ScaleScope&) = delete;
    ScaleScope& operator=(const ScaleScope&) = delete;

    bool IsMade() const { return m_isMade; }

private:
    CKivoFunctionPlotter& m_plotter;
    TextSet& m_texts;
    bool m_isOther;
    bool m_isMade = true;
};

} // namespace

// Another ground than the plotter's own behind everything that is drawn.
class PictureAccess::Ground {
public:
    Ground(CKivoFunctionPlotter& plotter, const float* rgba) : m_plotter(plotter) {
        plotter.m_pictureGround = rgba;
    }
    ~Ground() {
        m_plotter.m_pictureGround = nullptr;
        const float* const own = m_plotter.m_backgroundColor; // which frames leave behind
        glClearColor(own[0], own[1], own[2], own[3]);
    }
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;

private:
    CKivoFunctionPlotter& m_plotter;
};

SPictureStore::~SPictureStore() {
    if (wglGetCurrentContext() != context) texts.ForgetContext();
    ReleaseWindow(window);
}

StopScope::StopScope(CKivoFunctionPlotter& plotter, const SKivoStopRequest& request)
    : m_stop(request.isWanted, request.context) {
    if (!request.isWanted) return;
    m_store = &PictureAccess::Store(plotter);
    m_store->stop = &m_stop;
}

StopScope::~StopScope() {
    if (m_store) m_store->stop = nullptr;
}

ViewScope::ViewScope(CKivoFunctionPlotter& plotter) : m_plotter(plotter), m_view(ViewAccess::Save(plotter)) {}

ViewScope::~ViewScope() {
    ViewAccess::Restore(m_plotter, m_view);
    const ContextScope context(PictureAccess::Dc(m_plotter), PictureAccess::Context(m_plotter));
    ViewAccess::ApplyVolume(m_plotter);
}

void ReadPart(SPictureStore& store, const PictureTarget& target, int pictureHeight, const PicturePart& part) {
    Reserve(store, static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.factor), part.factor);
    ReadAveraged(store, target, pictureHeight, part);
}

HDC PictureAccess::Dc(const CKivoFunctionPlotter& plotter) {
    return plotter.m_hDC;
}

HGLRC PictureAccess::Context(const CKivoFunctionPlotter& plotter) {
    return plotter.m_hGLRC;
}

bool PictureAccess::WindowSize(const CKivoFunctionPlotter& plotter, int& width, int& height) {
    RECT rect = {};
    if (!plotter.m_hGLRC || !GetClientRect(plotter.m_hWnd, &rect)) return false;
    width = static_cast<int>(rect.right - rect.left);
    height = static_cast<int>(rect.bottom - rect.top);
    return width > 0 && height > 0;
}

int PictureAccess::WindowSmoothing(const CKivoFunctionPlotter& plotter) {
    return GetWindowSmoothing(plotter.m_hWnd);
}

float PictureAccess::PixelScale(const CKivoFunctionPlotter& plotter) {
    return plotter.m_pixelScale;
}

void PictureAccess::Draw(CKivoFunctionPlotter& plotter) {
    plotter.DrawScene();
}

SPictureStore& PictureAccess::Store(CKivoFunctionPlotter& plotter) {
    SPictureStore*& store = plotter.m_pictures.store;
    if (store && store->context != plotter.m_hGLRC) ReleaseStore(plotter); // another plotter was assigned
    if (!store) {
        store = new SPictureStore;
        store->context = plotter.m_hGLRC;
    }
    return *store;
}

DrawingStop* PictureAccess::Stop(const CKivoFunctionPlotter& plotter) {
    const SPictureStore* const store = plotter.m_pictures.store;
    return store ? store->stop : nullptr;
}

void PictureAccess::ForgetTexts(CKivoFunctionPlotter& plotter) {
    SPictureStore* const store = plotter.m_pictures.store;
    if (store && store->context == plotter.m_hGLRC) store->texts.Release();
}

void PictureAccess::ReleaseStore(CKivoFunctionPlotter& plotter) {
    delete std::exchange(plotter.m_pictures.store, nullptr);
}

// Of all that are drawn, at a scale of 1.
float PictureAccess::WidestLine(const CKivoFunctionPlotter& plotter) {
    float widest = 1.0f;
    for (std::size_t i = 0; i < plotter.m_curveWidths.size(); ++i)
        if (plotter.m_curveVisible[i]) widest = std::max(widest, plotter.m_curveWidths[i]);
    return widest;
}

// A part of a picture that the surface has room for; the view is the part's.
void PictureAccess::DrawPart(CKivoFunctionPlotter& plotter, const PicturePlan& plan,
                             const PictureTarget& target, const PicturePart& part) {
    SPictureStore& store = Store(plotter);
    if (!plan.isTransparent) {
        Draw(plotter);
        ReadAveraged(store, target, plan.height, part);
        return;
    }
    // Not every surface has alpha; what shows through is the difference between two grounds.
    constexpr float black[] = {0.0f, 0.0f, 0.0f, 1.0f}, white[] = {1.0f, 1.0f, 1.0f, 1.0f};
    {
        const Ground ground(plotter, black);
        Draw(plotter);
        ReadAveraged(store, target, plan.height, part);
    }
    const Ground ground(plotter, white);
    Draw(plotter);
    ReadOpacity(store, target, plan.height, part);
}

void PictureAccess::DrawParts(CKivoFunctionPlotter& plotter, const PicturePlan& plan,
                              const PictureTarget& target, int factor) {
    const SPictureStore& store = Store(plotter);
    const int columns = static_cast<int>(store.size.cx) / factor;
    const int rows = static_cast<int>(store.size.cy) / factor;
    ViewState whole = ViewAccess::Save(plotter);
    whole.Enlarge(factor);
    for (int y = 0; y < plan.height; y += rows)
        for (int x = 0; x < plan.width; x += columns) {
            if (IsStopped(store.stop)) return;
            ViewState view = whole;
            view.ShiftTo(x * factor, y * factor);
            ViewAccess::Restore(plotter, view);
            ViewAccess::ApplyVolume(plotter);
            DrawPart(plotter, plan, target,
                     {x, y, std::min(columns, plan.width - x), std::min(rows, plan.height - y), factor});
        }
}

unsigned int PictureAccess::DetailOf(const CKivoFunctionPlotter& plotter, const PicturePlan& plan) {
    if (!plan.isMoving) return plotter.m_detailOfFrame;
    return plotter.m_mouseButtonDown ? plotter.m_detailOfDrag : plotter.m_motionDetail;
}

// Off-screen nobody sees the window, and every pixel of it is there.
bool PictureAccess::IsFrame(const CKivoFunctionPlotter& plotter, const PicturePlan& plan) {
    return plan.smoothing == 1 && plan.scale == 1.0f && !plan.isTransparent && plan.isLaidOut &&
           !IsOnScreen(plotter.m_hDC);
}

void PictureAccess::DrawAsFrame(CKivoFunctionPlotter& plotter, const PicturePlan& plan,
                                const PictureTarget& target) {
    const MatrixScope matrix;
    const PlainPixelsScope plainPixels;
    Draw(plotter);
    ReadPart(Store(plotter), target, plan.height, {0, 0, plan.width, plan.height, 1});
}

bool PictureAccess::DrawBeside(CKivoFunctionPlotter& plotter, const PicturePlan& plan,
                               const PictureTarget& target) {
    SPictureStore& store = Store(plotter);
    if (store.largestViewport[0] == 0) {
        const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
        AskDriver(store);
    }
    if (store.largestViewport[0] <= 0) return false; // there is no context
    const DetailScope detail(plotter.m_detailOfFrame, DetailOf(plotter, plan));
    if (IsFrame(plotter, plan)) {
        const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
        DrawAsFrame(plotter, plan, target);
        return true;
    }
    const int factor = UsableSmoothing(store, plan, plotter.m_pixelScale, WidestLine(plotter));
    const SIZE drawn = {LONG{plan.width} * factor, LONG{plan.height} * factor};
    if (!FindWindow(store, plotter.m_hDC, drawn, factor)) return false;
    Reserve(store, static_cast<std::size_t>(store.size.cx), factor);

    const ViewScope shown(plotter);
    if (!plan.isLaidOut) ViewAccess::LayOut(plotter, plan.width, plan.height);
    const ContextScope context(GetDC(store.window), plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return false;
    const MatrixScope matrix;
    const PlainPixelsScope plainPixels;
    const ScaleScope scale(plotter, store.texts, plan.scale * static_cast<float>(factor));
    if (scale.IsMade())
        DrawParts(plotter, plan, target, factor);
    else
        RecordFailure(ERROR_NOT_ENOUGH_MEMORY,
                      "Picture: its texts cannot be drawn; ask for a smaller scale.");
    return scale.IsMade();
}

bool PictureAccess::DrawFrameBeside(CKivoFunctionPlotter& plotter, int smoothing) {
    int width = 0;
    int height = 0;
    if (!WindowSize(plotter, width, height)) return false;
    SPictureStore& store = Store(plotter);
    const std::ptrdiff_t rowBytes = std::ptrdiff_t{width} * 4;
    const std::size_t size = static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(height);
    if (store.frame.size() < size) store.frame.resize(size);
    store.frameSize = {width, height};
    const PictureTarget target = {store.frame.data() + (height - 1) * rowBytes, -rowBytes, GL_RGBA};
    return DrawBeside(plotter, {width, height, 1.0f, smoothing, false, true, false}, target);
}

void PictureAccess::PutFrame(CKivoFunctionPlotter& plotter) {
    plotter.ApplyModelViewMatrix(); // as a frame does
    const SPictureStore& store = Store(plotter);
    const GLsizei width = static_cast<GLsizei>(store.frameSize.cx);
    const GLsizei height = static_cast<GLsizei>(store.frameSize.cy);
    const PixelsAloneScope pixelsAlone;
    glViewport(0, 0, width, height);
    glRasterPos3f(-1.0f, -1.0f, 0.0f);
    glDrawPixels(width, height, GL_RGBA, GL_UNSIGNED_BYTE, store.frame.data());
}

} // namespace KivoDrawingTools
