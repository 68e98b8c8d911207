// The viewer's window keeps up with the hand: fewer points while the plot moves, one frame for all that
// waits, and complete frames that do not stand in its way.
#include "Content.h"
#include "Options.h"
#include "Picture.h"
#include "PlotScene.h"
#include "support/Image.h"
#include "support/Pause.h"
#include "ViewerWindow.h"

#include <KivoHost.h>
#include <KivoPlotView.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::CKivoPlotView;
using KivoDrawingTools::Compare;
using KivoDrawingTools::KivoMouseButton;
using KivoDrawingTools::MK_RBUTTON;
using KivoDrawingTools::POINT;
using KivoDrawingTools::SKivoPlotViewEvents;

namespace {

const std::string size = std::to_string(plotWidth) + "x" + std::to_string(plotHeight);

// 900 x 900 points, more than are drawn while the hand moves, every fourth of every fourth row a hole. Of
// every second point or fewer no cell is left: each has a hole in it. Where all are drawn, three of four
// cells are.
const std::vector<std::string> sieve = {
    "--size",
    size,
    "--function",
    "((x+2)/4 == rint((x+2)/4)) && ((y+2)/4 == rint((y+2)/4)) ? 0/0 : sin(x/50)*cos(y/50)",
    "--x",
    "0:899:900",
    "--y",
    "0:899:900",
    "--no-frame-lines"};

class ViewerWindowMotionTest : public ViewerWindow {
protected:
    static int SurfaceOf(const Image& image) {
        int count = 0;
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width * 8 / 10; ++x) // the legend is on the right
                count += IsColorful(image.Pixel(x, y));
        return count;
    }

    bool ShowsAll() const { return SurfaceOf(Grab()) > SurfaceOf(m_start) / 2; }

    // Moves the pointer to and fro until fewer points are seen.
    bool ShakeUntilReduced() {
        return WaitFor([this] {
            desktop->MovePointer(MiddleX() + ++m_step % 2, MiddleY());
            return !ShowsAll();
        });
    }

    int MiddleX() const { return m_plotArea.x + plotWidth / 2; }
    int MiddleY() const { return m_plotArea.y + plotHeight / 2; }
    void MoveTo(const POINT& place) { desktop->MovePointer(m_plotArea.x + place.x, m_plotArea.y + place.y); }

    int m_step = 0;
};

TEST_F(ViewerWindowMotionTest, DrawsFewerPointsUntilTheHandRests) {
    Start(sieve);
    MoveBy(0, 0);
    desktop->Button(rightButton, true);
    EXPECT_TRUE(ShakeUntilReduced());
    Keep(Grab(), "reduced");
    EXPECT_TRUE(WaitFor([this] { return ShowsAll(); })) << "nothing complete where the hand rests";
    EXPECT_TRUE(ShakeUntilReduced());
    desktop->Button(rightButton, false);
    EXPECT_TRUE(WaitFor([this] { return ShowsAll(); })) << "nothing complete after the release";
    EXPECT_TRUE(WaitFor([this] {
        desktop->Click(++m_step % 2 ? wheelUp : wheelDown);
        return !ShowsAll();
    })) << "all points while the wheel turns";
    EXPECT_TRUE(WaitFor([this] { return ShowsAll(); })) << "nothing complete after the wheel";
    ExpectStart(After(
        "reset", [] { Press('0'); }, 0.0));
}

TEST_F(ViewerWindowMotionTest, DrawsAllPointsWhereWanted) {
    const FrameCount count;
    Start(sieve, count.For());
    Press('r');
    MoveBy(0, 0);
    desktop->Button(rightButton, true);
    const int before = count.Frames();
    EXPECT_TRUE(WaitFor([&] {
        desktop->MovePointer(MiddleX() + ++m_step % 2, MiddleY());
        EXPECT_TRUE(ShowsAll());
        return count.Frames() > before + 5;
    }));
    desktop->Button(rightButton, false);
    Press('r');
    desktop->Button(rightButton, true);
    EXPECT_TRUE(ShakeUntilReduced());
    desktop->Button(rightButton, false);
}

// ---- What waits -----------------------------------------------------------------------------------------

