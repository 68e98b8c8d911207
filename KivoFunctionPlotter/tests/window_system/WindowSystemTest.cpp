// The contract of the window system, the same for every kind of window.

#include "window_system/WindowSystem.h"
#include "support/X11TestWindow.h"
#include "window_system/linux/LastError.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>
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

// The channels lie side by side, blue in the lowest bits and alpha in the highest.
TEST_P(AnyWindowTest, DescribesWhereEveryFormatsChannelsLie) {
    PIXELFORMATDESCRIPTOR answer{};
    const int count = DescribePixelFormat(Dc(), 1, sizeof answer, nullptr);
    int withAlpha = 0;
    for (int format = 1; format <= count; ++format) {
        SCOPED_TRACE(format);
        ASSERT_EQ(count, DescribePixelFormat(Dc(), format, sizeof answer, &answer));
        EXPECT_EQ(0, answer.cBlueShift);
        EXPECT_EQ(answer.cBlueBits, answer.cGreenShift);
        EXPECT_EQ(answer.cBlueBits + answer.cGreenBits, answer.cRedShift);
        EXPECT_EQ(answer.cBlueBits + answer.cGreenBits + answer.cRedBits, answer.cAlphaShift);
        EXPECT_EQ(answer.cBlueBits + answer.cGreenBits + answer.cRedBits, answer.cColorBits);
        withAlpha += answer.cAlphaBits == 8 && answer.cAlphaShift == 24;
    }
    EXPECT_GT(withAlpha, 0);
}

TEST_P(AnyWindowTest, DrawsInTheFormatThatItDescribes) {
    for (const BYTE alphaBits : {BYTE{0}, BYTE{8}}) {
        PIXELFORMATDESCRIPTOR wanted = Wanted(), answer{};
        wanted.cAlphaBits = alphaBits;
        const AnyWindow window(GetParam());
        const HDC dc = GetDC(window.Handle());
        const int format = ChoosePixelFormat(dc, &wanted);
        ASSERT_GT(DescribePixelFormat(dc, format, sizeof answer, &answer), 0);
        ASSERT_TRUE(SetPixelFormat(dc, format, &answer)) << LastWindowError();
        const HGLRC context = wglCreateContext(dc);
        ASSERT_TRUE(wglMakeCurrent(dc, context)) << LastWindowError();
        const auto bits = [](GLenum name) {
            GLint value = -1;
            glGetIntegerv(name, &value);
            return value;
        };
        EXPECT_EQ(bits(GL_RED_BITS), answer.cRedBits);
        EXPECT_EQ(bits(GL_GREEN_BITS), answer.cGreenBits);
        EXPECT_EQ(bits(GL_BLUE_BITS), answer.cBlueBits);
        EXPECT_EQ(bits(GL_ALPHA_BITS), answer.cAlphaBits);
        EXPECT_EQ(bits(GL_DEPTH_BITS), answer.cDepthBits);
        EXPECT_EQ(bits(GL_STENCIL_BITS), answer.cStencilBits);
        EXPECT_TRUE(wglDeleteContext(context));
    }
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
    int unknown = 0;
    for (const HDC dc : {HDC{nullptr}, reinterpret_cast<HDC>(&unknown)}) {
        EXPECT_TRUE(wglMakeCurrent(Dc(), m_context));
        EXPECT_FALSE(wglMakeCurrent(dc, m_context));
        EXPECT_EQ(nullptr, wglGetCurrentContext());
        EXPECT_EQ(nullptr, glGetString(GL_VERSION));
    }
    EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
}

