// What only windows on an X11 display do.

#include "support/AttachedWindow.h"
#include "support/HostGlx.h"
#include "support/WaitFor.h"
#include "support/X11TestWindow.h"
#include "window_system/linux/LastError.h"
#include "window_system/WindowSystem.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace KivoDrawingTools {

namespace {

using KivoTest::HostGlx;
using KivoTest::X11TestWindow;
using Pixels = std::vector<std::uint8_t>;

/// A picture whose four quarters are red, green, blue and white; drawn with the depth test on, so that a
/// missing depth buffer shows.
void DrawQuarters(int width, int height) {
    glViewport(0, 0, width, height);
    glClearColor(1, 1, 1, 1);
    glEnable(GL_DEPTH_TEST);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    const auto quad = [](float x, float y, float z, float r, float g, float b) {
        glColor3f(r, g, b);
        glBegin(GL_QUADS);
        glVertex3f(x, y, z);
        glVertex3f(x + 1, y, z);
        glVertex3f(x + 1, y + 1, z);
        glVertex3f(x, y + 1, z);
        glEnd();
    };
    quad(-1, 0, -0.5F, 1, 0, 0);
    quad(0, 0, -0.5F, 0, 1, 0);
    quad(-1, -1, -0.5F, 0, 0, 1);
    quad(-1, 0, 0.5F, 0, 0, 0); // behind the red one
}

template <typename Draw>
bool ShowFrame(const AttachedWindow& window, Draw draw) {
    if (!window.MakeCurrent()) return false;
    draw();
    const bool shown = SwapBuffers(window.Dc()) != 0;
    RECT answer{};
    GetClientRect(window.Handle(), &answer); // the display has done everything that was asked before
    return wglMakeCurrent(nullptr, nullptr) && shown;
}

bool DrawFrame(const AttachedWindow& window, int width, int height) {
    return ShowFrame(window, [=] { DrawQuarters(width, height); });
}

std::string ColorAt(const Pixels& picture, int width, int x, int y) {
    std::string color;
    for (int i = 0; i < 3; ++i) {
        const int level = picture.at(static_cast<std::size_t>((y * width + x) * 4 + i));
        color += level > 200 ? '1' : level < 55 ? '0' : '?';
    }
    return color;
}

void ExpectQuarters(const Pixels& picture, int width, int height) {
    ASSERT_EQ(static_cast<std::size_t>(width * height * 4), picture.size());
    EXPECT_EQ("100", ColorAt(picture, width, 2, 2));
    EXPECT_EQ("010", ColorAt(picture, width, width - 3, 2));
    EXPECT_EQ("001", ColorAt(picture, width, 2, height - 3));
    EXPECT_EQ("111", ColorAt(picture, width, width - 3, height - 3));
}

/// A picture in which no pixel is like its neighbours, RGBA, top row first.
Pixels NoisePicture(int width, int height) {
    std::mt19937 random(static_cast<unsigned>(width * 1000 + height));
    Pixels picture(static_cast<std::size_t>(width * height * 4), 255);
    for (std::size_t i = 0; i < picture.size(); ++i)
        if (i % 4 != 3) picture[i] = static_cast<std::uint8_t>(random() >> 24);
    return picture;
}

/// Draws a picture pixel by pixel.
void DrawPicture(const Pixels& picture, int width, int height) {
    glViewport(0, 0, width, height);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_DITHER);
    const auto rowBytes = static_cast<std::size_t>(width) * 4;
    Pixels bottomFirst;
    for (std::size_t y = static_cast<std::size_t>(height); y-- > 0;)
        bottomFirst.insert(bottomFirst.end(), picture.data() + y * rowBytes,
                           picture.data() + (y + 1) * rowBytes);
    glRasterPos2f(-1, -1);
    glDrawPixels(width, height, GL_RGBA, GL_UNSIGNED_BYTE, bottomFirst.data());
}

/// How far what a window shows may be from what was drawn, in levels of a channel.
struct Accuracy {
    int most;
    double mean;
};

