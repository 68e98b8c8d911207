// Names beside measure points.
#include "KivoContours.h"
#include "KivoPicture.h"
#include "KivoPoints.h"
#include "KivoView.h"
#include "parts/KivoGridBox.h"
#include "support/Image.h"
#include "support/PlotterProbe.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

struct Bounds {
    int left = 1 << 20, right = -1, top = 1 << 20, bottom = -1;
    bool IsEmpty() const { return right < 0; }
};

// Where two pictures differ.
Bounds DifferenceOf(const Image& a, const Image& b) {
    Bounds bounds;
    for (int y = 0; y < a.height; ++y)
        for (int x = 0; x < a.width; ++x)
            if (!std::equal(a.Pixel(x, y), a.Pixel(x, y) + 3, b.Pixel(x, y))) {
                bounds.left = std::min(bounds.left, x);
                bounds.right = std::max(bounds.right, x);
                bounds.top = std::min(bounds.top, y);
                bounds.bottom = std::max(bounds.bottom, y);
            }
    return bounds;
}

bool IsDark(const unsigned char* rgb) {
    return rgb[0] < 80 && rgb[1] < 80 && rgb[2] < 80;
}

bool IsCyan(const unsigned char* rgb) {
    return rgb[0] < 60 && rgb[1] > 150 && rgb[2] > 150;
}

class PointNames : public WindowTest {
protected:
    PointNames() {
        const TestSurface surface = HillSurface(30, 20);
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
        plotter.SetZGradientColor(0x0000FF, 0x0000FF);
        plotter.AddMeasurePoints(3, 3, points, "wells");
        plotter.SetMeasureGroupColor(0, 0xFFFF00);
        ShowPointsInFlatPlots(plotter, true);
        plotter.SwitchToXYProjectPlot();
    }

    Bounds Marker() const {
        Bounds bounds;
        for (int y = 0; y < without.height; ++y)
            for (int x = 0; x < without.width; ++x)
                if (IsCyan(without.Pixel(x, y))) {
                    bounds.left = std::min(bounds.left, x);
                    bounds.right = std::max(bounds.right, x);
                    bounds.top = std::min(bounds.top, y);
                    bounds.bottom = std::max(bounds.bottom, y);
                }
        return bounds;
    }

    float points[9] = {0.0f, 0.0f, 3.0f, 0.0f, 0.0f, 3.0f, 0.0f, 0.0f, 3.0f}; // all at one place
    TestPlot plot{GetParam(), 600, 450};
    PlotterProbe& plotter = plot.plotter;
    Image without;
};

} // namespace

TEST_P(PointNames, StandRightOfTheirPoints) {
    without = CaptureImage(plotter);
    ASSERT_EQ(SetMeasurePointNames(plotter, 0, {"B 12"}), 0);
    const Bounds name = DifferenceOf(CaptureImage(plotter), without), marker = Marker();
    ASSERT_FALSE(name.IsEmpty());
    EXPECT_GT(name.left, marker.right);
    EXPECT_LT(name.left, marker.right + 10);
    EXPECT_LT(name.top, marker.top + 4);
    EXPECT_GT(name.bottom, marker.bottom - 4);
    ASSERT_EQ(SetMeasurePointNames(plotter, 0, {}), 0);
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
}

TEST_P(PointNames, TakeTheNextFreeSide) {
    without = CaptureImage(plotter);
    SetMeasurePointNames(plotter, 0, {"B 12", "C 13"});
    const Bounds two = DifferenceOf(CaptureImage(plotter), without), marker = Marker();
    EXPECT_LT(two.left, marker.left - 10);
    EXPECT_GT(two.right, marker.right + 10);
    SetMeasurePointNames(plotter, 0, {"B 12", "C 13", "D 14", "beyond the points"});
    const Bounds three = DifferenceOf(CaptureImage(plotter), without);
    EXPECT_LT(three.top, two.top - 5) << "above";
    EXPECT_EQ(three.bottom, two.bottom) << "there are three points";
    SetMeasurePointNames(plotter, 0, {"", "", "D 14"});
    const Bounds last = DifferenceOf(CaptureImage(plotter), without);
    EXPECT_GT(last.left, marker.right);
}

TEST_P(PointNames, AreShownWhereTheirGroupIs) {
    SetMeasurePointNames(plotter, 0, {"B 12"});
    const auto differs = [&] {
        SetMeasurePointNames(plotter, 0, {});
        without = CaptureImage(plotter);
        SetMeasurePointNames(plotter, 0, {"B 12"});
        return !DifferenceOf(CaptureImage(plotter), without).IsEmpty();
    };
    EXPECT_TRUE(differs());
    plotter.SwitchToYZProjectPlot();
    EXPECT_TRUE(differs());
    plotter.SwitchToNormalPlot();
    EXPECT_TRUE(differs());
    plotter.ShowMeasureGroup(0, false);
    EXPECT_FALSE(differs());
    plotter.ShowMeasureGroup(0, true);
    plotter.SwitchToXYProjectPlot();
    ShowPointsInFlatPlots(plotter, false);
    EXPECT_FALSE(differs());
}

