#include "ViewerWindow.h"

#include "support/PngImage.h"
#include "support/Quiet.h"
#include "support/X11TestWindow.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <sstream>
#include <thread>

namespace KivoTest {

using KivoDrawingTools::Compare;

ScreenArea PlotIn(const Image& window) {
    constexpr int inset = 2; // from edges that may end within a pixel
    if (window.width < 100 || window.height < 100) return {};
    const auto areAlike = [&](int x, int y, const unsigned char* color) {
        return std::memcmp(window.Pixel(x, y), color, 3) == 0;
    };
    const unsigned char* const ground = window.Pixel(inset, window.height / 2);
    int top = window.height / 2, bottom = top;
    while (top > 0 && areAlike(inset, top - 1, ground))
        --top;
    while (bottom < window.height && areAlike(inset, bottom, ground))
        ++bottom;
    if (top == 0 || bottom == window.height) return {};
    const unsigned char* const bar = window.Pixel(inset, window.height - inset);
    const auto isBeside = [&](int x) {
        int y = top;
        while (y < bottom && areAlike(x, y, bar))
            ++y;
        return y == bottom;
    };
    int right = 0;
    while (right < window.width && !isBeside(right))
        ++right;
    return {0, top, right, bottom - top};
}

void ViewerWindow::SetUpTestSuite() {
    desktop = std::make_unique<Desktop>();
}

void ViewerWindow::TearDownTestSuite() {
    desktop.reset();
}

void ViewerWindow::SetUp() {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    ASSERT_TRUE(desktop->Ok());
    Start({"--size", std::to_string(plotWidth) + "x" + std::to_string(plotHeight)});
}

void ViewerWindow::TearDown() {
    if (!m_viewer) return;
    for (const xcb_keysym_t key : {controlKey, shiftKey, altKey})
        desktop->Key(key, false);
    for (const PointerButton button : {leftButton, rightButton})
        desktop->Button(button, false);
    m_viewer.reset();
}

void ViewerWindow::Start(const std::vector<std::string>& arguments, Environment environment) {
    Launch(arguments, std::move(environment));
    WaitForPicture();
}

void ViewerWindow::Launch(const std::vector<std::string>& arguments, Environment environment) {
    environment["QT_QPA_PLATFORM"] = std::nullopt;
    environment["XDG_CONFIG_HOME"] = Path("config");
    environment["HOME"] = m_folder.Path();
    m_viewer = std::make_unique<ViewerProcess>(arguments, environment);
    m_told = 0;
    m_window = XCB_NONE;
}

void ViewerWindow::WaitForPicture() {
    ASSERT_TRUE(WaitFor([this] { return FindWindows(); })) << "no window; " << m_viewer->Errors();
    desktop->MovePointer(m_plotArea.x + plotWidth / 2, m_plotArea.y + plotHeight / 2);
    desktop->Focus(m_window);
    WaitFor([this] {
        Settle();
        m_start = FindWindows() ? Grab() : Image();
        return CountOf(m_start, IsColorful) > 5000;
    });
    Keep(m_start, "start");
    ASSERT_GT(CountOf(m_start, IsColorful), 5000) << "no surface on the screen";
}

std::vector<xcb_window_t> ViewerWindow::Windows() const {
    std::vector<xcb_window_t> windows = desktop->ChildrenOf(desktop->Root());
    const auto process = static_cast<std::uint32_t>(m_viewer->Id());
    windows.erase(std::remove_if(windows.begin(), windows.end(),
                                 [&](xcb_window_t window) {
                                     return !desktop->IsShown(window) ||
                                            desktop->ProcessOf(window) != process;
                                 }),
                  windows.end());
    return windows;
}

bool ViewerWindow::FindWindows() {
    const std::vector<xcb_window_t> windows = Windows();
    m_window = windows.empty() ? XCB_NONE : windows.back();
    m_plotArea = {};
    if (m_window == XCB_NONE) return false;
    const ScreenArea window = AreaOf(m_window);
    const ScreenArea plot = PlotIn(desktop->Grab(window));
    m_plotArea = {window.x + plot.x, window.y + plot.y, plot.width, plot.height};
    return plot.width > 0;
}

Image ViewerWindow::Grab(const ScreenArea& area) {
    const Image image = desktop->Grab(area);
    if (image.width > 0 && image.width == area.width) return image;
    ADD_FAILURE() << "the screen cannot be read";
    return Image(area.width, area.height);
}

void ViewerWindow::Settle() const {
    EXPECT_TRUE(WaitUntilQuiet(*desktop, *m_viewer)) << "the viewer does not come to rest";
}

Image ViewerWindow::Settled() const {
    Settle();
    return Grab();
}

void ViewerWindow::Keep(const Image& image, const std::string& step) {
    if (image.width == 0) return;
    KeepPng(image, std::string("viewer-") + testing::UnitTest::GetInstance()->current_test_info()->name() +
                       "-" + step);
}

bool IsColorful(const unsigned char* rgb) {
    return std::max({rgb[0], rgb[1], rgb[2]}) - std::min({rgb[0], rgb[1], rgb[2]}) > 60;
}

int ViewerWindow::DifferingPixels(const Image& a, const Image& b, int first, int last) {
    int count = 0;
    for (int y = first; y < last; ++y)
        for (int x = 0; x < a.width; ++x)
            count += std::memcmp(a.Pixel(x, y), b.Pixel(x, y), 3) != 0;
    return count;
}

int ViewerWindow::CountOf(const Image& image, bool (*condition)(const unsigned char*)) {
    return image.Count(condition);
}

Image ViewerWindow::After(const std::string& step, const std::function<void()>& action, double leastMean) {
    const Image before = Settled();
    action();
    Image after;
    WaitFor([&] {
        after = Settled();
        return after.rgba != before.rgba;
    });
    Keep(after, step + "-after");
    if (Compare(before, after).mean > leastMean) return after;
    Keep(before, step + "-before");
    ADD_FAILURE() << step << " changes nothing";
    return after;
}

void ViewerWindow::ExpectNoChange(const std::string& step, const std::function<void()>& action) {
    const Image before = Settled();
    action();
    const Image after = Settled();
    if (before.rgba == after.rgba) return;
    Keep(before, step + "-before");
    Keep(after, step + "-after");
    ADD_FAILURE() << step << " changes the picture";
}

void ViewerWindow::ExpectStart(const Image& image) {
    EXPECT_EQ(Compare(image, m_start).max, 0) << "the picture is not that of the start";
}

void ViewerWindow::MoveBy(int dx, int dy) {
    constexpr int steps = 10;
    const int x = m_plotArea.x + m_plotArea.width / 2;
    const int y = m_plotArea.y + m_plotArea.height / 2;
    for (int i = 0; i <= steps; ++i)
        desktop->MovePointer(x + dx * i / steps, y + dy * i / steps);
}

void ViewerWindow::Drag(PointerButton button, int dx, int dy, xcb_keysym_t modifier) {
    MoveBy(0, 0);
    if (modifier != 0) desktop->Key(modifier, true);
    desktop->Button(button, true);
    MoveBy(dx, dy);
    desktop->Button(button, false);
    if (modifier != 0) desktop->Key(modifier, false);
    Rest();
}

void ViewerWindow::Rest() const {
    constexpr std::chrono::milliseconds longestPause{450};
    Settle();
    std::this_thread::sleep_for(longestPause);
    Settle();
}

bool ViewerWindow::WaitForPlotSize(int width, int height) {
    return WaitFor([&] { return FindWindows() && m_plotArea.width == width && m_plotArea.height == height; });
}

int ViewerWindow::Close() {
    desktop->AskToClose(m_window);
    return m_viewer->WaitForExit().value_or(-1);
}

std::vector<Text> ViewerWindow::Texts() {
    constexpr xcb_keysym_t f12Key = 0xffc9;
    Press(f12Key);
    std::string told;
    const std::string end = "end\n";
    EXPECT_TRUE(WaitFor([&] {
        told = m_viewer->Output().substr(m_told);
        return told.size() >= end.size() && told.substr(told.size() - end.size()) == end;
    }));
    m_told += told.size();
    std::vector<Text> texts;
    std::istringstream lines(told);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t tab = line.find('\t');
        if (tab != std::string::npos) texts.emplace_back(line.substr(0, tab), line.substr(tab + 1));
    }
    return texts;
}

