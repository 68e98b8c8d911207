// Labels and titles of the flat plots and of the 3-D box, whatever their axes are turned round by.
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr double pixelLimit = 0.01;

struct FlatPlot {
    int (CKivoFunctionPlotter::*show)();
    int horizontal;
    int vertical;
};
const FlatPlot flatPlots[] = {{&CKivoFunctionPlotter::SwitchToXYProjectPlot, 0, 1},
                              {&CKivoFunctionPlotter::SwitchToYZProjectPlot, 1, 2},
                              {&CKivoFunctionPlotter::SwitchToZXProjectPlot, 0, 2}};

class FlatText : public WindowTest {
protected:
    static constexpr int width = 1000;
    static constexpr int height = 600;
    static constexpr std::size_t legendLabels = 11; // drawn last
    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;

    void SetUp() override {
        const TestSurface surface = HillSurface(12, 10);
        plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
        plotter.SetXAxisTitle("across");
        plotter.SetYAxisTitle("deep");
        plotter.SetZAxisTitle("high");
    }

    const CKivoGridBox& Box() const { return *plotter.m_gridBox; }
    std::size_t TickCount(int axis) const { return Box().m_tickIntervals[axis] + std::size_t{1}; }

    // Bits 0, 1 and 2: the axes whose minimum is put above their maximum.
    void Reverse(int axes) {
        const float min[] = {plotter.GetXAxisMin(), plotter.GetYAxisMin(), plotter.GetZAxisMin()};
        const float max[] = {plotter.GetXAxisMax(), plotter.GetYAxisMax(), plotter.GetZAxisMax()};
        if (axes & 1) plotter.SetXAxisMin(max[0]), plotter.SetXAxisMax(min[0]);
        if (axes & 2) plotter.SetYAxisMin(max[1]), plotter.SetYAxisMax(min[1]);
        if (axes & 4) plotter.SetZAxisMin(max[2]), plotter.SetZAxisMax(min[2]);
    }
    void Invert(int axes) {
        plotter.SetInverseXAxis((axes & 1) != 0);
        plotter.SetInverseYAxis((axes & 2) != 0);
        plotter.SetInverseZAxis((axes & 4) != 0);
    }

    std::vector<DrawnQuad> Texts() {
        const CurrentContext context(plotter);
        std::vector<DrawnQuad> quads = TexturedQuads(Record([this] { plotter.DrawScene(); }));
        EXPECT_GT(quads.size(), legendLabels);
        quads.resize(std::max(quads.size(), legendLabels) - legendLabels);
        return quads;
    }

    // Where the corner of the box at the least or greatest numbers of its three axes is seen.
    ScreenVector CornerPlace(bool isMax) {
        const CurrentContext context(plotter);
        plotter.ApplyViewVolume();
        plotter.ApplyModelViewMatrix();
        const float* corner = isMax ? Box().m_boxMax : Box().m_boxMin;
        float place[3];
        plotter.Project(corner[0], corner[1], corner[2], place);
        return {double{place[0]}, double{place[1]}};
    }

    // The texts of a flat plot in the order in which they are drawn: labels and title of either axis.
    void ExpectReadableOutsideTheFrame(const FlatPlot& flat);
};

// The text's own directions on the screen, as long as its sides.
ScreenVector RightOf(const DrawnQuad& quad) {
    return {quad.corners[1].x - quad.corners[0].x, quad.corners[1].y - quad.corners[0].y};
}
ScreenVector UpOf(const DrawnQuad& quad) {
    return {quad.corners[3].x - quad.corners[0].x, quad.corners[3].y - quad.corners[0].y};
}

void ExpectUnmirrored(const DrawnQuad& quad) {
    const ScreenVector right = RightOf(quad), up = UpOf(quad);
    EXPECT_NEAR(right.x * up.y - right.y * up.x, quad.Width() * quad.Height(), 1.0) << "determinant 1";
}

// Neither mirrored nor turned over: it reads to the right, or upwards.
void ExpectReadable(const DrawnQuad& quad, bool isUpwards) {
    ExpectUnmirrored(quad);
    const ScreenVector right = RightOf(quad);
    EXPECT_NEAR(isUpwards ? right.x : right.y, 0.0, pixelLimit);
    EXPECT_GT(isUpwards ? right.y : right.x, 0.0);
}

void FlatText::ExpectReadableOutsideTheFrame(const FlatPlot& flat) {
    const std::vector<DrawnQuad> texts = Texts();
    const std::size_t across = TickCount(flat.horizontal);
    ASSERT_EQ(texts.size(), across + 1 + TickCount(flat.vertical) + 1);
    const ScreenVector a = CornerPlace(false);
    const ScreenVector b = CornerPlace(true);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        ExpectReadable(texts[i], i + 1 == texts.size());
        const bool isBeside = i > across;
        const double place = isBeside ? texts[i].CenterX() : texts[i].CenterY();
        const double low = isBeside ? std::min(a.x, b.x) : std::min(a.y, b.y);
        const double high = isBeside ? std::max(a.x, b.x) : std::max(a.y, b.y);
        EXPECT_TRUE(place < low - 10.0 || place > high + 10.0)
            << "text " << i << " at " << place << " lies over " << low << " to " << high;
    }
}

} // namespace

