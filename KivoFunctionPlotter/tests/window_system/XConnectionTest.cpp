// The connection to an X server that the windows of a thread share.

#include "support/AttachedWindow.h"
#include "support/WaitFor.h"
#include "support/X11TestWindow.h"
#include "support/Xcb.h"
#include "window_system/WindowSystem.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace KivoDrawingTools {

namespace {

using KivoTest::PrivateXServer;
using KivoTest::X11TestWindow;

constexpr int side = 16;

std::filesystem::directory_iterator OpenFiles() {
    return std::filesystem::directory_iterator("/proc/self/fd");
}

/// The sockets that the process has open: the host's connections and the library's.
int SocketCount() {
    int count = 0;
    for (const auto& file : OpenFiles()) {
        std::error_code closed;
        if (std::filesystem::read_symlink(file, closed).string().rfind("socket:", 0) == 0) ++count;
    }
    return count;
}

/// A host of many small windows, which has one connection for all of them.
class ManyWindows {
public:
    explicit ManyWindows(int count, const std::string& display = {}) : m_frame(Frame(display)) {
        for (int i = 0; i < count; ++i)
            m_windows.push_back(Add());
        m_frame.Children(); // waits for the server
    }

    unsigned long operator[](int i) const { return m_windows[static_cast<std::size_t>(i)]; }
    xcb_connection_t* Connection() const { return m_frame.Connection(); }
    const xcb_screen_t& Screen() const { return m_frame.Screen(); }
    xcb_window_t FrameId() const { return static_cast<xcb_window_t>(m_frame.Id()); }

private:
    static X11TestWindow::Options Frame(const std::string& display) {
        X11TestWindow::Options options;
        options.display = display;
        return options;
    }
    xcb_window_t Add() const {
        const xcb_window_t window = xcb_generate_id(Connection());
        xcb_create_window(Connection(), XCB_COPY_FROM_PARENT, window, FrameId(), 0, 0, side, side, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(Connection(), window);
        return window;
    }

    X11TestWindow m_frame;
    std::vector<unsigned long> m_windows;
};

/// Draws one colour and reads it back.
bool ShowsColor(const AttachedWindow& window, int color) {
    if (!window.MakeCurrent()) return false;
    glClearColor(static_cast<float>(color) / 255, 0.5F, 0.25F, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    unsigned char pixel[4] = {};
    glReadPixels(side / 2, side / 2, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    const bool isShown = SwapBuffers(window.Dc()) != 0;
    return wglMakeCurrent(nullptr, nullptr) && isShown && pixel[0] == color && pixel[3] == 255;
}

bool LastWordsHave(const std::string& words) {
    return std::string(LastWindowError()).find(words) != std::string::npos;
}

class XConnectionTest : public testing::Test {
protected:
    void SetUp() override {
        if (!KivoTest::HasDisplay()) GTEST_SKIP() << "no display";
    }
};

/// Tests of a server of their own, which they may end or fill.
class XServerTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.Display().empty()) GTEST_SKIP() << "no Xvfb";
    }

    const char* Display() const { return server.Display().c_str(); }

    PrivateXServer server{"640x480x24"};
};

} // namespace

TEST_F(XConnectionTest, IsOneForAllWindowsOfAThreadAndGoesWithTheLast) {
    const ManyWindows host(12);
    const int before = SocketCount();
    std::vector<std::unique_ptr<AttachedWindow>> windows;
    for (int i = 0; i < 12; ++i) {
        windows.push_back(std::make_unique<AttachedWindow>(host[i]));
        ASSERT_TRUE(ShowsColor(*windows.back(), 10 * i)) << LastWindowError();
        EXPECT_EQ(SocketCount(), before + 1);
    }
    while (windows.size() > 1) {
        windows.erase(windows.begin());
        EXPECT_EQ(SocketCount(), before + 1);
    }
    EXPECT_TRUE(ShowsColor(*windows.back(), 77));
    windows.clear();
    EXPECT_EQ(SocketCount(), before);
}

