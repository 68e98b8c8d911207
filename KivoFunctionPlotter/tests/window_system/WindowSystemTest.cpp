// The contract of the window system, the same for every kind of window.

#include "window_system/WindowSystem.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace KivoDrawingTools {

namespace {

constexpr int usualWidth = 160;
constexpr int usualHeight = 120;

enum class Kind { Offscreen, X11 };

/// A window of one kind, with whatever a host needs for it.
class AnyWindow {
public:
    explicit AnyWindow(Kind kind) {
        if (kind == Kind::Offscreen) {
            m_handle = CreateOffscreenWindow(usualWidth, usualHeight);
            return;
        }
        KivoTest::X11TestWindow::Options options;
        options.width = usualWidth;
        options.height = usualHeight;
        m_host = std::make_unique<KivoTest::X11TestWindow>(options);
        m_handle = AttachX11Window(m_host->Id());
    }
    ~AnyWindow() { Release(); }
    AnyWindow(const AnyWindow&) = delete;
    AnyWindow& operator=(const AnyWindow&) = delete;

    HWND Handle() const { return m_handle; }
    void Resize(int width, int height) {
        if (m_host)
            m_host->Resize(width, height);
        else
            EXPECT_EQ(0, ResizeOffscreenWindow(m_handle, width, height));
    }
    int Release() {
        const HWND handle = m_handle;
        m_handle = nullptr;
        return ReleaseWindow(handle);
    }

private:
    std::unique_ptr<KivoTest::X11TestWindow> m_host;
    HWND m_handle = nullptr;
};

PIXELFORMATDESCRIPTOR Wanted() {
    PIXELFORMATDESCRIPTOR wanted{};
    wanted.nSize = sizeof wanted;
    wanted.nVersion = 1;
    wanted.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    wanted.iPixelType = PFD_TYPE_RGBA;
    wanted.cColorBits = 32;
    wanted.cRedBits = wanted.cGreenBits = wanted.cBlueBits = 8;
    wanted.cDepthBits = 32;
    wanted.cStencilBits = 8;
    return wanted;
}

/// Gives the window a format and returns a context, or null.
HGLRC MakeContext(HWND window) {
    const PIXELFORMATDESCRIPTOR wanted = Wanted();
    const HDC dc = GetDC(window);
    return SetPixelFormat(dc, ChoosePixelFormat(dc, &wanted), &wanted) ? wglCreateContext(dc) : nullptr;
}

std::array<int, 3> PixelAt(int x, int y) {
    std::array<unsigned char, 4> rgba{};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return {rgba[0], rgba[1], rgba[2]};
}

const std::array<int, 3> green{0, 255, 0};
const std::array<int, 3> red{255, 0, 0};

void Clear(const std::array<int, 3>& rgb) {
    glClearColor(static_cast<float>(rgb[0]) / 255, static_cast<float>(rgb[1]) / 255,
                 static_cast<float>(rgb[2]) / 255, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

} // namespace

class AnyWindowTest : public testing::TestWithParam<Kind> {
protected:
    void SetUp() override {
        if (GetParam() == Kind::X11 && !KivoTest::HasDisplay()) GTEST_SKIP() << "no display";
        if (GetParam() == Kind::X11) m_client = std::make_unique<KivoTest::X11TestWindow>();
        m_window = std::make_unique<AnyWindow>(GetParam());
        ASSERT_NE(nullptr, m_window->Handle()) << LastWindowError();
    }
    void TearDown() override {
        wglMakeCurrent(nullptr, nullptr);
        if (m_context) wglDeleteContext(m_context);
    }
    HWND Window() const { return m_window->Handle(); }
    HDC Dc() const { return GetDC(Window()); }
    void MakeCurrentContext() {
        m_context = MakeContext(Window());
        ASSERT_NE(nullptr, m_context) << LastWindowError();
        ASSERT_TRUE(wglMakeCurrent(Dc(), m_context)) << LastWindowError();
    }

    // A display without clients may start anew and refuse connections meanwhile.
    std::unique_ptr<KivoTest::X11TestWindow> m_client;
    std::unique_ptr<AnyWindow> m_window;
    HGLRC m_context = nullptr;
};

TEST_P(AnyWindowTest, TellsItsSize) {
    RECT client{};
    RECT whole{};
    ASSERT_TRUE(GetClientRect(Window(), &client));
    ASSERT_TRUE(GetWindowRect(Window(), &whole));
    EXPECT_EQ(0, client.left);
    EXPECT_EQ(0, client.top);
    EXPECT_EQ(usualWidth, client.right);
    EXPECT_EQ(usualHeight, client.bottom);
    EXPECT_EQ(usualWidth, whole.right - whole.left);
    EXPECT_EQ(usualHeight, whole.bottom - whole.top);
}

TEST_P(AnyWindowTest, HasOneDeviceContext) {
    EXPECT_NE(nullptr, Dc());
    EXPECT_EQ(Dc(), Dc());
    EXPECT_GT(GetDeviceCaps(Dc(), LOGPIXELSY), 0);
    EXPECT_FALSE(DeleteDC(Dc()));
}

TEST_P(AnyWindowTest, ChoosesDepthAndStencil) {
    const PIXELFORMATDESCRIPTOR wanted = Wanted();
    const int format = ChoosePixelFormat(Dc(), &wanted);
    PIXELFORMATDESCRIPTOR answer{};
    ASSERT_GE(DescribePixelFormat(Dc(), format, sizeof answer, &answer), format);
    EXPECT_GE(answer.cDepthBits, 24);
    EXPECT_GE(answer.cStencilBits, 8);
    EXPECT_EQ(0, answer.cAlphaBits);
    EXPECT_NE(0U, answer.dwFlags & PFD_SUPPORT_OPENGL);
    EXPECT_EQ(PFD_TYPE_RGBA, answer.iPixelType);
    EXPECT_EQ(sizeof answer, answer.nSize);
}

TEST_P(AnyWindowTest, RefusesFormatsThatAreNotThere) {
    PIXELFORMATDESCRIPTOR answer{};
    const int count = DescribePixelFormat(Dc(), 1, sizeof answer, nullptr);
    EXPECT_GT(count, 0);
    EXPECT_EQ(0, DescribePixelFormat(Dc(), 0, sizeof answer, &answer));
    EXPECT_EQ(0, DescribePixelFormat(Dc(), count + 1, sizeof answer, &answer));
    EXPECT_EQ(0, DescribePixelFormat(Dc(), 1, sizeof answer - 1, &answer));
    EXPECT_FALSE(SetPixelFormat(Dc(), 0, &answer));
    EXPECT_FALSE(SetPixelFormat(Dc(), count + 1, &answer));
    EXPECT_EQ(ERROR_INVALID_PIXEL_FORMAT, GetLastError());
    EXPECT_EQ(0, ChoosePixelFormat(Dc(), nullptr));
    EXPECT_EQ(nullptr, wglCreateContext(Dc()));
}

TEST_P(AnyWindowTest, KeepsItsFormat) {
    const PIXELFORMATDESCRIPTOR wanted = Wanted();
    const int format = ChoosePixelFormat(Dc(), &wanted);
    ASSERT_TRUE(SetPixelFormat(Dc(), format, &wanted)) << LastWindowError();
    EXPECT_TRUE(SetPixelFormat(Dc(), format, &wanted));
    EXPECT_FALSE(SetPixelFormat(Dc(), format == 1 ? 2 : 1, &wanted));
}

TEST_P(AnyWindowTest, DrawsWithTheFixedFunctionInterface) {
    MakeCurrentContext();
    EXPECT_EQ(m_context, wglGetCurrentContext());
    EXPECT_EQ(Dc(), wglGetCurrentDC());
    GLint depth = 0;
    glGetIntegerv(GL_DEPTH_BITS, &depth);
    EXPECT_GE(depth, 24);
    glViewport(0, 0, usualWidth, usualHeight);
    Clear(red);
    glBegin(GL_QUADS);
    glColor3f(0, 1, 0);
    glVertex2f(0, 0);
    glVertex2f(1, 0);
    glVertex2f(1, 1);
    glVertex2f(0, 1);
    glEnd();
    EXPECT_EQ(red, PixelAt(usualWidth / 2 - 2, usualHeight / 2 - 2));
    EXPECT_EQ(green, PixelAt(usualWidth / 2 + 2, usualHeight / 2 + 2));
    EXPECT_EQ(static_cast<GLenum>(GL_NO_ERROR), glGetError());
    EXPECT_TRUE(SwapBuffers(Dc())) << LastWindowError();
}

TEST_P(AnyWindowTest, FollowsItsSizeWhenMadeCurrent) {
    MakeCurrentContext();
    Clear(red);
    EXPECT_TRUE(SwapBuffers(Dc()));
    for (const auto& size : {SIZE{300, 200}, SIZE{40, 30}, SIZE{500, 400}}) {
        m_window->Resize(size.cx, size.cy);
        ASSERT_TRUE(wglMakeCurrent(Dc(), m_context)) << LastWindowError();
        glViewport(0, 0, size.cx, size.cy);
        Clear(green);
        EXPECT_EQ(green, PixelAt(size.cx - 1, size.cy - 1));
        EXPECT_TRUE(SwapBuffers(Dc())) << LastWindowError();
        EXPECT_TRUE(wglMakeCurrent(Dc(), nullptr));
    }
}

TEST_P(AnyWindowTest, UnbindsAndDrawsNowhere) {
    MakeCurrentContext();
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    EXPECT_EQ(nullptr, wglGetCurrentContext());
    EXPECT_EQ(nullptr, wglGetCurrentDC());
    EXPECT_EQ(nullptr, glGetString(GL_VERSION));
    EXPECT_FALSE(SwapBuffers(Dc()));
}

TEST_P(AnyWindowTest, SuccessLeavesTheLastErrorAlone) {
    EXPECT_FALSE(GetClientRect(nullptr, nullptr));
    const DWORD code = GetLastError();
    const std::string words = LastWindowError();
    MakeCurrentContext();
    EXPECT_TRUE(SwapBuffers(Dc()));
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    EXPECT_EQ(code, GetLastError());
    EXPECT_EQ(words, LastWindowError());
}

TEST_P(AnyWindowTest, NothingIsCurrentAfterAFailure) {
    MakeCurrentContext();
    EXPECT_FALSE(wglMakeCurrent(nullptr, m_context));
    EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
    EXPECT_EQ(nullptr, wglGetCurrentContext());
    EXPECT_EQ(nullptr, glGetString(GL_VERSION));
}

TEST_P(AnyWindowTest, AContextBelongsToOneThreadAtATime) {
    MakeCurrentContext();
    const HDC dc = Dc();
    std::thread([&] {
        EXPECT_FALSE(wglMakeCurrent(dc, m_context));
        EXPECT_EQ(ERROR_BUSY, GetLastError());
        EXPECT_FALSE(wglDeleteContext(m_context));
        EXPECT_EQ(ERROR_BUSY, GetLastError());
    }).join();
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    // A thread that ends lets go of what it has bound.
    std::thread([&] { EXPECT_TRUE(wglMakeCurrent(dc, m_context)) << LastWindowError(); }).join();
    EXPECT_TRUE(wglMakeCurrent(dc, m_context)) << LastWindowError();
}

TEST_P(AnyWindowTest, ContextAndWindowGoInAnyOrder) {
    MakeCurrentContext();
    const HDC dc = Dc();
    Clear(red);
    EXPECT_EQ(0, m_window->Release());
    EXPECT_EQ(nullptr, wglGetCurrentContext());
    EXPECT_FALSE(wglMakeCurrent(dc, m_context));
    EXPECT_FALSE(SwapBuffers(dc));
    EXPECT_TRUE(wglDeleteContext(m_context));
    EXPECT_FALSE(wglDeleteContext(m_context));
    m_context = nullptr;
}

TEST_P(AnyWindowTest, RefusesAReleasedHandle) {
    const HWND released = Window();
    EXPECT_EQ(0, m_window->Release());
    EXPECT_EQ(-1, ReleaseWindow(released));
    EXPECT_EQ(nullptr, GetDC(released));
    EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
}

TEST_P(AnyWindowTest, TwoWindowsShareAThread) {
    MakeCurrentContext();
    Clear(red);
    AnyWindow other(GetParam());
    const HGLRC context = MakeContext(other.Handle());
    ASSERT_TRUE(wglMakeCurrent(GetDC(other.Handle()), context)) << LastWindowError();
    Clear(green);
    EXPECT_EQ(green, PixelAt(1, 1));
    ASSERT_TRUE(wglMakeCurrent(Dc(), m_context)) << LastWindowError();
    Clear(red);
    EXPECT_EQ(red, PixelAt(1, 1));
    EXPECT_TRUE(wglDeleteContext(context));
    EXPECT_EQ(m_context, wglGetCurrentContext());
}

TEST_P(AnyWindowTest, WindowsOfDifferentThreadsAreIndependent) {
    const auto draw = [kind = GetParam()] {
        for (int i = 0; i < 4; ++i) {
            AnyWindow window(kind);
            const HGLRC context = MakeContext(window.Handle());
            ASSERT_TRUE(wglMakeCurrent(GetDC(window.Handle()), context)) << LastWindowError();
            Clear(green);
            EXPECT_EQ(green, PixelAt(1, 1));
            EXPECT_TRUE(SwapBuffers(GetDC(window.Handle())));
            EXPECT_TRUE(wglDeleteContext(context));
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(draw);
    for (std::thread& thread : threads)
        thread.join();
}

TEST_P(AnyWindowTest, MakesGlyphListsAndKeepsTheUnpackState) {
    MakeCurrentContext();
    const GLuint lists = glGenLists(256);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 2);
    ASSERT_EQ(1, wglUseFontBitmapsA(Dc(), 0, 256, lists)) << LastWindowError();
    GLint alignment = 0;
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &alignment);
    EXPECT_EQ(2, alignment);
    Clear(red);
    glColor3f(0, 1, 0);
    glRasterPos2f(-0.9F, 0);
    glCallList(lists + 'H');
    float after[4];
    glGetFloatv(GL_CURRENT_RASTER_POSITION, after);
    EXPECT_GT(after[0], 0.05F * usualWidth + 3);
    int greenPixels = 0;
    for (int y = 0; y < usualHeight; ++y)
        for (int x = 0; x < usualWidth / 2; ++x)
            greenPixels += PixelAt(x, y) == green;
    EXPECT_GT(greenPixels, 10);
    EXPECT_EQ(static_cast<GLenum>(GL_NO_ERROR), glGetError());
}

std::string KindName(const testing::TestParamInfo<Kind>& kind) {
    return kind.param == Kind::X11 ? "X11" : "Offscreen";
}

INSTANTIATE_TEST_SUITE_P(Kinds, AnyWindowTest, testing::Values(Kind::Offscreen, Kind::X11), KindName);

TEST(WindowSystem, NullHandlesAreRefused) {
    EXPECT_EQ(nullptr, GetDC(nullptr));
    EXPECT_FALSE(SwapBuffers(nullptr));
    EXPECT_FALSE(wglDeleteContext(nullptr));
    EXPECT_EQ(nullptr, wglCreateContext(nullptr));
    EXPECT_EQ(0, ChoosePixelFormat(nullptr, nullptr));
    EXPECT_FALSE(DeleteDC(nullptr));
    EXPECT_FALSE(DeleteObject(nullptr));
    EXPECT_EQ(nullptr, SelectObject(nullptr, nullptr));
    EXPECT_EQ(nullptr, CreateCompatibleDC(nullptr));
    EXPECT_EQ(0, GetDeviceCaps(nullptr, LOGPIXELSY));
    EXPECT_EQ(0, ReleaseWindow(nullptr));
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
}

TEST(WindowSystem, ErrorsBelongToTheirThread) {
    EXPECT_EQ(nullptr, GetDC(nullptr));
    EXPECT_STRNE("", LastWindowError());
    std::thread([] {
        EXPECT_STREQ("", LastWindowError());
        EXPECT_EQ(ERROR_SUCCESS, GetLastError());
    }).join();
}

TEST(WindowSystem, MulDivRoundsInSixtyFourBits) {
    EXPECT_EQ(13, MulDiv(10, 96, 72));
    EXPECT_EQ(-13, MulDiv(-10, 96, 72));
    EXPECT_EQ(3, MulDiv(5, 1, 2));
    EXPECT_EQ(-3, MulDiv(-5, 1, 2));
    EXPECT_EQ(INT_MAX, MulDiv(INT_MAX, INT_MAX, INT_MAX));
    EXPECT_EQ(-1, MulDiv(INT_MAX, 2, 1));
    EXPECT_EQ(-1, MulDiv(1, 1, 0));
}

TEST(OffscreenWindow, RefusesSizesOutOfRange) {
    EXPECT_EQ(nullptr, CreateOffscreenWindow(0, 10));
    EXPECT_EQ(nullptr, CreateOffscreenWindow(10, 16385));
    EXPECT_EQ(nullptr, CreateOffscreenWindow(10, 10, 0));
    EXPECT_EQ(nullptr, CreateOffscreenWindow(10, 10, 1201));
    EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
    const HWND window = CreateOffscreenWindow(16, 16, 144);
    EXPECT_EQ(144, GetDeviceCaps(GetDC(window), LOGPIXELSY));
    EXPECT_EQ(-1, ResizeOffscreenWindow(window, -1, 10));
    EXPECT_EQ(-1, ResizeOffscreenWindow(nullptr, 10, 10));
    RECT rect{};
    EXPECT_TRUE(GetClientRect(window, &rect));
    EXPECT_EQ(16, rect.right);
    EXPECT_EQ(0, ReleaseWindow(window));
}

TEST(OffscreenWindow, DrawsAtTheLargestWidth) {
    const HWND window = CreateOffscreenWindow(16384, 2);
    const HGLRC context = MakeContext(window);
    ASSERT_TRUE(wglMakeCurrent(GetDC(window), context)) << LastWindowError();
    Clear(green);
    EXPECT_EQ(green, PixelAt(16383, 1));
    EXPECT_TRUE(wglDeleteContext(context));
    EXPECT_EQ(0, ReleaseWindow(window));
}

} // namespace KivoDrawingTools
