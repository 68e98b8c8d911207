#include "KivoPicture.h"

#include "drawing/GLScopes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace KivoDrawingTools {

// Reaches the plotter's drawing without presenting, and lays a frame out for a size other than the window's.
struct PictureAccess {
    explicit PictureAccess(CKivoFunctionPlotter& target) : plotter(target) {}

    CKivoFunctionPlotter& plotter;

    HDC Dc() const { return plotter.m_hDC; }
    HGLRC Context() const { return plotter.m_hGLRC; }

    bool WindowSize(int& width, int& height) const {
        RECT rect = {};
        if (!plotter.m_hGLRC || !GetClientRect(plotter.m_hWnd, &rect)) return false;
        width = rect.right - rect.left;
        height = rect.bottom - rect.top;
        return width > 0 && height > 0;
    }

    void Draw() const { plotter.DrawScene(); }

    // What a frame's layout consists of.
    struct Layout {
        int clientHeight;
        int plotViewport[4];
        int legendViewport[4];
        double viewVolume[6];
        double legendViewVolume[6];
        double axisScale[3];
        double volumeTranslate[3];
        double rotation[16];
    };

    Layout Save() const {
        Layout layout = {};
        layout.clientHeight = plotter.m_clientHeight;
        std::copy(plotter.m_plotViewport, plotter.m_plotViewport + 4, layout.plotViewport);
        std::copy(plotter.m_legendViewport, plotter.m_legendViewport + 4, layout.legendViewport);
        const double volume[] = {plotter.m_viewLeft, plotter.m_viewRight, plotter.m_viewBottom,
                                 plotter.m_viewTop,  plotter.m_viewNear,  plotter.m_viewFar};
        std::copy(volume, volume + 6, layout.viewVolume);
        std::copy(plotter.m_legendViewVolume, plotter.m_legendViewVolume + 6, layout.legendViewVolume);
        std::copy(plotter.m_axisScale, plotter.m_axisScale + 3, layout.axisScale);
        std::copy(plotter.m_volumeTranslate, plotter.m_volumeTranslate + 3, layout.volumeTranslate);
        std::copy(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16, layout.rotation);
        return layout;
    }

    void Restore(const Layout& layout) const {
        plotter.m_clientHeight = layout.clientHeight;
        std::copy(layout.plotViewport, layout.plotViewport + 4, plotter.m_plotViewport);
        std::copy(layout.legendViewport, layout.legendViewport + 4, plotter.m_legendViewport);
        SetViewVolume(layout.viewVolume);
        std::copy(layout.legendViewVolume, layout.legendViewVolume + 6, plotter.m_legendViewVolume);
        std::copy(layout.axisScale, layout.axisScale + 3, plotter.m_axisScale);
        std::copy(layout.volumeTranslate, layout.volumeTranslate + 3, plotter.m_volumeTranslate);
        std::copy(layout.rotation, layout.rotation + 16, plotter.m_rotationMatrix);
    }

    void SetViewVolume(const double* volume) const {
        plotter.m_viewLeft = volume[0];
        plotter.m_viewRight = volume[1];
        plotter.m_viewBottom = volume[2];
        plotter.m_viewTop = volume[3];
        plotter.m_viewNear = volume[4];
        plotter.m_viewFar = volume[5];
    }

    // Lays out for a client area of width x height, keeping what the shorter side of the plot shows.
    void LayOut(const Layout& shown, int width, int height) const {
        plotter.Reshape(width, height);
        Layout fitted = Save();
        const auto shorterSide = [](const Layout& layout) {
            const double* volume = layout.viewVolume;
            return std::min(std::abs(volume[1] - volume[0]), std::abs(volume[3] - volume[2]));
        };
        const double zoom = shorterSide(shown) / shorterSide(fitted);
        for (int i = 0; i < 4; ++i)
            fitted.viewVolume[i] *= zoom;
        std::copy(shown.axisScale, shown.axisScale + 3, fitted.axisScale);
        std::copy(shown.volumeTranslate, shown.volumeTranslate + 3, fitted.volumeTranslate);
        Restore(fitted);
    }

    // Moves the layout so that the client point (x, y), y upwards, comes to the window's lower left corner.
    void ShiftTo(const Layout& layout, int x, int y) const {
        Restore(layout);
        plotter.m_plotViewport[0] -= x;
        plotter.m_plotViewport[1] -= y;
        plotter.m_legendViewport[0] -= x;
        plotter.m_legendViewport[1] -= y;
    }

    void LoadCamera() const { plotter.ApplyViewVolume(); }
};

namespace {

// Puts the plotter's own layout back, whatever ends the scope.
class LayoutScope {
public:
    explicit LayoutScope(const PictureAccess& access) : m_access(access), m_layout(access.Save()) {}
    ~LayoutScope() {
        m_access.Restore(m_layout);
        const ContextScope context(m_access.Dc(), m_access.Context());
        m_access.LoadCamera();
    }
    LayoutScope(const LayoutScope&) = delete;
    LayoutScope& operator=(const LayoutScope&) = delete;

    const PictureAccess::Layout& Layout() const { return m_layout; }

private:
    const PictureAccess& m_access;
    const PictureAccess::Layout m_layout;
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
    const PictureAccess access(plotter);
    int windowWidth = 0;
    int windowHeight = 0;
    if (!access.WindowSize(windowWidth, windowHeight)) return -1;

    const ContextScope context(access.Dc(), access.Context());
    if (!wglGetCurrentContext()) return -1;
    std::vector<unsigned char> picture(static_cast<std::size_t>(windowWidth) * windowHeight * 4);
    access.Draw();
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
    const PictureAccess access(plotter);
    int tileWidth = 0;
    int tileHeight = 0;
    if (!access.WindowSize(tileWidth, tileHeight)) return -1;

    std::vector<unsigned char> picture(static_cast<std::size_t>(wantedWidth) * wantedHeight * 4);
    {
        const ContextScope context(access.Dc(), access.Context());
        if (!wglGetCurrentContext()) return -1;
    }
    const LayoutScope shown(access);
    access.LayOut(shown.Layout(), wantedWidth, wantedHeight);
    const PictureAccess::Layout wanted = access.Save();
    const ContextScope context(access.Dc(), access.Context());
    for (int y = 0; y < wantedHeight; y += tileHeight)
        for (int x = 0; x < wantedWidth; x += tileWidth) {
            access.ShiftTo(wanted, x, y);
            access.LoadCamera();
            access.Draw();
            ReadTile(picture, wantedWidth, wantedHeight, x, y, std::min(tileWidth, wantedWidth - x),
                     std::min(tileHeight, wantedHeight - y));
        }
    rgba.swap(picture);
    return 0;
}

} // namespace KivoDrawingTools