// A context may be deleted after its window: its display must be there until then.
TEST_F(XConnectionTest, StaysForAContextThatOutlivesItsWindow) {
    const ManyWindows host(1);
    const int before = SocketCount();
    const HWND window = AttachX11Window(host[0]);
    ASSERT_NE(window, nullptr) << LastWindowError();
    PIXELFORMATDESCRIPTOR wanted{};
    wanted.nSize = sizeof wanted;
    wanted.nVersion = 1;
    ASSERT_TRUE(SetPixelFormat(GetDC(window), ChoosePixelFormat(GetDC(window), &wanted), &wanted));
    const HGLRC context = wglCreateContext(GetDC(window));
    ASSERT_NE(context, nullptr) << LastWindowError();
    EXPECT_EQ(ReleaseWindow(window), 0);
    EXPECT_EQ(SocketCount(), before + 1);
    EXPECT_TRUE(wglDeleteContext(context));
    EXPECT_EQ(SocketCount(), before);
}

TEST_F(XConnectionTest, IsTheSameForAllNamesOfADisplay) {
    const ManyWindows host(3);
    const std::string display = std::getenv("DISPLAY");
    const std::string named = display.substr(0, display.find('.', display.rfind(':')));
    const int before = SocketCount();
    const AttachedWindow environments(host[0]), whole(host[1], named.c_str());
    const AttachedWindow screens(host[2], (named + ".0").c_str());
    EXPECT_TRUE(ShowsColor(environments, 1) && ShowsColor(whole, 2) && ShowsColor(screens, 3));
    EXPECT_EQ(SocketCount(), before + 1);
}

// A server takes 255 clients unless it is told otherwise.
TEST_F(XConnectionTest, ServesMoreWindowsThanTheServerHasClients) {
    constexpr int count = 300;
    const ManyWindows host(count);
    std::vector<HWND> windows;
    for (int i = 0; i < count; ++i) {
        windows.push_back(AttachX11Window(host[i]));
        ASSERT_NE(windows.back(), nullptr) << i << ": " << LastWindowError();
    }
    for (const HWND window : windows)
        EXPECT_EQ(ReleaseWindow(window), 0);
}

// Drivers are not ready for one connection in several threads.
TEST_F(XConnectionTest, EachThreadHasItsOwn) {
    const ManyWindows host(4);
    const int before = SocketCount();
    std::optional<AttachedWindow> first(std::in_place, host[0]);
    std::unique_ptr<AttachedWindow> left;
    std::thread([&] {
        const AttachedWindow second(host[1]);
        left = std::make_unique<AttachedWindow>(host[2]);
        EXPECT_TRUE(ShowsColor(second, 2) && ShowsColor(*left, 3)) << LastWindowError();
        EXPECT_EQ(SocketCount(), before + 2);
    }).join();
    EXPECT_TRUE(ShowsColor(*first, 1)) << LastWindowError();
    EXPECT_EQ(SocketCount(), before + 2);
    left.reset(); // its thread has ended
    EXPECT_EQ(SocketCount(), before + 1);
    const AttachedWindow third(host[3]);
    first.reset();
    EXPECT_TRUE(ShowsColor(third, 4)) << LastWindowError();
    EXPECT_EQ(SocketCount(), before + 1);
}