/// Half a step of the visual's channels or, in a palette, of a cube of 6 shades each, and what a table of 5
/// bits a channel loses. Palettes have the colour that is nearest to the eye, to which blue says little.
Accuracy AccuracyOf(int screenDepth, int visualClass) {
    if (screenDepth == 30) return {1, 0.5};
    if (screenDepth > 16) return {0, 0};
    if (screenDepth > 8) return {8, 2.1};
    switch (visualClass) {
    case XCB_VISUAL_CLASS_STATIC_GRAY:
    case XCB_VISUAL_CLASS_GRAY_SCALE:
        return {9, 1.8};
    case XCB_VISUAL_CLASS_PSEUDO_COLOR:
        return {90, 12.9};
    case XCB_VISUAL_CLASS_STATIC_COLOR: // 3, 3 and 2 bits
        return {47, 13.5};
    default:
        return {43, 13.2};
    }
}

/// Compares every pixel.
void ExpectPicture(const Pixels& shown, const Pixels& drawn, bool isGrey, const Accuracy& accuracy) {
    ASSERT_EQ(drawn.size(), shown.size());
    int most = 0;
    double sum = 0;
    for (std::size_t i = 0; i < drawn.size(); i += 4) {
        const int brightness = (30 * drawn[i] + 59 * drawn[i + 1] + 11 * drawn[i + 2]) / 100;
        for (std::size_t k = i; k < i + 3; ++k) {
            const int difference = std::abs(shown[k] - (isGrey ? brightness : drawn[k]));
            most = std::max(most, difference);
            sum += difference;
        }
    }
    EXPECT_LE(most, accuracy.most);
    EXPECT_LE(sum / (0.75 * static_cast<double>(drawn.size())), accuracy.mean);
}

constexpr std::uint32_t ALL_INPUT = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                    XCB_EVENT_MASK_POINTER_MOTION;

void ExpectInputArrives(X11TestWindow& host) {
    xcb_generic_event_t event{};
    host.MovePointer(10, 10);
    host.MovePointer(33, 44);
    host.Button(1, true);
    ASSERT_TRUE(host.WaitForEvent(XCB_BUTTON_PRESS, event));
    xcb_button_press_event_t press{};
    std::memcpy(&press, &event, sizeof press);
    EXPECT_EQ(33, press.event_x);
    EXPECT_EQ(44, press.event_y);
    EXPECT_EQ(host.Id(), press.event);
    host.MovePointer(50, 60);
    EXPECT_TRUE(host.WaitForEvent(XCB_MOTION_NOTIFY, event));
    host.Button(1, false);
    EXPECT_TRUE(host.WaitForEvent(XCB_BUTTON_RELEASE, event));
    host.Key(38, true);
    EXPECT_TRUE(host.WaitForEvent(XCB_KEY_PRESS, event));
    host.Key(38, false);
    EXPECT_TRUE(host.WaitForEvent(XCB_KEY_RELEASE, event));
}

/// A picture, a change of size and input in a window of the visual.
void TryVisual(const KivoTest::XTestVisual& visual, const std::string& display) {
    SCOPED_TRACE("class " + std::to_string(visual.visualClass) + " depth " + std::to_string(visual.depth));
    X11TestWindow::Options options;
    options.visual = visual.id;
    options.eventMask = ALL_INPUT;
    options.display = display;
    X11TestWindow host(options);
    ASSERT_TRUE(host.Ok());
    const AttachedWindow window(host.Id(), display.empty() ? nullptr : display.c_str());
    ASSERT_NE(nullptr, window.Context()) << LastWindowError();
    const bool isGrey = visual.visualClass == XCB_VISUAL_CLASS_STATIC_GRAY ||
                        (visual.visualClass == XCB_VISUAL_CLASS_GRAY_SCALE);
    for (const auto& size : {SIZE{options.width, options.height}, SIZE{200, 350}, SIZE{401, 113}}) {
        host.Resize(size.cx, size.cy);
        const Pixels drawn = NoisePicture(size.cx, size.cy);
        ASSERT_TRUE(ShowFrame(window, [&] { DrawPicture(drawn, size.cx, size.cy); })) << LastWindowError();
        ExpectPicture(host.Grab(), drawn, isGrey, AccuracyOf(host.Screen().root_depth, visual.visualClass));
        ASSERT_TRUE(DrawFrame(window, size.cx, size.cy)) << LastWindowError();
        if (!isGrey) ExpectQuarters(host.Grab(), size.cx, size.cy);
    }
    ExpectInputArrives(host);
}

