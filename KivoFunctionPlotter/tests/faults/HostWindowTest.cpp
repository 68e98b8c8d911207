// What a host may do to its window while a plotter draws in it: hide, move, resize or destroy it, or lose the
// display altogether.
#include "KivoPicture.h"
#include "support/Deadline.h"
#include "support/Holdings.h"
#include "support/PublicOperations.h"
#include "support/X11TestWindow.h"

#include <optional>
#include <string>
#include <thread>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

// A plot in an X11 window on a display of its own.
class HostWindow : public testing::Test {
protected:
    static constexpr int width = RecordedPlot::width;
    static constexpr int height = RecordedPlot::height;

    void SetUp() override {
        if (server.Display().empty()) GTEST_SKIP() << "no Xvfb";
        X11TestWindow::Options options;
        options.width = width;
        options.height = height;
        options.display = server.Display();
        host.emplace(options);
        ASSERT_TRUE(host->Ok());
        handle = AttachX11Window(host->Id(), server.Display().c_str());
        ASSERT_NE(handle, nullptr) << LastWindowError();
        plot.plotter.OnDestroy();
        ASSERT_EQ(plotter.OnCreate(handle, width, height, true), 0) << LastWindowError();
        plot.Fill();
        ASSERT_EQ(plotter.Renderscene(), 0);
        picture = Shown();
    }
    ~HostWindow() override {
        plotter.OnDestroy();
        ReleaseWindow(handle);
    }

    std::vector<std::uint8_t> Shown() {
        RECT rect;
        GetClientRect(handle, &rect); // the display has done everything that was asked before
        return host->Grab();
    }
    void ExpectPictureAsBefore() {
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_EQ(Shown(), picture);
    }

    // Every public member comes back, and afterwards a new window works.
    void ExpectToSurvive() {
        for (const PublicOperation& operation : PublicOperations()) {
            SCOPED_TRACE(operation.name);
            operation.run(plotter);
            wglMakeCurrent(nullptr, nullptr);
        }
        EXPECT_EQ(plotter.Renderscene(), frameWindowGone);
        EXPECT_NE(std::string(LastWindowError()), "");
        EXPECT_EQ(plotter.OnDestroy(), 0);
        EXPECT_EQ(plotter.OnDestroy(), 0);
        EXPECT_EQ(plotter.OnCreate(handle, width, height, true), -1) << "there is no window";
        EXPECT_EQ(ReleaseWindow(handle), 0);
        handle = nullptr;
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), width, height, true), 0) << LastWindowError();
        plotter.SetData(NewHill(6, 5), 6, 5, 1, 6, 3);
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_TRUE(IsOpenGlInOrder(plotter));
    }

    PrivateXServer server{"640x480x24"};
    std::optional<X11TestWindow> host;
    HWND handle = nullptr;
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    std::vector<std::uint8_t> picture;
};

} // namespace

TEST_F(HostWindow, DestroyedBeforeOnDestroy) {
    host->Destroy();
    ExpectToSurvive();
}

TEST_F(HostWindow, ItsDisplayIsGone) {
    server.Kill();
    ExpectToSurvive();
}

TEST_F(HostWindow, InUseByAnotherThread) {
    plotter.BeginGLOperation();
    std::thread([&] {
        EXPECT_EQ(plotter.Renderscene(), frameElsewhere);
        EXPECT_NE(std::string(LastWindowError()).find("current in another thread"), std::string::npos)
            << LastWindowError();
    }).join();
    plotter.EndGLOperation();
    ExpectPictureAsBefore();
}

TEST_F(HostWindow, HiddenAndShownAgain) {
    xcb_unmap_window(host->Connection(), static_cast<xcb_window_t>(host->Id()));
    EXPECT_EQ(plotter.Renderscene(), 0) << LastWindowError();
    xcb_map_window(host->Connection(), static_cast<xcb_window_t>(host->Id()));
    host->Children(); // waits for the display
    ExpectPictureAsBefore();
}

TEST_F(HostWindow, MovedIntoAnotherWindow) {
    X11TestWindow::Options options;
    options.display = server.Display();
    options.width = 600;
    options.height = 440;
    const X11TestWindow parent(options);
    xcb_reparent_window(host->Connection(), static_cast<xcb_window_t>(host->Id()),
                        static_cast<xcb_window_t>(parent.Id()), 120, 80);
    host->Children(); // waits for the display
    ExpectPictureAsBefore();
    // Screen coordinates, as those of the wheel, follow.
    EXPECT_TRUE(plotter.IsScreenPointInWindow({120 + width - 1, 80 + height - 1}));
    EXPECT_FALSE(plotter.IsScreenPointInWindow({119, 79}));
    // The host's windows go from the inside out.
    xcb_reparent_window(host->Connection(), static_cast<xcb_window_t>(host->Id()), host->Screen().root, 0, 0);
    host->Children();
    ExpectPictureAsBefore();
}

TEST_F(HostWindow, OfAnySize) {
    const struct {
        int width, height;
    } sizes[] = {{1, 1}, {1, 16384}, {16384, 1}, {16384, 16384}, {32767, 20}, {3, 2}};
    for (const auto& size : sizes) {
        SCOPED_TRACE(testing::Message() << size.width << " x " << size.height);
        host->Resize(size.width, size.height);
        plotter.OnSize(0, size.width, size.height);
        plotter.Renderscene(); // what no memory or driver can draw fails
        EXPECT_TRUE(IsOpenGlInOrder(plotter));
        plotter.OnSize(0, 0, 0);
        if (size.width < 16384 || size.height < 16384) plotter.Renderscene(); // the largest takes a second
        const CurrentContext context(plotter);
        while (glGetError() != GL_NO_ERROR) {
        } // a view of no width is refused
    }
    host->Resize(width, height);
    plotter.OnSize(0, width, height);
    ExpectPictureAsBefore();
    EXPECT_TRUE(IsOpenGlInOrder(plotter));
}

// The window goes for good in the middle of what the host does with it; nothing is lost by it.
TEST_F(HostWindow, LivesThatEndWithTheWindow) {
    std::optional<Holdings> before;
    for (int i = 0; i < 4; ++i) {
        X11TestWindow::Options options;
        options.display = server.Display();
        X11TestWindow window(options);
        const HWND attached = AttachX11Window(window.Id(), server.Display().c_str());
        ASSERT_NE(attached, nullptr) << LastWindowError();
        {
            CallProbe other;
            ASSERT_EQ(other.OnCreate(attached, 320, 240, true), 0) << LastWindowError();
            other.SetData(NewHill(6, 5), 6, 5, 1, 6, 3);
            EXPECT_EQ(other.Renderscene(), 0);
            window.Destroy();
            EXPECT_NE(other.Renderscene(), 0);
        }
        EXPECT_EQ(ReleaseWindow(attached), 0);
        // The first life leaves what all later ones use.
        if (!before && i > 0) before.emplace();
    }
    EXPECT_TRUE(AreEqual(Holdings(), *before));
}
