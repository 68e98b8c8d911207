// An SDL 2 host with an OpenGL context of SDL's, in which it draws the plot's picture and a colour. A plot in
// another of its windows is drawn on the screen. SDL makes its context current once and believes that it
// stays so.
#define SDL_MAIN_HANDLED
#include "OpenGlHost.h"

#include <KivoHost.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <GL/gl.h>
#include <SDL.h>
#include <SDL_syswm.h>
#include <X11/Xlib.h>

using namespace KivoDrawingTools;

namespace {

/// The plot in a window of its own, on the screen.
class ScreenPlot {
public:
    bool Create() {
        const CKeepContext keep; // SDL's
        m_window = SDL_CreateWindow(hillTitle, 0, 500, 400, 300, 0);
        SDL_SysWMinfo info = {};
        SDL_VERSION(&info.version);
        if (!m_window || !SDL_GetWindowWMInfo(m_window, &info)) return false;
        XSync(info.info.x11.display, False);
        m_handle = AttachX11Window(info.info.x11.window);
        if (m_plotter.OnCreate(m_handle, 400, 300, true) != 0) return false;
        m_plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
        return true;
    }
    void Draw() {
        const CKeepContext keep;
        m_plotter.OnDraw();
    }
    void Destroy() {
        const CKeepContext keep;
        m_plotter.OnDestroy();
        ReleaseWindow(m_handle);
        SDL_DestroyWindow(m_window);
    }

private:
    SDL_Window* m_window = nullptr;
    HWND m_handle = nullptr;
    CKivoFunctionPlotter m_plotter;
    std::vector<float> m_points = HillPoints();
};

/// The plot as a picture in the host's own OpenGL.
class PicturePlot {
public:
    bool Create(int width, int height) {
        m_window = CreateOffscreenWindow(width, height);
        if (plotter.OnCreate(m_window, width, height, true) != 0) return false;
        plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
        return true;
    }
    void Draw(int width, int height) {
        ResizeOffscreenWindow(m_window, width, height);
        if (width != m_width || height != m_height) plotter.OnSize(0, width, height);
        m_width = width;
        m_height = height;
        std::vector<unsigned char> rgba;
        if (CapturePicture(plotter, rgba, width, height) != 0) return;
        glRasterPos2f(-1, 1);
        glPixelZoom(1, -1); // the top row comes first
        glDrawPixels(width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    }
    void Destroy() {
        plotter.OnDestroy();
        ReleaseWindow(m_window);
    }

    CKivoFunctionPlotter plotter;

private:
    HWND m_window = nullptr;
    std::vector<float> m_points = HillPoints();
    int m_width = 0;
    int m_height = 0;
};

void DrawAll(SDL_Window* window, PicturePlot& picture, const OpenGlColor& color, bool isBlank) {
    int width = 0, height = 0;
    SDL_GetWindowSize(window, &width, &height);
    glViewport(0, 0, width, height);
    glClearColor(color.red, color.green, color.blue, 1);
    if (isBlank) glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    if (!isBlank) picture.Draw(width / 2, height);
    SDL_GL_SwapWindow(window);
}

int Run(SDL_Window* window, PicturePlot& picture, ScreenPlot& other) {
    int color = 0;
    bool isBlank = false;
    for (;; SDL_Delay(10)) {
        for (SDL_Event event; SDL_PollEvent(&event);) {
            if (event.type == SDL_QUIT) return 0;
            if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_CLOSE) return 0;
            if (event.type != SDL_KEYDOWN) continue;
            if (event.key.keysym.sym == SDLK_c) color = 1 - color;
            if (event.key.keysym.sym == SDLK_t) isBlank = !isBlank;
            ChoosePlot(picture.plotter, event.key.keysym.sym);
        }
        other.Draw();
        DrawAll(window, picture, openGlColors[color], isBlank);
    }
}

} // namespace

int main() {
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "x11", SDL_HINT_OVERRIDE);
    SDL_setenv("SDL_VIDEO_X11_NODIRECTCOLOR", "1", 1);
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return 1;
    SDL_Window* const window = SDL_CreateWindow(openGlTitle, 0, 0, openGlWidth, openGlHeight,
                                                SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE);
    const SDL_GLContext context = SDL_GL_CreateContext(window);
    PicturePlot picture;
    ScreenPlot other;
    if (!context || !picture.Create(openGlWidth / 2, openGlHeight) || !other.Create()) return 1;
    const int result = Run(window, picture, other);
    other.Destroy();
    picture.Destroy();
    SDL_GL_DeleteContext(context);
    SDL_DestroyWindow(window);
    SDL_Quit();
    return result;
}