TEST_P(PointNames, AreHiddenWithTheirPoints) {
    plotter.SwitchToNormalPlot();
    SetViewAngles(plotter, 45.0, 90.0);
    const auto isSeen = [this](float z) {
        points[2] = z;
        SetMeasurePointNames(plotter, 0, {});
        without = CaptureImage(plotter);
        SetMeasurePointNames(plotter, 0, {"B 12"});
        return !DifferenceOf(CaptureImage(plotter), without).IsEmpty();
    };
    EXPECT_TRUE(isSeen(2.0f));
    EXPECT_TRUE(isSeen(0.0f)) << "on the surface";
    EXPECT_FALSE(isSeen(-2.5f)) << "below it, seen from above";
}

TEST_P(PointNames, AreRefusedWithoutAGroup) {
    EXPECT_EQ(SetMeasurePointNames(plotter, 1, {"B 12"}), -2);
    EXPECT_EQ(RemoveMeasureGroup(plotter, 0), 0);
    EXPECT_EQ(SetMeasurePointNames(plotter, 0, {"B 12"}), -2);
    plotter.OnDraw();
}

TEST_P(PointNames, GoWithTheirGroup) {
    without = CaptureImage(plotter);
    float other[] = {0.0f, 0.0f, 3.0f};
    plotter.AddMeasurePoints(1, 3, other, "other");
    SetMeasurePointNames(plotter, 0, {"B 12"});
    ASSERT_EQ(RemoveMeasureGroup(plotter, 0), 0);
    plotter.SetMeasureGroupColor(0, 0xFFFF00);
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
}

// A value that a name would lie over stands elsewhere, or not at all.
TEST_P(PointNames, MakeValuesOfContoursGiveWay) {
    const auto nameBounds = [this](bool label) {
        LabelContours(plotter, label);
        SetMeasurePointNames(plotter, 0, {});
        without = CaptureImage(plotter);
        SetMeasurePointNames(plotter, 0, {"Well 7"});
        return DifferenceOf(CaptureImage(plotter), without);
    };
    int givingWay = 0;
    for (int i = 0; i < 12; ++i) {
        points[0] = -2.5f + 0.6f * static_cast<float>(i);
        const Bounds name = nameBounds(false), both = nameBounds(true);
        ASSERT_FALSE(name.IsEmpty());
        givingWay += both.left < name.left - 2 || both.right > name.right + 2 || both.top < name.top - 2 ||
                     both.bottom > name.bottom + 2;
    }
    EXPECT_GT(givingWay, 2);
}

// At points beyond the box, and over its edges.
TEST_P(PointNames, LeaveTheNumbersOfTheAxesReadable) {
    plotter.SetXAxisTitle("Easting in metres");
    plotter.SetYAxisTitle("Northing in metres");
    CKivoGridBox& box = *plotter.m_gridBox;
    box.m_tickLength = 0.0f; // no other ink but that of texts
    const float* const min = box.m_boxMin;
    const float width = box.m_boxMax[0] - min[0], height = box.m_boxMax[1] - min[1];
    int shown = 0;
    for (int i = 0; i < 24; ++i) {
        const float along = 0.045f * static_cast<float>(i / 2), beyond = 0.013f * static_cast<float>(i / 2);
        const bool isLeft = i % 2 == 0;
        points[0] = min[0] + (isLeft ? -beyond : along) * width;
        points[1] = min[1] + (isLeft ? along : -beyond) * height;
        SetMeasurePointNames(plotter, 0, {});
        without = CaptureImage(plotter);
        SetMeasurePointNames(plotter, 0, {"Well of the north"});
        const Image named = CaptureImage(plotter);
        shown += !DifferenceOf(named, without).IsEmpty();
        int covered = 0;
        for (int y = 0; y < named.height; ++y)
            for (int x = 0; x < named.width; ++x)
                covered += IsDark(without.Pixel(x, y)) && !IsDark(named.Pixel(x, y));
        EXPECT_EQ(covered, 0) << "at " << points[0] << ", " << points[1];
    }
    EXPECT_GT(shown, 5);
}