// Inverse axes mirror the frame, ranges whose minimum exceeds the maximum do before the view is fitted to
// them, and the axis scale does afterwards. None of them mirrors a text.
TEST_P(FlatText, FlatTextsAreReadableWhateverIsMirrored) {
    for (int reversed = 0; reversed < 8; ++reversed)
        for (const bool isFitted : {false, true}) {
            SetUp(); // the ranges of the data
            plotter.SwitchToNormalPlot();
            Reverse(reversed);
            if (isFitted) plotter.AutoAdjustAxisLengthRatio();
            for (const FlatPlot& flat : flatPlots) {
                std::invoke(flat.show, plotter);
                for (int inverse = 0; inverse < 8; ++inverse) {
                    SCOPED_TRACE("reversed " + std::to_string(reversed) + (isFitted ? ", fitted" : "") +
                                 ", plot " + std::to_string(plotter.GetCurrentPlotType()) + ", inverse " +
                                 std::to_string(inverse));
                    Invert(inverse);
                    ExpectReadableOutsideTheFrame(flat);
                }
                Invert(0);
            }
        }
}

// A resize fits the view to a reversed range.
TEST_P(FlatText, AReversedRangeKeepsItsRoomForLabels) {
    Reverse(1);
    plotter.OnSize(0, width, height);
    plotter.SwitchToZXProjectPlot();
    const std::vector<DrawnQuad> texts = Texts();
    ASSERT_EQ(texts.size(), TickCount(0) + TickCount(2) + 2);
    const double leftmost = texts.back().CenterX() - texts.back().Height();
    EXPECT_GT(leftmost, plotter.m_plotViewport[0]) << "the Z title is in the plot's part of the window";
    EXPECT_LT(plotter.m_axisScale[0], 0.0);
    EXPECT_LT(CornerPlace(false).x, CornerPlace(true).x) << "the first number stands on the left";
}

// In the 3-D plot the walls stay behind the surface, and labels and titles outside the box.
TEST_P(FlatText, ReversedRangesKeepWallsBehindAndTitlesBesideTheBox) {
    for (int reversed = 0; reversed < 8; ++reversed)
        for (const bool isFitted : {false, true})
            for (const bool isSwitching : {true, false}) {
                SCOPED_TRACE("reversed " + std::to_string(reversed) + (isFitted ? ", fitted" : "") +
                             (isSwitching ? ", switching planes" : ", fixed planes"));
                SetUp();
                plotter.SetAutoSwitchFramePlanes(isSwitching);
                Reverse(reversed);
                if (isFitted) plotter.AutoAdjustAxisLengthRatio();
                for (const DrawnQuad& text : Texts())
                    ExpectUnmirrored(text);
                const AxisBoxOnScreen& box = Box().m_screenBox;
                const AxisLabelLayout& layout = Box().m_labelLayout;
                double low = box.corners[0].y;
                for (const ScreenVector corner : box.corners)
                    low = std::min(low, corner.y);
                for (const int axis : {0, 1}) {
                    EXPECT_TRUE(layout.Title(axis).isShown) << axis;
                    const AxisEdge& edge = box.axes[axis];
                    EXPECT_NEAR(std::min(edge.begin.y, edge.end.y), low, 1.0) << "a lower edge of the box";
                    for (const PlacedImage& label : layout.Labels(axis)) {
                        const double t = (label.center.x - edge.begin.x) / (edge.end.x - edge.begin.x);
                        EXPECT_LT(label.center.y, edge.begin.y + t * (edge.end.y - edge.begin.y));
                    }
                }
                EXPECT_TRUE(layout.Title(2).isShown);
                for (int axis = 0; axis < 3; ++axis) {
                    const int planeOfAxis[] = {2, 0, 1};
                    const float* corner[] = {Box().m_boxMin, Box().m_boxMax};
                    const bool isLow = Box().m_backPlane[planeOfAxis[axis]];
                    const double toBack = plotter.m_rotationMatrix[4 * axis + 2] * plotter.m_axisScale[axis] *
                                          (corner[!isLow][axis] - corner[isLow][axis]);
                    EXPECT_LT(toBack, 0.0) << "the wall of axis " << axis << " is the one farther away";
                }
            }
}