// What the viewer shows of the sample terrain, with a frame for each movement.
class ExpectedScene {
public:
    ExpectedScene() {
        m_view.SetSize(plotWidth, plotHeight);
        EXPECT_EQ(m_view.Failure(), "");
        KivoViewer::Options options;
        options.files = {KIVO_SAMPLE_TERRAIN};
        m_view.Plotter(); // which has the size then
        ShowContent(m_scene, LoadContent(options, nullptr), options);
    }

    void Press(const POINT& place, KivoMouseButton button = KivoMouseButton::right) {
        m_view.Press(button, 0, place);
    }
    void Release(KivoMouseButton button = KivoMouseButton::right) { m_view.Release(button); }
    void KeepUpright(bool upright) { m_view.KeepUpright(upright); }
    void Center(const POINT& place) { ShiftView(m_scene.Plotter(), place, m_scene.Plotter().PlotCenter()); }
    void Move(const POINT& place, unsigned int keys) {
        m_view.Move(keys, place);
        m_view.Draw();
    }
    void Wheel(int delta, const POINT& place) {
        m_view.Wheel(delta, place);
        m_view.Draw();
    }

    Image Picture() {
        KivoViewer::PictureFormat format;
        format.width = plotWidth;
        format.height = plotHeight;
        Image image(plotWidth, plotHeight);
        image.rgba = CaptureScene(m_scene, format);
        return image;
    }

private:
    SKivoPlotViewEvents Events() {
        SKivoPlotViewEvents events;
        events.layOut = [this](int width, int height) { m_scene.Resize(width, height); };
        return events;
    }

    CKivoPlotView m_view{Events(), std::make_unique<KivoViewer::ViewerPlotter>()};
    KivoViewer::PlotScene m_scene{static_cast<KivoViewer::ViewerPlotter&>(m_view.Plotter())};
};

class ViewerWindowWaitingInputTest : public ViewerWindowMotionTest {
protected:
    void SetUp() override {
        ViewerWindowMotionTest::SetUp();
        if (!IsSkipped()) Start({"--size", size, KIVO_SAMPLE_TERRAIN}, m_count.For());
    }

    void ExpectShown(const std::string& step) {
        const Image expected = m_expected.Picture();
        Image shown;
        const bool isShown = WaitFor([&] {
            shown = Grab();
            return Compare(shown, expected).mean < 0.5;
        });
        Keep(shown, step);
        if (isShown) return;
        Keep(expected, step + "-expected");
        ADD_FAILURE() << step << ": mean difference " << Compare(shown, expected).mean;
    }

    void Move(const POINT& place, unsigned int keys) {
        MoveTo(place);
        m_expected.Move(place, keys);
    }
    void Press(const POINT& place) {
        desktop->Button(rightButton, true);
        m_expected.Press(place);
    }
    void Release() {
        desktop->Button(rightButton, false);
        m_expected.Release();
    }

    // From a place to another one and back to a third.
    void Drag(PointerButton pointerButton, KivoMouseButton button) {
        Move({300, 200}, 0);
        desktop->Button(pointerButton, true);
        m_expected.Press({300, 200}, button);
        Move({380, 230}, 0);
        Move({360, 260}, 0);
        desktop->Button(pointerButton, false);
        m_expected.Release(button);
    }

    FrameCount m_count;
    ExpectedScene m_expected;
};

TEST_F(ViewerWindowWaitingInputTest, EveryButtonDoesItsOwn) {
    Drag(rightButton, KivoMouseButton::right);
    ExpectShown("turned freely");
    m_expected.KeepUpright(true);
    Drag(leftButton, KivoMouseButton::left);
    ExpectShown("turned upright");
    Drag(middleButton, KivoMouseButton::middle);
    ExpectShown("shifted");
    ViewerWindow::Press('u');
    m_expected.KeepUpright(false);
    Drag(leftButton, KivoMouseButton::left);
    ExpectShown("turned freely by the left button");
}

TEST_F(ViewerWindowWaitingInputTest, ADoubleClickBringsWhatIsThereToTheMiddle) {
    MoveTo({220, 260});
    Settle();
    for (int i = 0; i < 2; ++i)
        desktop->Click(leftButton);
    m_expected.Center({220, 260});
    ExpectShown("centred");
}