// Where the coordinates of the traced point stand, in the lower left corner.
TEST_P(PointNames, LeaveTheTracedPointReadable) {
    SKivoView view = GetView(plotter);
    view.zoom = 4.0;
    SetView(plotter, view);
    const auto isLower = [](const Image& image, const Bounds& bounds) {
        return bounds.top > image.height - 40;
    };
    const Image untraced = CaptureImage(plotter);
    plotter.m_hasTracePoint = 1;
    plotter.m_tracePoint[0] = plotter.m_tracePoint[1] = 100.0f; // its mark is out of sight
    without = CaptureImage(plotter);
    const Bounds readOut = DifferenceOf(without, untraced);
    ASSERT_TRUE(!readOut.IsEmpty() && isLower(untraced, readOut));
    const auto meets = [&](const Image& image) {
        int count = 0;
        for (int y = readOut.top; y <= readOut.bottom; ++y)
            for (int x = readOut.left; x <= readOut.right; ++x)
                count += !std::equal(image.Pixel(x, y), image.Pixel(x, y) + 3, without.Pixel(x, y));
        return count > 0;
    };
    int shown = 0;
    for (int i = 0; i < 16; ++i) {
        float nearest[3] = {}, farthest[3] = {};
        {
            const CurrentContext context(plotter);
            plotter.UnProject({readOut.left + 12 * i - 20, readOut.top - i % 3}, nearest, farthest);
        }
        std::copy(nearest, nearest + 2, points);
        SetMeasurePointNames(plotter, 0, {});
        without = CaptureImage(plotter);
        SetMeasurePointNames(plotter, 0, {"Well 7"});
        const Image named = CaptureImage(plotter);
        shown += !DifferenceOf(named, without).IsEmpty();
        EXPECT_FALSE(meets(named)) << i;
    }
    EXPECT_GT(shown, 8);
}

TEST_P(PointNames, AreInLargePictures) {
    SetMeasurePointNames(plotter, 0, {"B 12"});
    SKivoPictureOptions options;
    options.scale = 3.0f;
    Image named, plain;
    ASSERT_EQ(CapturePicture(plotter, options, named.rgba, named.width, named.height), 0);
    SetMeasurePointNames(plotter, 0, {});
    ASSERT_EQ(CapturePicture(plotter, options, plain.rgba, plain.width, plain.height), 0);
    const Bounds large = DifferenceOf(named, plain);
    SetMeasurePointNames(plotter, 0, {"B 12"});
    const Image present = CaptureImage(plotter);
    SetMeasurePointNames(plotter, 0, {});
    const Bounds small = DifferenceOf(present, CaptureImage(plotter));
    EXPECT_NEAR(large.left, 3 * small.left, 6);
    EXPECT_NEAR(large.right, 3 * small.right, 6);
    EXPECT_NEAR(large.bottom, 3 * small.bottom, 6);
}

// Their images take memory by the square of a picture's scale.
TEST_P(PointNames, AreMadeForPicturesThatShowThem) {
    const auto added = [this](int count) {
        std::vector<float> many(3 * static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            many[3 * static_cast<std::size_t>(i)] = i < 20 ? 0.0f : 100.0f; // far beyond the window
        const std::vector<std::string> names(static_cast<std::size_t>(count), "W");
        while (RemoveMeasureGroup(plotter, 0) == 0) {
        }
        plotter.AddMeasurePoints(static_cast<unsigned int>(count), 3, many.data(), "many");
        SetMeasurePointNames(plotter, 0, names);
        const auto textures = [this] {
            const CurrentContext context(plotter);
            int made = 0;
            for (GLuint name = 1; name < 6000; ++name)
                made += glIsTexture(name) ? 1 : 0;
            return made;
        };
        const auto inPicture = [&](bool isShown) {
            plotter.ShowMeasureGroup(0, isShown);
            SKivoPictureOptions options;
            options.scale = 2.0f;
            Image picture;
            CapturePicture(plotter, options, picture.rgba, picture.width, picture.height);
            return textures();
        };
        inPicture(false);
        const int hidden = inPicture(false);
        return inPicture(true) - hidden;
    };
    EXPECT_EQ(added(30), 30) << "of some all, so that they stay the same";
    EXPECT_EQ(added(1100), 20) << "of many those that are in the window";
}

// All names of a frame are compared with each other.
TEST_P(PointNames, AreThoseOfTheFirstThousandInTheWindow) {
    const auto isLastShown = [this](int inWindow, int beyond) {
        const auto count = static_cast<std::size_t>(inWindow + beyond + 1);
        std::vector<float> many(3 * count, 0.0f); // all at one place
        for (std::size_t i = 0; i < static_cast<std::size_t>(beyond); ++i)
            many[3 * i] = 100.0f; // far beyond the window
        many[3 * count - 3] = -2.0f;
        std::vector<std::string> names(count, "W");
        while (RemoveMeasureGroup(plotter, 0) == 0) {
        }
        plotter.AddMeasurePoints(static_cast<unsigned int>(count), 3, many.data(), "many");
        SetMeasurePointNames(plotter, 0, names);
        const Image with = CaptureImage(plotter);
        names.back().clear();
        SetMeasurePointNames(plotter, 0, names);
        const bool isShown = !DifferenceOf(with, CaptureImage(plotter)).IsEmpty();
        RemoveMeasureGroup(plotter, 0); // before its points go
        return isShown;
    };
    EXPECT_TRUE(isLastShown(999, 0));
    EXPECT_FALSE(isLastShown(1000, 0));
    EXPECT_TRUE(isLastShown(999, 200));
}

KIVO_IN_ONE_WINDOW(PointNames);