void TryAllVisuals(const std::string& display) {
    X11TestWindow::Options options;
    options.display = display;
    const X11TestWindow any(options);
    ASSERT_TRUE(any.Ok());
    for (const auto& visual : any.Visuals())
        TryVisual(visual, display);
}

class X11WindowTest : public testing::Test {
protected:
    void SetUp() override {
        if (!KivoTest::HasDisplay()) GTEST_SKIP() << "no display";
        m_client = std::make_unique<X11TestWindow>();
    }

private:
    // A display without clients may start anew and refuse connections meanwhile.
    std::unique_ptr<X11TestWindow> m_client;
};

} // namespace

TEST(X11Attach, SaysWhichDisplayCannotBeOpened) {
    EXPECT_EQ(nullptr, AttachX11Window(1, ":60000"));
    const std::string words = LastWindowError();
    EXPECT_NE(std::string::npos, words.find("X11: cannot open display \":60000\"")) << words;
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    EXPECT_EQ(words, LastWindowError());
}

TEST(X11Attach, SaysWhatToDoWhateverTheDisplayIsCalled) {
    const std::string name = std::string(99, 'a') + "\u00e4" + std::string(2000, 'b');
    EXPECT_EQ(nullptr, AttachX11Window(1, name.c_str()));
    const std::string words = LastWindowError();
    EXPECT_NE(std::string::npos, words.find(std::string(99, 'a') + "...\"; ")) << words;
    EXPECT_EQ('.', words.back()) << words;
}

// There Xwayland's display is set, too, and toolkits hand out numbers of their own.
TEST_F(X11WindowTest, SaysInAWaylandSessionThatTheToolkitUsesAnotherSystem) {
    X11TestWindow host;
    const HWND attached = AttachX11Window(host.Id());
    ASSERT_NE(attached, nullptr);
    const char* const set = std::getenv("WAYLAND_DISPLAY");
    const std::optional<std::string> before = set ? std::optional<std::string>(set) : std::nullopt;
    setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    for (const unsigned long window : {0UL, 0xdeadUL, 0x100000001UL}) {
        EXPECT_EQ(nullptr, AttachX11Window(window));
        const std::string words = LastWindowError();
        EXPECT_NE(std::string::npos, words.find("this is a Wayland session")) << words;
        EXPECT_NE(std::string::npos, words.find("there is no window " + Hex(window) + " ")) << words;
    }
    // One that was there is another matter.
    host.Destroy();
    RECT rect{};
    EXPECT_FALSE(GetClientRect(attached, &rect));
    EXPECT_EQ(std::string::npos, std::string(LastWindowError()).find("Wayland")) << LastWindowError();
    unsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(nullptr, AttachX11Window(0xdead));
    EXPECT_EQ(std::string::npos, std::string(LastWindowError()).find("Wayland")) << LastWindowError();
    if (before) setenv("WAYLAND_DISPLAY", before->c_str(), 1);
    EXPECT_EQ(0, ReleaseWindow(attached));
}

TEST_F(X11WindowTest, SaysThatThereIsNoSuchWindow) {
    for (const unsigned long window : {0UL, 0xdeadUL, 0x100000001UL}) {
        EXPECT_EQ(nullptr, AttachX11Window(window));
        EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
    }
    EXPECT_EQ(nullptr, AttachX11Window(0xdead));
    EXPECT_NE(std::string::npos, std::string(LastWindowError()).find("there is no window 0xdead"));
    X11TestWindow::Options options;
    options.inputOnly = true;
    const X11TestWindow inputOnly(options);
    EXPECT_EQ(nullptr, AttachX11Window(inputOnly.Id()));
    EXPECT_NE(std::string::npos, std::string(LastWindowError()).find("input only"));
}

