// Pictures that take long, and are not wanted any more before they are drawn.
#include "KivoContours.h"
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoSurfaces.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 160, height = 120;

// Says yes to a question, the first of which is 0, and no to those before.
struct Questions {
    int yesTo = -1; // to none
    int asked = 0;

    SKivoStopRequest Request() {
        const auto ask = [](void* self) {
            auto& questions = *static_cast<Questions*>(self);
            return questions.asked++ == questions.yesTo;
        };
        return {ask, this};
    }
};

class StoppedPicture : public WindowTest {
protected:
    void Show(const TestSurface& surface) {
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    }

    // Draws, as far as it is wanted.
    int Draw(Questions& questions, int smoothing, Image& image) {
        SKivoPictureOptions options = size;
        options.smoothing = smoothing;
        options.stop = questions.Request();
        return CapturePicture(plotter, options, image.rgba, image.width, image.height);
    }

    Image Whole(int smoothing) {
        SKivoPictureOptions options = size;
        options.smoothing = smoothing;
        Image image;
        EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
        return image;
    }

    // Stopped at any question, nothing of the picture is told, and the next one is whole.
    void ExpectStopsEverywhere(const std::string& name, int smoothing, int leastQuestions) {
        const Image whole = Whole(smoothing);
        Questions patient;
        Image asked;
        ASSERT_EQ(Draw(patient, smoothing, asked), 0) << name;
        EXPECT_TRUE(ImagesAgree(asked, whole, 0, 0, name + "-asked"));
        EXPECT_GE(patient.asked, leastQuestions) << name;
        constexpr int most = 30; // of those where it is stopped
        for (int i = 0; i < patient.asked; i += patient.asked / most + 1) {
            Questions questions;
            questions.yesTo = i;
            Image stopped(3, 2);
            const std::vector<unsigned char> before = stopped.rgba;
            EXPECT_EQ(Draw(questions, smoothing, stopped), -4) << name << " at " << i;
            EXPECT_EQ(questions.asked, i + 1) << name << ": one yes holds";
            EXPECT_EQ(stopped.rgba, before);
            EXPECT_EQ(stopped.width, 3);
        }
        EXPECT_TRUE(ImagesAgree(Whole(smoothing), whole, 0, 0, name + "-after"));
    }

    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;
    SKivoPictureOptions size; // of the pictures: at first the window's
};

} // namespace

// 89,401 cells are drawn in three parts, their frame lines in two.
TEST_P(StoppedPicture, OfAManyCells) {
    Show(HillSurface(300, 300));
    for (const int smoothing : {1, 2})
        ExpectStopsEverywhere("cells", smoothing, 5);
}

// As often where most of them are left out.
TEST_P(StoppedPicture, OfManyCellsSmallerThanPixels) {
    Show(HillSurface(450, 300));
    plotter.ShowFrameLines(false);
    const auto questions = [&] {
        Questions patient;
        Image image;
        EXPECT_EQ(Draw(patient, 1, image), 0);
        return patient.asked;
    };
    const int all = questions();
    ASSERT_EQ(CullSmallTriangles(plotter, true), 0);
    EXPECT_EQ(questions(), all);
    ExpectStopsEverywhere("culled", 1, 5);
}

TEST_P(StoppedPicture, OfSurfacesThatShowThrough) {
    Show(HillSurface(300, 300));
    const TestSurface saddle = SaddleSurface(250, 250);
    SKivoSurface looks;
    looks.opacity = 0.5f;
    ASSERT_GT(AddSurface(plotter, saddle.points.data(), 250, 250, 1, 250, 3, looks), 0);
    ASSERT_EQ(SetSurface(plotter, 0, looks), 0);
    ExpectStopsEverywhere("through", 1, 10);
}

// Its order is made by the first frame, which is stopped.
TEST_P(StoppedPicture, BeforeTheOrderOfASurfaceThatShowsThrough) {
    const TestSurface hill = HillSurface(300, 300);
    SKivoSurface looks;
    looks.opacity = 0.5f;
    Show(hill);
    ASSERT_EQ(SetSurface(plotter, 0, looks), 0);
    const Image whole = Whole(1);
    for (int i = 0; i < 20; ++i) {
        Show(hill);
        Questions questions;
        questions.yesTo = i;
        Image stopped;
        EXPECT_EQ(Draw(questions, 1, stopped), -4) << i;
        EXPECT_TRUE(ImagesAgree(Whole(1), whole, 0, 0, "order")) << i;
    }
}

TEST_P(StoppedPicture, OfAnOpaqueSurfaceOverTheFirst) {
    Show(HillSurface(20, 20));
    const TestSurface saddle = SaddleSurface(250, 250);
    ASSERT_GT(AddSurface(plotter, saddle.points.data(), 250, 250, 1, 250, 3), 0);
    ExpectStopsEverywhere("over", 1, 4);
}

TEST_P(StoppedPicture, OfAFilledFlatPlot) {
    Show(NoiseSurface(300, 300)); // whose contours are long, too
    ASSERT_EQ(FillContours(plotter, true), 0);
    plotter.SwitchToXYProjectPlot();
    ExpectStopsEverywhere("filled", 2, 5);
}