// ---- Menus and dialogs ----------------------------------------------------------------------------------

void ViewerWindow::OpenMenu(char letter) {
    PressWith(altKey, static_cast<xcb_keysym_t>(letter));
    WaitForWindow();
    Settle();
}

xcb_window_t ViewerWindow::WaitForWindow(const std::string& title) {
    xcb_window_t found = XCB_NONE;
    WaitFor([&] {
        for (const xcb_window_t window : Windows())
            if (window != m_window && (title.empty() || desktop->TitleOf(window) == title)) found = window;
        return found != XCB_NONE;
    });
    EXPECT_NE(found, xcb_window_t{XCB_NONE}) << "no window \"" << title << '"';
    return found;
}

xcb_window_t ViewerWindow::WaitForDialog(const std::string& title) {
    const xcb_window_t dialog = WaitForWindow(title);
    Settle();
    desktop->Focus(dialog);
    return dialog;
}

xcb_window_t ViewerWindow::WaitForProgress() {
    const xcb_window_t dialog = WaitForWindow("Kivo Viewer");
    desktop->Focus(dialog);
    return dialog;
}

void ViewerWindow::EndProgress(xcb_window_t dialog) {
    EXPECT_TRUE(WaitFor([&] {
        Press(escapeKey);
        return !desktop->IsShown(dialog);
    })) << "the dialog stays";
}

void ViewerWindow::WaitForNoDialog() {
    EXPECT_TRUE(WaitFor([this] {
        const std::vector<xcb_window_t> windows = Windows();
        return windows.empty() || (windows.size() == 1 && windows.front() == m_window);
    })) << "a dialog stays";
    desktop->Focus(m_window);
}

void ViewerWindow::SaveSession(const std::string& name) {
    desktop->Key(controlKey, true);
    PressWith(shiftKey, 's');
    desktop->Key(controlKey, false);
    WaitForDialog("Save the session");
    Type(Path(name));
    Press(returnKey);
    WaitForNoDialog();
    Settle();
}

void ViewerWindow::OpenFile(const std::string& name) {
    PressWith(controlKey, 'o');
    WaitForDialog("Open a grid of points");
    Type(Path(name));
    Press(returnKey);
    WaitForNoDialog();
    Settle();
}

void ViewerWindow::Type(const std::string& text) {
    for (const char character : text) {
        const auto symbol = static_cast<xcb_keysym_t>(character);
        if (character >= 'A' && character <= 'Z')
            PressWith(shiftKey, symbol - 'A' + 'a');
        else
            Press(symbol);
    }
}

void ViewerWindow::PressWith(xcb_keysym_t modifier, xcb_keysym_t symbol) {
    desktop->Key(modifier, true);
    Press(symbol);
    desktop->Key(modifier, false);
}

} // namespace KivoTest
