#include "KivoPicture.h"

#include "drawing/GLScopes.h"
#include "ViewState.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace KivoDrawingTools {

// Reaches the plotter's drawing without presenting.
struct PictureAccess {
    static HDC Dc(const CKivoFunctionPlotter& plotter) { return plotter.m_hDC; }
    static HGLRC Context(const CKivoFunctionPlotter& plotter) { return plotter.m_hGLRC; }

    static bool WindowSize(const CKivoFunctionPlotter& plotter, int& width, int& height) {
        RECT rect = {};
        if (!plotter.m_hGLRC || !GetClientRect(plotter.m_hWnd, &rect)) return false;
        width = rect.right - rect.left;
        height = rect.bottom - rect.top;
        return width > 0 && height > 0;
    }

    static void Draw(CKivoFunctionPlotter& plotter) { plotter.DrawScene(); }
};

namespace {

// Makes a plotter's context current for the life of the object.
class PlotterContext : public ContextScope {
public:
    explicit PlotterContext(const CKivoFunctionPlotter& plotter)
        : ContextScope(PictureAccess::Dc(plotter), PictureAccess::Context(plotter)) {}
    bool IsUsable() const { return wglGetCurrentContext() != nullptr; }
};

// Puts the plotter's own view back, whatever ends the scope.
class ViewScope {
public:
    explicit ViewScope(CKivoFunctionPlotter& plotter)
        : m_plotter(plotter), m_view(ViewAccess::Save(plotter)) {}
    ~ViewScope() {
        ViewAccess::Restore(m_plotter, m_view);
        const PlotterContext context(m_plotter);
        ViewAccess::ApplyVolume(m_plotter);
    }
    ViewScope(const ViewScope&) = delete;
    ViewScope& operator=(const ViewScope&) = delete;

private:
    CKivoFunctionPlotter& m_plotter;
    const ViewState m_view;
};

// Reads a rectangle from the back buffer's lower left corner into a picture whose first row is the top one.
void ReadTile(std::vector<unsigned char>& rgba, int pictureWidth, int pictureHeight, int x, int y, int width,
              int height) {
    std::vector<unsigned char> tile(static_cast<std::size_t>(width) * height * 4);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    GLint readBuffer = GL_BACK;
    glGetIntegerv(GL_READ_BUFFER, &readBuffer);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, tile.data());
    glReadBuffer(static_cast<GLenum>(readBuffer));
    glPopClientAttrib();

    for (int row = 0; row < height; ++row) {
        const std::size_t target =
            (static_cast<std::size_t>(pictureHeight - 1 - (y + row)) * pictureWidth + x) * 4;
        const unsigned char* source = tile.data() + static_cast<std::size_t>(row) * width * 4;
        std::memcpy(rgba.data() + target, source, static_cast<std::size_t>(width) * 4);
        for (int column = 0; column < width; ++column)
            rgba[target + static_cast<std::size_t>(column) * 4 + 3] = 255;
    }
}

} // namespace

int CapturePicture(CKivoFunctionPlotter& plotter, std::vector<unsigned char>& rgba, int& width, int& height) {
    const HostContextScope host(nullptr); // in windows on a screen, too: nothing is presented
    int windowWidth = 0;
    int windowHeight = 0;
    if (!PictureAccess::WindowSize(plotter, windowWidth, windowHeight)) return -1;

    const PlotterContext context(plotter);
    if (!context.IsUsable()) return -1;
    std::vector<unsigned char> picture(static_cast<std::size_t>(windowWidth) * windowHeight * 4);
    PictureAccess::Draw(plotter);
    ReadTile(picture, windowWidth, windowHeight, 0, 0, windowWidth, windowHeight);
    rgba.swap(picture);
    width = windowWidth;
    height = windowHeight;
    return 0;
}

int CapturePicture(CKivoFunctionPlotter& plotter, int wantedWidth, int wantedHeight,
                   std::vector<unsigned char>& rgba) {
    constexpr int largest = 16384;
    if (wantedWidth < 1 || wantedHeight < 1 || wantedWidth > largest || wantedHeight > largest) return -3;
    const HostContextScope host(nullptr);
    int tileWidth = 0;
    int tileHeight = 0;
    if (!PictureAccess::WindowSize(plotter, tileWidth, tileHeight)) return -1;

    std::vector<unsigned char> picture(static_cast<std::size_t>(wantedWidth) * wantedHeight * 4);
    if (!PlotterContext(plotter).IsUsable()) return -1;
    const ViewScope shown(plotter);
    ViewAccess::LayOut(plotter, wantedWidth, wantedHeight);
    const ViewState wanted = ViewAccess::Save(plotter);
    const PlotterContext context(plotter);
    for (int y = 0; y < wantedHeight; y += tileHeight)
        for (int x = 0; x < wantedWidth; x += tileWidth) {
            ViewState tile = wanted;
            tile.ShiftTo(x, y);
            ViewAccess::Restore(plotter, tile);
            ViewAccess::ApplyVolume(plotter);
            PictureAccess::Draw(plotter);
            ReadTile(picture, wantedWidth, wantedHeight, x, y, std::min(tileWidth, wantedWidth - x),
                     std::min(tileHeight, wantedHeight - y));
        }
    rgba.swap(picture);
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