TEST_P(AnyWindowTest, AContextBelongsToOneThreadAtATime) {
    MakeCurrentContext();
    const HDC dc = Dc();
    std::thread([&] {
        EXPECT_FALSE(wglMakeCurrent(dc, m_context));
        EXPECT_EQ(ERROR_BUSY, GetLastError());
        EXPECT_FALSE(SwapBuffers(dc)) << "no context is current";
        EXPECT_EQ(ERROR_BUSY, GetLastError());
        EXPECT_NE(std::string::npos, std::string(LastWindowError()).find("another thread"))
            << LastWindowError();
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

// The host's unpack state says how its own bitmaps lie in memory.
TEST_P(AnyWindowTest, MakesTheSameGlyphListsWhateverTheUnpackState) {
    MakeCurrentContext();
    const auto draw = [this] {
        const GLuint lists = glGenLists(256);
        EXPECT_EQ(1, wglUseFontBitmapsA(Dc(), 0, 256, lists)) << LastWindowError();
        Clear(red);
        glRasterPos2f(-0.9F, 0);
        for (const char letter : {'R', 'g', '@'})
            glCallList(lists + static_cast<GLuint>(letter));
        std::vector<unsigned char> pixels(usualWidth * usualHeight * 4);
        glReadPixels(0, 0, usualWidth, usualHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        return pixels;
    };
    glColor3f(0, 1, 0);
    const auto usual = draw();
    glPixelStorei(GL_UNPACK_LSB_FIRST, GL_TRUE);
    EXPECT_EQ(usual, draw()) << "bits from the right";
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 70);
    EXPECT_EQ(usual, draw()) << "long rows";
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 2);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 3);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    EXPECT_EQ(usual, draw()) << "all of it";
}

// As far as the advance tells; characters that there are not take no room.
TEST_P(AnyWindowTest, GlyphListsHoldTheCharactersOfWindows1252) {
    MakeCurrentContext();
    LOGFONTA description{};
    description.lfHeight = -30;
    const HFONT font = CreateFontIndirectA(&description);
    const HGDIOBJ before = SelectObject(Dc(), font);
    const HDC memory = CreateCompatibleDC(Dc());
    SelectObject(memory, font);
    const auto extent = [memory](const std::string& text) {
        SIZE size{};
        EXPECT_TRUE(GetTextExtentPoint32A(memory, text.data(), static_cast<int>(text.size()), &size));
        return size.cx;
    };
    const GLuint lists = glGenLists(256);
    ASSERT_EQ(1, wglUseFontBitmapsA(Dc(), 0, 256, lists)) << LastWindowError();
    const auto advance = [lists](unsigned byte) {
        float after[4];
        glRasterPos2f(-1, 0);
        glCallList(lists + byte);
        glGetFloatv(GL_CURRENT_RASTER_POSITION, after);
        return after[0];
    };
    // Letters with marks are as wide as those without.
    EXPECT_EQ(advance('S'), advance(0x8A));
    EXPECT_EQ(advance('z'), advance(0x9E));
    EXPECT_EQ(advance('Y'), advance(0x9F));
    EXPECT_EQ(advance('A'), advance(0xC0));
    const iconv_t conversion = iconv_open("UTF-8", "CP1252");
    for (unsigned byte = 0x20; byte < 0x100; ++byte) {
        if (byte == 0x7F || byte == 0xAD)
            continue; // no character, and one that shows at the ends of lines only
        char source = static_cast<char>(byte), target[8] = {};
        char *in = &source, *out = target;
        std::size_t inLeft = 1, outLeft = sizeof target;
        int expected = 0;
        if (iconv(conversion, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1))
            expected = extent("|" + std::string(target) + "|") - extent("||"); // ink beside it does not count
        EXPECT_NEAR(expected, advance(byte), 4) << byte; // hinting takes up to a tenth of the height
    }
    iconv_close(conversion);
    SelectObject(Dc(), before);
    EXPECT_TRUE(DeleteDC(memory));
    EXPECT_TRUE(DeleteObject(font));
}

TEST_P(AnyWindowTest, AWindowWithoutAFormatTakesNoContext) {
    MakeCurrentContext();
    const AnyWindow other(GetParam());
    EXPECT_FALSE(wglMakeCurrent(GetDC(other.Handle()), m_context));
    EXPECT_EQ(ERROR_INVALID_PIXEL_FORMAT, GetLastError());
    EXPECT_NE(std::string::npos, std::string(LastWindowError()).find("has no pixel format"));
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

// What a thread's own objects do when it ends.
TEST(WindowSystem, WordsCanBeReadUntilTheThreadHasEnded) {
    static std::string atTheEnd;
    struct Reader {
        bool isUsed = false;
        ~Reader() {
            Fail(ERROR_BUSY, "Test: words of the last object of a thread, longer than a short string.");
            if (isUsed) atTheEnd = LastWindowError();
        }
    };
    std::thread([] {
        thread_local Reader reader; // before the first failure, so that it goes last
        reader.isUsed = true;
        Fail(ERROR_BUSY, "Test: words of a thread that is about to end, longer than a short string.");
    }).join();
    EXPECT_EQ("Test: words of the last object of a thread, longer than a short string.", atTheEnd);
}

TEST(WindowSystem, LongWordsAreCutAtAWholeCharacter) {
    const std::string most(1023, 'a');
    Fail(ERROR_BUSY, most);
    EXPECT_EQ(most, LastWindowError());
    Fail(ERROR_BUSY, most + "b");
    EXPECT_EQ(most, LastWindowError());
    Fail(ERROR_BUSY, most.substr(1) + "\u00e4");
    EXPECT_EQ(most.substr(1), LastWindowError());
    Fail(ERROR_BUSY, most.substr(2) + "\u00e4");
    EXPECT_EQ(most.substr(2) + "\u00e4", LastWindowError());
    Fail(ERROR_BUSY, std::string(5000, '\x80')); // no text at all
    EXPECT_STREQ("", LastWindowError());
}

// What follows from a failure must not hide it.
TEST(WindowSystem, NullHandlesKeepTheWordsOfWhatGaveThem) {
    EXPECT_EQ(nullptr, CreateOffscreenWindow(0, 1));
    const std::string words = LastWindowError();
    EXPECT_EQ(nullptr, GetDC(nullptr));
    EXPECT_FALSE(SwapBuffers(nullptr));
    EXPECT_EQ(words, LastWindowError());
    EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
    std::thread([] { // where nothing has failed before
        EXPECT_FALSE(SwapBuffers(nullptr));
        EXPECT_EQ(ERROR_INVALID_HANDLE, GetLastError());
        EXPECT_STRNE("", LastWindowError());
    })
        .join();
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

// In a process of its own, whose EGL finds no driver.
class WithoutDriverDeathTest : public testing::Test {
protected:
    void SetUp() override {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        setenv(variable, "/nowhere/driver.json", 1);
    }
    void TearDown() override { unsetenv(variable); }

    /// Ends the process with 0 and the words on standard error where there is no window.
    [[noreturn]] static void TellAboutWindow(HWND window) {
        std::fprintf(stderr, "%u, %s\n", static_cast<unsigned>(GetLastError()), LastWindowError());
        std::exit(window ? 1 : 0);
    }

private:
    static constexpr const char* variable = "__EGL_VENDOR_LIBRARY_FILENAMES";
};

TEST_F(WithoutDriverDeathTest, AnOffscreenWindowSaysWhyItIsNull) {
    EXPECT_EXIT(TellAboutWindow(CreateOffscreenWindow(16, 16)), testing::ExitedWithCode(0),
                "^50, EGL: cannot draw OpenGL without a screen: .*; install an OpenGL driver");
}

TEST_F(WithoutDriverDeathTest, AnX11WindowSaysWhyItIsNull) {
    if (!KivoTest::HasDisplay()) GTEST_SKIP() << "no display";
    const KivoTest::X11TestWindow host;
    EXPECT_EXIT(TellAboutWindow(AttachX11Window(host.Id())), testing::ExitedWithCode(0),
                "^50, EGL: cannot draw OpenGL .*; install an OpenGL driver");
}

TEST(OffscreenWindow, RefusesSizesOutOfRange) {
    EXPECT_EQ(nullptr, CreateOffscreenWindow(0, 10));
    EXPECT_EQ(nullptr, CreateOffscreenWindow(10, 16385));
    EXPECT_EQ(nullptr, CreateOffscreenWindow(10, 10, 0));
    EXPECT_EQ(nullptr, CreateOffscreenWindow(10, 10, 1201));
    EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
    const HWND window = CreateOffscreenWindow(16, 16, 144);
    EXPECT_EQ(144, GetDeviceCaps(GetDC(window), LOGPIXELSY));
    EXPECT_EQ(144, GetWindowDpi(window));
    EXPECT_EQ(0, SetOffscreenDpi(window, 120));
    EXPECT_EQ(120, GetDeviceCaps(GetDC(window), LOGPIXELSY));
    EXPECT_EQ(-1, SetOffscreenDpi(window, 0));
    EXPECT_EQ(-1, SetOffscreenDpi(window, 1201));
    EXPECT_EQ(120, GetWindowDpi(window));
    EXPECT_EQ(-1, SetOffscreenDpi(nullptr, 96));
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