TEST_F(X11WindowTest, ShowsPicturesInEveryVisual) {
    TryAllVisuals("");
}

// The servers of the tests below offer other visuals than most displays.
TEST(X11Screens, ShowsPicturesAtEveryScreenDepth) {
    for (const char* const screen :
         {"1024x768x8", "1024x768x15", "1024x768x16", "1024x768x24", "1024x768x30"}) {
        SCOPED_TRACE(screen);
        const KivoTest::PrivateXServer server(screen);
        if (server.Display().empty()) GTEST_SKIP() << "no Xvfb";
        TryAllVisuals(server.Display());
    }
}

// A picture larger than a request is sent in pieces.
TEST(X11Screens, ShowsPicturesOfSeveralRequests) {
    const KivoTest::PrivateXServer server("2304x1920x8", true);
    if (server.Display().empty()) GTEST_SKIP() << "no Xvfb";
    X11TestWindow::Options options;
    options.display = server.Display();
    options.width = 2301;
    options.height = 1901;
    const X11TestWindow host(options);
    ASSERT_LT(xcb_get_maximum_request_length(host.Connection()) * 4, 2301U * 1901U);
    const AttachedWindow window(host.Id(), server.Display().c_str());
    ASSERT_NE(nullptr, window.Context()) << LastWindowError();
    const Pixels drawn = NoisePicture(options.width, options.height);
    ASSERT_TRUE(ShowFrame(window, [&] {
        DrawPicture(drawn, options.width, options.height);
        // The host's own way of reading pixels is neither followed nor changed.
        glPixelStorei(GL_PACK_ROW_LENGTH, 77);
        glPixelStorei(GL_PACK_SKIP_ROWS, 5);
        glPixelTransferf(GL_RED_SCALE, 0.5F);
    })) << LastWindowError();
    ExpectPicture(host.Grab(), drawn, false, AccuracyOf(8, XCB_VISUAL_CLASS_PSEUDO_COLOR));
    ASSERT_TRUE(window.MakeCurrent());
    GLint rowLength = 0, skippedRows = 0;
    GLfloat redScale = 0;
    glGetIntegerv(GL_PACK_ROW_LENGTH, &rowLength);
    glGetIntegerv(GL_PACK_SKIP_ROWS, &skippedRows);
    glGetFloatv(GL_RED_SCALE, &redScale);
    EXPECT_EQ(77, rowLength);
    EXPECT_EQ(5, skippedRows);
    EXPECT_EQ(0.5F, redScale);
    EXPECT_EQ(static_cast<GLenum>(GL_NO_ERROR), glGetError());
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
}

TEST_F(X11WindowTest, KeepsItsOwnVisualWhereThatCanDraw) {
    const X11TestWindow host;
    const AttachedWindow window(host.Id());
    ASSERT_NE(nullptr, window.Context());
    EXPECT_TRUE(host.Children().empty());
}

TEST_F(X11WindowTest, LeavesNoChildBehind) {
    const X11TestWindow probe;
    for (const auto& visual : probe.Visuals()) {
        if (visual.visualClass != XCB_VISUAL_CLASS_DIRECT_COLOR) continue;
        X11TestWindow::Options options;
        options.visual = visual.id;
        const X11TestWindow host(options);
        {
            const AttachedWindow window(host.Id());
            EXPECT_EQ(1U, host.Children().size());
        }
        // The connection is closed by now; the server may need a moment to notice.
        EXPECT_TRUE(KivoTest::WaitFor([&] { return host.Children().empty(); }));
    }
}