// Each round begins and ends without a connection.
TEST_F(XConnectionTest, ThreadsAttachDrawAndReleaseAtOnce) {
    constexpr int threadCount = 4;
    constexpr int rounds = 2;
    const ManyWindows host(threadCount);
    const int before = SocketCount();
    for (int round = 0; round < rounds; ++round) {
        std::atomic<int> waiting{threadCount};
        std::vector<std::thread> threads;
        for (int i = 0; i < threadCount; ++i)
            threads.emplace_back([&, i] {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                for (int again = 0; again < 2; ++again) {
                    const AttachedWindow window(host[i]);
                    EXPECT_TRUE(ShowsColor(window, 40 * i + again)) << LastWindowError();
                }
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(SocketCount(), before);
    }
}

TEST_F(XServerTest, AnotherServerOfTheSameNameGetsANewConnection) {
    std::optional<ManyWindows> host(std::in_place, 2, server.Display());
    const AttachedWindow first((*host)[0], Display()), second((*host)[1], Display());
    ASSERT_TRUE(ShowsColor(first, 1) && ShowsColor(second, 2)) << LastWindowError();
    const std::string display = server.Display();
    server.Replace();
    ASSERT_EQ(server.Display(), display);
    host.emplace(2, display);
    const AttachedWindow third((*host)[0], Display()); // before anybody has noticed
    EXPECT_TRUE(ShowsColor(third, 3)) << LastWindowError();
    for (const AttachedWindow* const lost : {&first, &second}) {
        RECT rect{};
        EXPECT_FALSE(GetClientRect(lost->Handle(), &rect));
        EXPECT_TRUE(LastWordsHave("the connection to display \"" + display + "\" is lost"))
            << LastWindowError();
    }
    const int before = SocketCount();
    const AttachedWindow fourth((*host)[1], Display());
    EXPECT_TRUE(ShowsColor(fourth, 4) && ShowsColor(third, 5)) << LastWindowError();
    EXPECT_EQ(SocketCount(), before);
}

TEST_F(XServerTest, AChildProcessGetsAConnectionOfItsOwn) {
    const ManyWindows host(2, server.Display());
    const AttachedWindow window(host[0], Display());
    ASSERT_TRUE(ShowsColor(window, 1)) << LastWindowError();
    const pid_t child = fork();
    if (child == 0) {
        alarm(static_cast<unsigned>(KivoTest::patience.count()));
        _exit(AttachX11Window(host[1], Display()) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(ShowsColor(window, 2)) << LastWindowError();
}

// Colours are allocated in a palette for the connection, which other windows keep.
TEST(XPalette, ColorsAreGivenBackWithTheirWindow) {
    const PrivateXServer server("640x480x8");
    if (server.Display().empty()) GTEST_SKIP() << "no Xvfb";
    const ManyWindows host(1, server.Display());
    xcb_connection_t* const connection = host.Connection();
    const AttachedWindow keeper(host[0], server.Display().c_str());
    const xcb_colormap_t palette = xcb_generate_id(connection);
    xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, palette, host.FrameId(),
                        host.Screen().root_visual);
    const auto isFree = [&] {
        const auto request = xcb_alloc_color_cells(connection, 0, palette, 256, 0);
        const KivoTest::Reply<xcb_alloc_color_cells_reply_t> reply(
            xcb_alloc_color_cells_reply(connection, request, nullptr));
        if (!reply) return false;
        const auto freed =
            xcb_free_colors_checked(connection, palette, 0, 256, xcb_alloc_color_cells_pixels(reply.get()));
        return xcb_request_check(connection, freed) == nullptr;
    };
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, host.FrameId(), 0, 0, side, side, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_COLORMAP, &palette);
    ASSERT_TRUE(isFree());
    {
        const AttachedWindow attached(window, server.Display().c_str());
        EXPECT_TRUE(ShowsColor(attached, 51)) << LastWindowError();
        EXPECT_FALSE(isFree());
    }
    EXPECT_TRUE(KivoTest::WaitFor(isFree));
}

// ---- What has run out

TEST_F(XServerTest, SaysThatTheServerTakesNoMoreClients) {
    const ManyWindows host(2, server.Display());
    std::optional<AttachedWindow> attached(std::in_place, host[0], Display());
    std::vector<xcb_connection_t*> others;
    testing::internal::CaptureStderr(); // to which XCB writes
    do
        others.push_back(xcb_connect(Display(), nullptr));
    while (xcb_connection_has_error(others.back()) == 0);
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    {
        const AttachedWindow another(host[1], Display());
        EXPECT_TRUE(ShowsColor(another, 1)) << "needs no client: " << LastWindowError();
    }
    // The place that this gives back is taken.
    attached.reset();
    EXPECT_TRUE(KivoTest::WaitFor([&] {
        xcb_disconnect(others.back());
        others.back() = xcb_connect(Display(), nullptr);
        return xcb_connection_has_error(others.back()) == 0;
    }));
    EXPECT_EQ(AttachX11Window(host[1], Display()), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_BUSY);
    EXPECT_TRUE(LastWordsHave("the X server refuses another client")) << LastWindowError();
    for (xcb_connection_t* const other : others)
        xcb_disconnect(other);
}

TEST_F(XServerTest, SaysThatThereAreTooManyOpenFiles) {
    const ManyWindows host(1, server.Display());
    const char* const display = Display();
    // A sanitizer that meets a type for the first time opens a pipe.
    ASSERT_EQ(ReleaseWindow(AttachX11Window(host[0], display)), 0);
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
    const rlimit none{3, usual.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const HWND window = AttachX11Window(host[0], display);
    EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(GetLastError(), ERROR_TOO_MANY_OPEN_FILES);
    EXPECT_TRUE(LastWordsHave("there are too many open files")) << LastWindowError();
    EXPECT_EQ(ReleaseWindow(AttachX11Window(host[0], display)), 0);
}

} // namespace KivoDrawingTools