namespace {

bool Touch(const DrawnQuad& a, const DrawnQuad& b) {
    const auto half = [](const DrawnQuad& quad, bool isAcross) {
        const double first = isAcross ? quad.corners[0].x : quad.corners[0].y;
        const double last = isAcross ? quad.corners[2].x : quad.corners[2].y;
        return std::abs(last - first) / 2.0;
    };
    return std::abs(a.CenterX() - b.CenterX()) < half(a, true) + half(b, true) - pixelLimit &&
           std::abs(a.CenterY() - b.CenterY()) < half(a, false) + half(b, false) - pixelLimit;
}

} // namespace

// Of many ticks every 2nd, 5th, 10th, ... keeps its label, which then has its whole picture for itself.
TEST_P(FlatText, LabelsThatWouldTouchAreThinned) {
    for (const unsigned int count : {5u, 9u, 20u, 30u, 100u, 700u})
        for (const FlatPlot& flat : flatPlots) {
            plotter.SetXAxisTickMarkNumber(count);
            plotter.SetYAxisTickMarkNumber(count);
            plotter.SetZAxisTickMarkNumber(count);
            std::invoke(flat.show, plotter);
            SCOPED_TRACE(std::to_string(count) + " ticks, plot " +
                         std::to_string(plotter.GetCurrentPlotType()));
            const std::vector<DrawnQuad> texts = Texts();
            for (std::size_t i = 0; i < texts.size(); ++i)
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(Touch(texts[i], texts[j])) << j << " and " << i;
            EXPECT_GE(texts.size(), 2u + 2u + 3u) << "some are left";
            if (count == 5) {
                EXPECT_EQ(texts.size(), 2u * count + 2u) << "all of them where there is room";
            }
        }
}

// Each label shows the ink of its own picture, also beside others and over contours.
TEST_P(FlatText, WhatIsShownIsWhole) {
    plotter.SetBackgroundColor(1, 1, 1, 1);
    plotter.ShowGridLines(false);
    for (const FlatPlot& flat : flatPlots) {
        plotter.SetXAxisTickMarkNumber(30);
        plotter.SetYAxisTickMarkNumber(30);
        plotter.SetZAxisTickMarkNumber(30);
        std::invoke(flat.show, plotter);
        const Image image = CaptureImage(plotter);
        for (const DrawnQuad& text : Texts()) {
            int ink = 0;
            const double halfWidth = std::abs(text.corners[2].x - text.corners[0].x) / 2.0;
            const double halfHeight = std::abs(text.corners[2].y - text.corners[0].y) / 2.0;
            for (double y = text.CenterY() - halfHeight; y < text.CenterY() + halfHeight; ++y)
                for (double x = text.CenterX() - halfWidth; x < text.CenterX() + halfWidth; ++x) {
                    const unsigned char* rgb =
                        image.Pixel(static_cast<int>(x), image.height - 1 - static_cast<int>(y));
                    ink += *std::max_element(rgb, rgb + 3) < 128 ? 1 : 0;
                }
            EXPECT_GT(ink, 15) << "at " << text.CenterX() << ' ' << text.CenterY();
        }
    }
}

// Where a host narrows an axis, contours reach beyond its frame, and the labels stand over them.
TEST_P(FlatText, LabelsMakeNoHolesInContours) {
    plotter.SetBackgroundColor(1, 1, 1, 1);
    plotter.SetIsoContourCount(60);
    plotter.SetXAxisMin(-1);
    plotter.SetXAxisMax(3);
    plotter.SetYAxisMin(0);
    plotter.SwitchToXYProjectPlot();
    const auto isColored = [](const unsigned char* rgb) {
        return *std::max_element(rgb, rgb + 3) - *std::min_element(rgb, rgb + 3) > 60;
    };
    const Image with = CaptureImage(plotter);
    const std::vector<DrawnQuad> texts = Texts();
    {
        const CurrentContext context(plotter);
        for (int axis = 0; axis < 3; ++axis)
            Box().m_tickLabels[axis] ? plotter.m_gridBox->ReleaseTickLabels(axis) : void();
        for (SKivoTexImage& title : plotter.m_gridBox->m_axisTitleImage)
            ReleaseTextImage(&title);
    }
    const Image without = CaptureImage(plotter);
    int under = 0, hidden = 0;
    for (int y = 1; y + 1 < with.height; ++y)
        for (int x = 1; x + 1 < with.width; ++x) {
            if (!isColored(without.Pixel(x, y))) continue;
            ++under;
            bool isBesideInk = false; // where ink is smoothed
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    isBesideInk |= with.IsNear(x + dx, y + dy, {0, 0, 0}, 150);
            hidden += IsWhite(with.Pixel(x, y)) && !isBesideInk ? 1 : 0; // neither ink nor contour
        }
    EXPECT_GT(under, 1000);
    EXPECT_EQ(hidden, 0);
}

KIVO_IN_EVERY_WINDOW(FlatText);