TEST_F(X11WindowTest, TellsWhereItIs) {
    X11TestWindow::Options options;
    options.x = 70;
    options.y = 90;
    const X11TestWindow host(options);
    const AttachedWindow window(host.Id());
    RECT rect{};
    ASSERT_TRUE(GetWindowRect(window.Handle(), &rect));
    EXPECT_EQ(70, rect.left);
    EXPECT_EQ(90, rect.top);
    EXPECT_EQ(70 + options.width, rect.right);
    EXPECT_EQ(90 + options.height, rect.bottom);
}

TEST_F(X11WindowTest, AWindowDestroyedByTheHostFailsAndCanBeReleased) {
    const X11TestWindow probe;
    for (const auto& visual : probe.Visuals()) {
        SCOPED_TRACE(visual.id);
        X11TestWindow::Options options;
        options.visual = visual.id;
        X11TestWindow host(options);
        const AttachedWindow window(host.Id());
        ASSERT_NE(nullptr, window.Context()) << LastWindowError();
        ASSERT_TRUE(window.MakeCurrent());
        DrawQuarters(options.width, options.height);
        host.Destroy();
        EXPECT_FALSE(SwapBuffers(window.Dc()));
        EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
        EXPECT_FALSE(window.MakeCurrent());
        EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
        EXPECT_EQ(nullptr, glGetString(GL_VERSION));
        RECT rect{};
        EXPECT_FALSE(GetClientRect(window.Handle(), &rect));
        EXPECT_FALSE(GetWindowRect(window.Handle(), &rect));
    }
}

TEST_F(X11WindowTest, FollowsItsSizeBetweenDrawingAndPresenting) {
    X11TestWindow host;
    const AttachedWindow window(host.Id());
    ASSERT_TRUE(window.MakeCurrent());
    DrawQuarters(320, 240);
    host.Resize(500, 400);
    EXPECT_TRUE(SwapBuffers(window.Dc())) << LastWindowError();
    EXPECT_TRUE(DrawFrame(window, 500, 400));
    ExpectQuarters(host.Grab(), 500, 400);
}

TEST_F(X11WindowTest, ItsFirstPictureHasTheSizeThatItHasThen) {
    X11TestWindow host;
    const AttachedWindow window(host.Id());
    ASSERT_TRUE(window.MakeCurrent());
    wglMakeCurrent(nullptr, nullptr);
    host.Resize(500, 400);
    EXPECT_TRUE(DrawFrame(window, 500, 400));
    ExpectQuarters(host.Grab(), 500, 400);
    host.Resize(200, 300);
    EXPECT_TRUE(DrawFrame(window, 200, 300));
    ExpectQuarters(host.Grab(), 200, 300);
}

// A host may use the context without drawing, or draw without presenting, at any size in between.
TEST_F(X11WindowTest, FollowsItsSizeAfterAUseWithoutPresenting) {
    X11TestWindow host;
    const AttachedWindow window(host.Id());
    ASSERT_TRUE(DrawFrame(window, 320, 240));
    for (const bool isDrawn : {false, true}) {
        host.Resize(3, 2);
        ASSERT_TRUE(window.MakeCurrent());
        if (isDrawn) DrawQuarters(3, 2);
        wglMakeCurrent(nullptr, nullptr);
        host.Resize(500, 400);
        EXPECT_TRUE(DrawFrame(window, 500, 400));
        ExpectQuarters(host.Grab(), 500, 400);
    }
}

TEST_F(X11WindowTest, TakesTheDisplaysResolution) {
    X11TestWindow host;
    host.SetResources("Xcursor.size:\t24\nXft.dpi:\t144\nXft.hinting:\t1\n");
    {
        const AttachedWindow window(host.Id());
        EXPECT_EQ(144, GetDeviceCaps(window.Dc(), LOGPIXELSY));
        EXPECT_EQ(144, GetWindowDpi(window.Handle()));
        host.SetResources("Xft.dpi:\t120\n");
        EXPECT_EQ(120, GetWindowDpi(window.Handle())) << "as it is at present";
    }
    for (const char* const useless : {"", "Xft.dpi:\n", "Xft.dpi: many", "Xft.dpi: -3", "NotXft.dpi: 144",
                                      "Another:\t144", "Anothe:\t144"}) {
        host.SetResources(useless);
        const AttachedWindow window(host.Id());
        EXPECT_EQ(96, GetDeviceCaps(window.Dc(), LOGPIXELSY)) << useless;
        EXPECT_EQ(96, GetWindowDpi(window.Handle())) << useless;
    }
}