TEST_P(StoppedPicture, OfManyContours) {
    Show(NoiseSurface(200, 200));
    ASSERT_EQ(plotter.SetIsoContourCount(30), 0);
    plotter.SwitchToXYProjectPlot();
    ExpectStopsEverywhere("contours", 1, 25);
}

// Lines are joined for their labels by the first frame, level by level; what was stopped there begins anew.
TEST_P(StoppedPicture, BeforeTheLinesOfLabelsAreJoined) {
    const TestSurface surface = HillSurface(90, 70);
    plotter.SwitchToXYProjectPlot();
    size.width = 640; // where there is room for labels
    size.height = 480;
    Show(surface);
    const Image unlabelled = Whole(1);
    ASSERT_EQ(LabelContours(plotter, true), 0);
    const std::size_t levels = plotter.m_flatZIsoContours.size();
    ASSERT_GT(levels, 5u);
    Image image;
    Questions first, second;
    ASSERT_EQ(Draw(first, 1, image), 0);
    ASSERT_EQ(Draw(second, 1, image), 0);
    EXPECT_EQ(first.asked, second.asked + static_cast<int>(levels));
    const Image whole = Whole(1);
    EXPECT_GT(Compare(whole, unlabelled).max, 50);
    for (int i = 0; i < first.asked; i += 3) {
        Show(surface);
        Questions questions;
        questions.yesTo = i;
        EXPECT_EQ(Draw(questions, 1, image), -4) << i;
        EXPECT_EQ(questions.asked, i + 1) << "one yes holds";
        EXPECT_TRUE(ImagesAgree(Whole(1), whole, 0, 0, "joined")) << i;
    }
}

TEST_P(StoppedPicture, OfManyMarkers) {
    Show(HillSurface(20, 20));
    std::vector<float> points;
    for (int i = 0; i < 1000; ++i)
        points.insert(points.end(), {0.004f * static_cast<float>(i), 0.0f, 1.0f});
    ASSERT_GE(plotter.AddCurveData(points.data(), 1000, 3), 0);
    ASSERT_EQ(plotter.AddMeasurePoints(1000, 3, points.data(), "many"), 0);
    ExpectStopsEverywhere("markers", 1, 8 + 3); // four of the curve, four of the group
}

TEST_P(StoppedPicture, OfAnEmptyPlot) {
    ExpectStopsEverywhere("empty", 1, 1);
}

TEST_P(StoppedPicture, WithoutGround) {
    Show(HillSurface(300, 300));
    SKivoPictureOptions options;
    options.transparent = true;
    Image whole;
    ASSERT_EQ(CapturePicture(plotter, options, whole.rgba, whole.width, whole.height), 0);
    Questions questions;
    questions.yesTo = 7; // on the second ground
    options.stop = questions.Request();
    Image image;
    EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), -4);
    options.stop = {};
    ASSERT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
    EXPECT_TRUE(ImagesAgree(image, whole, 0, 0, "ground-after"));
}

// A failure is told as one, whatever is wanted.
TEST_P(StoppedPicture, ARefusedOneIsNotStopped) {
    Questions questions;
    questions.yesTo = 0;
    SKivoPictureOptions options;
    options.smoothing = 5;
    options.stop = questions.Request();
    Image image;
    EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), -3);
    EXPECT_EQ(questions.asked, 0);
}

// ---- Movements

TEST_P(StoppedPicture, AMeasurement) {
    Show(HillSurface(300, 300));
    const Image whole = Whole(1);
    constexpr double time = 1e6; // that every frame keeps
    Questions patient;
    EXPECT_EQ(MotionDetailFor(plotter, time, patient.Request()), 0u);
    EXPECT_GT(patient.asked, 5);
    for (int i = 0; i < patient.asked; i += 3) {
        Questions questions;
        questions.yesTo = i;
        EXPECT_EQ(MotionDetailFor(plotter, time, questions.Request()), 0u);
        EXPECT_EQ(questions.asked, i + 1) << "one yes holds";
    }
    EXPECT_TRUE(ImagesAgree(Whole(1), whole, 0, 0, "measured"));
}

// The bands of a movement are those of the points that are kept: of a plane they are the same, and the lines
// between them to a pixel.
TEST_P(StoppedPicture, AFilledFlatPlotThatMovesIsDrawnFromFewerPoints) {
    Show(PlaneSurface(300, 300));
    ASSERT_EQ(FillContours(plotter, true), 0);
    ASSERT_EQ(SetMotionDetail(plotter, 20), 0);
    plotter.SwitchToXYProjectPlot();
    const Image whole = Whole(1);
    Questions questions;
    SKivoPictureOptions options;
    options.moving = true;
    options.stop = questions.Request();
    Image moved;
    ASSERT_EQ(CapturePicture(plotter, options, moved.rgba, moved.width, moved.height), 0);
    EXPECT_TRUE(ImagesAgree(moved, whole, 255, 0.2, "moved-bands"));
    Questions complete;
    Image image;
    ASSERT_EQ(Draw(complete, 1, image), 0);
    EXPECT_GT(complete.asked, questions.asked + 1) << "fewer cells are drawn";
    EXPECT_TRUE(ImagesAgree(image, whole, 0, 0, "whole-bands"));
}

KIVO_IN_EVERY_WINDOW(StoppedPicture);