TEST_F(ViewerWindowWaitingInputTest, ShowsMovesByOneFrame) {
    constexpr int moves = 60;
    ExpectShown("start");
    Move({300, 200}, 0);
    Press({300, 200});
    Settle();
    const int before = m_count.Frames();
    {
        const Pause pause(*m_viewer, *desktop);
        for (int i = 1; i <= moves; ++i)
            Move({300 + 3 * i, 200 + i}, MK_RBUTTON);
    }
    ExpectShown("moved");
    const int frames = m_count.Frames() - before;
    EXPECT_GE(frames, 1);
    EXPECT_LE(frames, moves / 6) << "one is due, and one at rest; they need not all come at once";
    Release();
    ExpectShown("released");
}

TEST_F(ViewerWindowWaitingInputTest, ShowsStepsOfTheWheelByOneFrame) {
    constexpr int in = 24, out = 16; // not what none at all comes to
    Move({300, 200}, 0);
    Settle();
    const int before = m_count.Frames();
    {
        const Pause pause(*m_viewer, *desktop);
        for (int i = 0; i < in + out; ++i)
            desktop->Click(i < in ? wheelUp : wheelDown);
    }
    for (int i = 0; i < in + out; ++i)
        m_expected.Wheel(i < in ? 120 : -120, {300, 200});
    ExpectShown("zoomed");
    const int frames = m_count.Frames() - before;
    EXPECT_GE(frames, 1);
    EXPECT_LE(frames, in / 2) << "one is due, and one at rest; they need not all come at once";
}

// Each drag ends where the button went up, and begins where it went down; Shift counts from when it is down.
TEST_F(ViewerWindowWaitingInputTest, KeepsItsOrder) {
    Move({300, 200}, 0);
    Settle();
    {
        const Pause pause(*m_viewer, *desktop);
        for (const unsigned int key : {0U, KivoDrawingTools::MK_SHIFT}) {
            Press({300, 200});
            for (int i = 1; i <= 5; ++i)
                Move({300 + 20 * i, 200 + 6 * i}, MK_RBUTTON);
            if (key) desktop->Key(shiftKey, true);
            for (int i = 4; i >= 3; --i)
                Move({300 + 20 * i, 200 + 6 * i}, MK_RBUTTON | key);
            Release();
            if (key) desktop->Key(shiftKey, false);
            for (int i = 2; i >= 0; --i)
                Move({300 + 20 * i, 200 + 6 * i}, 0);
        }
    }
    ExpectShown("dragged");
}

// The view that a key asks for comes after the moves before it, and undoes them.
TEST_F(ViewerWindowWaitingInputTest, ComesBeforeAKeyAfterIt) {
    Settle();
    {
        const Pause pause(*m_viewer, *desktop);
        MoveTo({300, 200});
        desktop->Button(rightButton, true);
        for (int i = 1; i <= 5; ++i)
            MoveTo({300 + 20 * i, 200 + 6 * i});
        ViewerWindow::Press('0');
    }
    Settle();
    desktop->Button(rightButton, false);
    WaitFor([this] { return Settled().rgba == m_start.rgba; });
    ExpectStart(Settled());
}

// Until no more come: a frame takes 200 milliseconds, the pause of the hand 400.
bool WaitForLastFrame(const FrameCount& count) {
    return WaitFor([&] {
        const int frames = count.Frames();
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        return count.Frames() == frames;
    });
}

// Frames that take so long that a hand would wait for them come when it rests, and not at each release.
TEST_F(ViewerWindowMotionTest, PutsSlowFramesOffUntilTheHandRests) {
    const FrameCount count;
    Start(sieve, count.For(200));
    MoveBy(0, 0);
    Settle();
    EXPECT_TRUE(WaitForLastFrame(count)) << "finds out how many points it can show";
    constexpr int grabs = 6;
    const int before = count.Frames();
    for (int i = 1; i <= grabs; ++i) {
        {
            const Pause pause(*m_viewer, *desktop);
            desktop->Button(rightButton, true);
            desktop->MovePointer(MiddleX() + 10 * (i % 2), MiddleY());
            desktop->Button(rightButton, false);
        }
        EXPECT_TRUE(WaitFor([&] { return count.Frames() >= before + i; })) << "grab " << i << " is not shown";
    }
    EXPECT_TRUE(WaitFor([&] { return ShowsAll(); }));
    EXPECT_TRUE(WaitForLastFrame(count));
    EXPECT_LT(count.Frames() - before, 2 * grabs) << "a complete frame after each grab";
}

} // namespace