TEST(X11Server, ItsEndIsAFailureAndEverythingCanBeReleased) {
    KivoTest::PrivateXServer server("640x480x24");
    if (server.Display().empty()) GTEST_SKIP() << "no Xvfb";
    X11TestWindow::Options options;
    options.display = server.Display();
    X11TestWindow host(options);
    const AttachedWindow window(host.Id(), server.Display().c_str());
    const AttachedWindow current(host.Id(), server.Display().c_str());
    ASSERT_NE(nullptr, window.Context()) << LastWindowError();
    ASSERT_TRUE(DrawFrame(window, options.width, options.height));
    ASSERT_TRUE(window.MakeCurrent());
    server.Kill();
    DrawQuarters(options.width, options.height);
    EXPECT_FALSE(SwapBuffers(window.Dc()));
    EXPECT_NE(std::string::npos, std::string(LastWindowError()).find("is lost")) << LastWindowError();
    EXPECT_FALSE(window.MakeCurrent());
    EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
    EXPECT_EQ(96, GetDeviceCaps(window.Dc(), LOGPIXELSY));
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
}

TEST_F(X11WindowTest, ReplacesAndUnbindsAHostsGlxContext) {
    const HostGlx host;
    if (!host.Ok()) GTEST_SKIP() << "no GLX";
    const X11TestWindow ours;
    ASSERT_TRUE(host.MakeCurrent());
    {
        const AttachedWindow window(ours.Id());
        ASSERT_NE(nullptr, window.Context()) << LastWindowError();
        EXPECT_TRUE(host.IsCurrent());
        EXPECT_TRUE(DrawFrame(window, 320, 240)) << LastWindowError();
        EXPECT_EQ(nullptr, host.Current());
    }
    ASSERT_TRUE(host.MakeCurrent());
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    EXPECT_EQ(nullptr, host.Current());
}

TEST_F(X11WindowTest, ReplacesAHostsEglContextAndKeepsItsChoiceOfClientApi) {
    const EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    ASSERT_TRUE(eglInitialize(display, nullptr, nullptr));
    ASSERT_TRUE(eglBindAPI(EGL_OPENGL_ES_API));
    const EGLint wanted[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_ES2_BIT,
                             EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    ASSERT_TRUE(eglChooseConfig(display, wanted, &config, 1, &count));
    const EGLint size[] = {EGL_WIDTH, 8, EGL_HEIGHT, 8, EGL_NONE};
    const EGLSurface surface = eglCreatePbufferSurface(display, config, size);
    const EGLint version[] = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
    const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, version);
    ASSERT_TRUE(eglMakeCurrent(display, surface, surface, context));
    {
        X11TestWindow host;
        const AttachedWindow window(host.Id());
        EXPECT_EQ(context, eglGetCurrentContext());
        EXPECT_TRUE(DrawFrame(window, 320, 240)) << LastWindowError();
        ExpectQuarters(host.Grab(), 320, 240);
        EXPECT_EQ(EGL_NO_CONTEXT, eglGetCurrentContext());
        EXPECT_EQ(static_cast<EGLenum>(EGL_OPENGL_ES_API), eglQueryAPI());
    }
    // The host's context has survived everything.
    EXPECT_TRUE(eglMakeCurrent(display, surface, surface, context));
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    EXPECT_EQ(EGL_NO_CONTEXT, eglGetCurrentContext());
    eglDestroyContext(display, context);
    eglDestroySurface(display, surface);
}

} // namespace KivoDrawingTools
