// Curves over the surface: their store, and their lines and balls in pixels.
#include "support/LayerAlone.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>
#include <set>
#include <stdexcept>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int refused = -3;
constexpr int badIndex = -2;
constexpr unsigned long magenta = 0x00FF00FF; // a colour that no gradient, frame line or background has

class CurveProbe : public PlotterProbe {
public:
    using CKivoFunctionPlotter::RenderCurves;
};

std::vector<float> Color(const CurveProbe& plotter, std::size_t index) {
    const SKivoColor& color = plotter.m_curveColors.at(index);
    return {color.red, color.green, color.blue, color.alpha};
}

std::vector<std::size_t> StoreSizes(const CurveProbe& plotter) {
    return {plotter.m_curveData.size(), plotter.m_curvePointCounts.size(), plotter.m_curveVisible.size(),
            plotter.m_curveColors.size(), plotter.m_curveWidths.size()};
}

bool IsMagenta(const unsigned char* rgb) {
    return rgb[0] == 255 && rgb[1] == 0 && rgb[2] == 255;
}

/// The smallest rectangle that holds all pixels that are not white; empty: right < left.
struct InkBox {
    explicit InkBox(const Image& image) : left(image.width), top(image.height) {
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width; ++x) {
                if (IsWhite(image.Pixel(x, y))) continue;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    }
    int Width() const { return right - left + 1; }
    int Height() const { return bottom - top + 1; }

    int left, top, right = -1, bottom = -1;
};

/// Curves over nothing, lit as in a plot.
class CurvesAlone : public LayerAlone<CurveProbe, 200, 160> {
protected:
    Image Draw() {
        return LayerAlone::Draw(true, [this] {
            plotter.RenderCurves();
            GLfloat lineWidth = 0.0f;
            glGetFloatv(GL_LINE_WIDTH, &lineWidth);
            EXPECT_EQ(lineWidth, 1.0f);
        });
    }

    int Add(std::vector<float> points, unsigned int floatsPerPoint = 3) {
        const auto count = static_cast<unsigned int>(points.size() / floatsPerPoint);
        return plotter.AddCurveData(points.data(), count, floatsPerPoint);
    }

    void ReleaseCurves() {
        plotter.BeginGLOperation();
        plotter.ReleaseDataRelativeResource();
        plotter.EndGLOperation();
    }
};

/// A plot of a hill from above, with frames read back.
class CurvesOverASurface : public WindowTest {
protected:
    CurvesOverASurface() {
        if (plotter.OnCreate(window.Handle(), 360, 240, true) != 0)
            throw std::runtime_error(LastWindowError());
        plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
        const CurrentContext context(plotter);
        plotter.ApplyTopView();
    }

    /// Along the middle of the surface, at one height.
    int AddAtHeight(float z) {
        float points[] = {-2.5f, 0.5f, z, 4.5f, 0.5f, z};
        const int index = plotter.AddCurveData(points, 2, 3);
        plotter.SetCurveColor(index, magenta);
        plotter.SetPointRadiusPixelSize(0);
        return index;
    }
    int CountMagenta() { return CaptureImage(plotter).Count(IsMagenta); }

    TestSurface surface = HillSurface(20, 15);
    TestWindow window{GetParam(), 360, 240};
    CurveProbe plotter;
};

} // namespace

// ---- The store

TEST(CurveStore, IndicesCountUpAndEveryContainerGrows) {
    CurveProbe plotter;
    float points[] = {0, 1, 2, 3, 4, 5};
    for (std::size_t i = 0; i < 30; ++i) {
        EXPECT_EQ(plotter.AddCurveData(points, 2, 3), static_cast<int>(i));
        EXPECT_EQ(StoreSizes(plotter), std::vector<std::size_t>(5, i + 1));
    }
}

TEST(CurveStore, ANewCurveIsRedVisibleAndOnePixelWide) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    plotter.AddCurveData(points, 1, 3);
    EXPECT_EQ(Color(plotter, 0), (std::vector<float>{1, 0, 0, 1}));
    EXPECT_TRUE(plotter.m_curveVisible[0]);
    EXPECT_EQ(plotter.m_curveWidths[0], 1.0f);
    EXPECT_EQ(plotter.m_curvePointCounts[0], 1u);
}

TEST(CurveStore, PointsAreCopiedWithAllTheirFloats) {
    CurveProbe plotter;
    std::vector<float> points;
    for (int i = 0; i < 20; ++i)
        points.push_back(0.5f * static_cast<float>(i));
    const std::vector<float> original = points;
    EXPECT_EQ(plotter.AddCurveData(points.data(), 5, 4), 0);
    EXPECT_EQ(plotter.AddCurveData(points.data(), 4, 5), 1);
    EXPECT_EQ(plotter.AddCurveData(points.data(), 7, 1), 2);
    std::fill(points.begin(), points.end(), -1.0f);
    const std::vector<std::vector<float>> stored(plotter.m_curveData.begin(), plotter.m_curveData.end());
    EXPECT_EQ(stored[0], original);
    EXPECT_EQ(stored[1], original);
    EXPECT_EQ(stored[2], std::vector<float>(original.begin(), original.begin() + 7));
    EXPECT_EQ(plotter.m_curvePointCounts, (std::vector<unsigned int>{5, 4, 7}));
}

TEST(CurveStore, NoPointsAreRefusedAndNothingIsStored) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    EXPECT_EQ(plotter.AddCurveData(nullptr, 1, 3), refused);
    EXPECT_EQ(plotter.AddCurveData(points, 0, 3), refused);
    EXPECT_EQ(plotter.AddCurveData(points, 1, 0), refused);
    EXPECT_EQ(StoreSizes(plotter), std::vector<std::size_t>(5, 0));
    EXPECT_EQ(plotter.AddCurveData(points, 1, 3), 0);
}

// 0x80000000 squared floats have as many bytes as 64 bits count, which is none.
TEST(CurveStore, CountsBeyondTheAddressSpaceAreRefusedAndNothingIsStored) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    const unsigned int counts[][2] = {{0x80000000u, 0x80000000u},
                                      {0xFFFFFFFFu, 0xFFFFFFFFu},
                                      {0xFFFFFFFFu, 0x80000001u},
                                      {0x40000000u, 0x80000000u}};
    for (const auto& count : counts) {
        EXPECT_THROW(plotter.AddCurveData(points, count[0], count[1]), std::length_error);
        EXPECT_EQ(StoreSizes(plotter), std::vector<std::size_t>(5, 0));
        EXPECT_THROW(plotter.AddMeasurePoints(count[0], count[1], points, "group"), std::length_error);
        EXPECT_EQ(plotter.GetNumMeasureGroups(), 0u);
    }
    EXPECT_EQ(plotter.AddCurveData(points, 1, 3), 0);
    EXPECT_EQ(plotter.AddMeasurePoints(1, 3, points, "group"), 0);
}

TEST(CurveStore, SettersRefuseIndicesThatNoCurveHas) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    EXPECT_EQ(plotter.SetCurveColor(0, 0), badIndex);
    plotter.AddCurveData(points, 1, 3);
    plotter.AddCurveData(points, 1, 3);
    for (const int index : {-1, 2, 3, INT_MAX, INT_MIN}) {
        EXPECT_EQ(plotter.SetCurveColor(index, 0), badIndex);
        EXPECT_EQ(plotter.SetCurveVisibility(index, false), badIndex);
        EXPECT_EQ(plotter.SetCurveWidth(index, 9.0f), badIndex);
    }
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(Color(plotter, i), (std::vector<float>{1, 0, 0, 1}));
        EXPECT_TRUE(plotter.m_curveVisible[i]);
        EXPECT_EQ(plotter.m_curveWidths[i], 1.0f);
    }
}

TEST(CurveStore, IndicesAreCheckedAgainstEachContainer) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    plotter.AddCurveData(points, 1, 3);
    plotter.m_curveColors.resize(2);
    plotter.m_curveWidths.clear();
    EXPECT_EQ(plotter.SetCurveColor(1, 0), 0);
    EXPECT_EQ(plotter.SetCurveVisibility(1, false), badIndex);
    EXPECT_EQ(plotter.SetCurveWidth(0, 2.0f), badIndex);
    EXPECT_EQ(plotter.SetCurveVisibility(0, false), 0);
}

TEST(CurveStore, ColoursHaveRedInTheLowByteAndNoAlpha) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    plotter.AddCurveData(points, 1, 3);
    EXPECT_EQ(plotter.SetCurveColor(0, 0x0000FF00), 0);
    EXPECT_EQ(Color(plotter, 0), (std::vector<float>{0, 1, 0, 1}));
    EXPECT_EQ(plotter.SetCurveColor(0, 0xAB336699), 0);
    const std::vector<float> color = Color(plotter, 0);
    EXPECT_NEAR(color[0], 0x99 / 255.0, 1e-6);
    EXPECT_NEAR(color[1], 0x66 / 255.0, 1e-6);
    EXPECT_NEAR(color[2], 0x33 / 255.0, 1e-6);
    EXPECT_EQ(color[3], 1.0f);
}

TEST(CurveStore, SettersChangeTheirCurveAlone) {
    CurveProbe plotter;
    float points[] = {0, 1, 2};
    for (int i = 0; i < 3; ++i)
        plotter.AddCurveData(points, 1, 3);
    for (const float lineWidth : {2.5f, 0.0f, -3.0f, 1e9f}) {
        EXPECT_EQ(plotter.SetCurveWidth(1, lineWidth), 0);
        EXPECT_EQ(plotter.m_curveWidths, (std::vector<float>{1.0f, lineWidth, 1.0f}));
    }
    EXPECT_EQ(plotter.SetCurveVisibility(1, false), 0);
    EXPECT_EQ(plotter.m_curveVisible, (std::vector<bool>{true, false, true}));
    EXPECT_EQ(plotter.SetCurveVisibility(1, true), 0);
    EXPECT_TRUE(plotter.m_curveVisible[1]);
    plotter.SetCurveColor(1, 0x00FF0000);
    EXPECT_EQ(Color(plotter, 0), Color(plotter, 2));
    EXPECT_EQ(Color(plotter, 1), (std::vector<float>{0, 0, 1, 1}));
}

TEST(PointRadius, IsStoredUncheckedAndReadBackTruncated) {
    CurveProbe plotter;
    EXPECT_EQ(plotter.GetPointRadiusPixelSize(), 4u);
    for (const unsigned int size : {5u, 0u, 1u, 100000u}) {
        EXPECT_EQ(plotter.SetPointRadiusPixelSize(size), 0);
        EXPECT_EQ(plotter.GetPointRadiusPixelSize(), size);
        EXPECT_EQ(plotter.m_pointRadiusPixelSize, static_cast<float>(size));
    }
    plotter.m_pointRadiusPixelSize = 3.9f;
    EXPECT_EQ(plotter.GetPointRadiusPixelSize(), 3u);
}

// ---- Lines and balls alone

TEST_P(CurvesAlone, LinesHaveTheCurvesColourWithoutLight) {
    plotter.SetPointRadiusPixelSize(0);
    Add({-40, 10.5f, 0, 40, 10.5f, 0});
    plotter.SetCurveColor(0, 0x00408020);
    const Image image = Draw();
    const InkBox box(image);
    EXPECT_NEAR(box.Width(), 80, 1);
    EXPECT_EQ(box.Height(), 1);
    EXPECT_EQ(box.top, height / 2 - 11);
    for (int x = box.left; x <= box.right; ++x)
        EXPECT_TRUE(image.IsNear(x, box.top, {0x20, 0x80, 0x40})) << x;
}

TEST_P(CurvesAlone, LinesAreAsWideAsSetInPixels) {
    plotter.SetPointRadiusPixelSize(0);
    Add({-40, 0.5f, 0, 40, 0.5f, 0});
    for (const int lineWidth : {1, 3, 5}) {
        plotter.SetCurveWidth(0, static_cast<float>(lineWidth));
        EXPECT_EQ(InkBox(Draw()).Height(), lineWidth);
    }
}

// OpenGL refuses such widths, and the line would have that of the curve before it.
TEST_P(CurvesAlone, WithoutAWidthAboveZeroLinesAreOnePixelWide) {
    plotter.SetPointRadiusPixelSize(0);
    Add({-40, 60.5f, 0, -39, 60.5f, 0});
    plotter.SetCurveVisibility(0, false);
    Add({-400, 30.5f, 0, -300, 30.5f, 0}); // out of sight, and wide
    plotter.SetCurveWidth(1, 7.0f);
    Add({-40, 0.5f, 0, 40, 0.5f, 0});
    for (const float lineWidth : {0.0f, -0.0f, -1.0f, -3e38f, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(plotter.SetCurveWidth(2, lineWidth), 0);
        EXPECT_EQ(InkBox(Draw()).Height(), 1) << lineWidth;
        const CurrentContext context(plotter);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)) << lineWidth;
    }
}

TEST_P(CurvesAlone, EachCurveHasItsOwnWidthAndColour) {
    plotter.SetPointRadiusPixelSize(0);
    Add({-40, 20.5f, 0, 40, 20.5f, 0});
    Add({-40, -20.5f, 0, 40, -20.5f, 0});
    plotter.SetCurveWidth(0, 5.0f);
    plotter.SetCurveColor(1, 0x00FF0000);
    const Image image = Draw();
    const auto rows = [&image](const int(&rgb)[3]) {
        int count = 0;
        for (int y = 0; y < image.height; ++y)
            count += image.IsNear(width / 2, y, rgb) ? 1 : 0;
        return count;
    };
    EXPECT_EQ(rows({255, 0, 0}), 5);
    EXPECT_EQ(rows({0, 0, 255}), 1);
}

TEST_P(CurvesAlone, LinesLeadFromPointToPointAndNotBack) {
    plotter.SetPointRadiusPixelSize(0);
    Add({-40.5f, -30.5f, 0, 40.5f, -30.5f, 0, 40.5f, 30.5f, 0, -40.5f, 30.5f, 0});
    const Image image = Draw();
    const auto inked = [&image](int x, int y) {
        return !IsWhite(image.Pixel(width / 2 + x, height / 2 + y));
    };
    EXPECT_TRUE(inked(0, 30));
    EXPECT_TRUE(inked(40, 0));
    EXPECT_TRUE(inked(0, -31));
    for (int y = -25; y < 25; ++y)
        EXPECT_FALSE(inked(-41, y) || inked(-40, y)) << "the last point is joined to the first";
    EXPECT_NEAR(CountInk(image), 81 + 61 + 81, 4);
}

TEST_P(CurvesAlone, ACurveOfOnePointIsABallAlone) {
    plotter.SetPointRadiusPixelSize(20);
    Add({10, 20, 0});
    plotter.SetCurveWidth(0, 9.0f);
    const Image image = Draw();
    const InkBox box(image);
    EXPECT_NEAR(box.left, width / 2 + 10 - 14, 1);
    EXPECT_NEAR(box.right, width / 2 + 10 + 13, 1);
    EXPECT_NEAR(box.top, height / 2 - 20 - 14, 1);
    EXPECT_NEAR(box.bottom, height / 2 - 20 + 13, 1);
    // an octagon of radius 14
    EXPECT_NEAR(CountInk(image), 2.8284 * 14 * 14, 28);
}

TEST_P(CurvesAlone, BallsHave07OfThePointRadiusAtEveryZoomAndAxisScale) {
    const double scales[][3] = {{1, 1, 1}, {2, 0.5, 3}, {0.01, 40, 0.2}};
    for (const double pixel : {1.0, 0.003, 250.0})
        for (const auto& scale : scales)
            for (const unsigned int size : {5u, 30u, 50u}) {
                SetCamera(pixel, scale[0], scale[1], scale[2]);
                ReleaseCurves();
                Add({0, 0, 0});
                plotter.SetPointRadiusPixelSize(size);
                const InkBox box(Draw());
                EXPECT_NEAR(box.Width(), 1.4 * size, 1.01) << pixel << ", scale " << scale[0];
                EXPECT_NEAR(box.Height(), 1.4 * size, 1.01) << pixel << ", scale " << scale[1];
            }
}

TEST_P(CurvesAlone, EveryPointHasABallAtItsScaledPlace) {
    SetCamera(0.5, 2.0, 0.25, 1.0);
    plotter.SetPointRadiusPixelSize(10);
    const std::vector<float> points = {-10, -80, 0, 0, 80, 5, 10, -80, -5};
    Add(points);
    const Image image = Draw();
    for (std::size_t i = 0; i < points.size(); i += 3) {
        const int x = width / 2 + static_cast<int>(points[i] * 2.0f / 0.5f);
        const int y = height / 2 - static_cast<int>(points[i + 1] * 0.25f / 0.5f);
        for (const int offset : {-5, 0, 4}) {
            EXPECT_FALSE(IsWhite(image.Pixel(x + offset, y))) << i;
            EXPECT_FALSE(IsWhite(image.Pixel(x, y + offset))) << i;
        }
        EXPECT_TRUE(IsWhite(image.Pixel(x + (i < 6 ? -9 : 9), y))) << i;
    }
}

TEST_P(CurvesAlone, BallsAreLitInTheCurvesColour) {
    SetCamera(0.01, 1.0, 1.0, 1.0);
    plotter.SetPointRadiusPixelSize(60);
    Add({0, 0, 0});
    plotter.SetCurveColor(0, 0x0000FF00);
    const Image image = Draw();
    std::set<int> shades;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const unsigned char* rgb = image.Pixel(x, y);
            if (IsWhite(rgb)) continue;
            EXPECT_GT(rgb[1], rgb[0]);
            EXPECT_GT(rgb[1], rgb[2]);
            shades.insert(rgb[1]);
        }
    EXPECT_GE(shades.size(), 2u) << "one colour everywhere: not lit";
}

TEST_P(CurvesAlone, BallsKeepTheirColourWhateverTheirSize) {
    // Ambient light and the light itself add up to 1.05 of the colour, and the highlight to 0.05.
    constexpr int brightest = 128 * 105 / 100 + 13 + 1;
    SetCamera(0.01, 1.0, 1.0, 1.0);
    Add({0, 0, 0});
    plotter.SetCurveColor(0, 0x00404080);
    for (const unsigned int size : {5u, 20u, 60u}) {
        plotter.SetPointRadiusPixelSize(size);
        const Image image = Draw();
        int drawn = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const unsigned char* rgb = image.Pixel(x, y);
                if (IsWhite(rgb)) continue;
                ++drawn;
                EXPECT_LE(rgb[0], brightest) << size;
                EXPECT_GT(rgb[0], rgb[1]) << size;
            }
        EXPECT_GT(drawn, 10) << size;
    }
}

TEST_P(CurvesAlone, ABallHidesTheLinesBehindIt) {
    plotter.SetPointRadiusPixelSize(30);
    Add({-60, 0.5f, -100, 60, 0.5f, -100});
    Add({0, 0, 0});
    plotter.SetCurveColor(0, magenta);
    const Image image = Draw();
    EXPECT_FALSE(IsMagenta(image.Pixel(width / 2, height / 2 - 1)));
    EXPECT_TRUE(IsMagenta(image.Pixel(width / 2 + 28, height / 2 - 1)));
}

TEST_P(CurvesAlone, HiddenCurvesHaveNeitherLinesNorBalls) {
    Add({-40, 30, 0, 40, 30, 0});
    const Image first = Draw();
    Add({-40, -30, 0, 40, -30, 0});
    plotter.SetCurveVisibility(1, false);
    EXPECT_EQ(Compare(Draw(), first).max, 0);
    plotter.SetCurveVisibility(1, true);
    EXPECT_GT(Compare(Draw(), first).max, 0);
    plotter.SetCurveVisibility(0, false);
    plotter.SetCurveVisibility(1, false);
    EXPECT_EQ(InkBox(Draw()).right, -1);
}

TEST_P(CurvesAlone, FloatsBeyondTheThirdAreNotRead) {
    const std::vector<float> packed = {-40, -30, 1, 0, 30, 2, 40, -30, 3};
    Add(packed);
    const Image expected = Draw();
    for (const std::size_t floatsPerPoint : {4u, 5u}) {
        std::vector<float> records;
        for (std::size_t i = 0; i < packed.size(); i += 3) {
            records.insert(records.end(), packed.begin() + static_cast<std::ptrdiff_t>(i),
                           packed.begin() + static_cast<std::ptrdiff_t>(i + 3));
            records.resize(records.size() + floatsPerPoint - 3, std::numeric_limits<float>::quiet_NaN());
        }
        ReleaseCurves();
        Add(records, static_cast<unsigned int>(floatsPerPoint));
        EXPECT_EQ(Compare(Draw(), expected).max, 0) << floatsPerPoint << " floats a point";
    }
}

// What the last point lacks lies beyond the stored floats; a checked build finds a read of it.
TEST_P(CurvesAlone, ShorterPointsAreDrawnWithoutReadingBeyondThem) {
    for (const unsigned int floatsPerPoint : {1u, 2u}) {
        ReleaseCurves();
        std::vector<float> points(floatsPerPoint * 3, 0.0f);
        for (std::size_t i = 0; i < 3; ++i)
            points[i * floatsPerPoint] = 20.0f * static_cast<float>(i);
        EXPECT_EQ(Add(points, floatsPerPoint), 0);
        const InkBox box(Draw());
        EXPECT_LE(box.Height(), 8);
    }
}

// ---- Over a surface

TEST_P(CurvesOverASurface, LinesBeforeTheSurfaceShow) {
    AddAtHeight(3.0f);
    EXPECT_GT(CountMagenta(), 80);
}

TEST_P(CurvesOverASurface, LinesBehindTheSurfaceDoNot) {
    AddAtHeight(-3.0f);
    EXPECT_EQ(CountMagenta(), 0);
    {
        const CurrentContext context(plotter);
        plotter.ApplyBottomView();
    }
    EXPECT_GT(CountMagenta(), 80) << "seen from below it lies before the surface";
}

TEST_P(CurvesOverASurface, ALineThroughTheSurfaceShowsWhereItIsAbove) {
    AddAtHeight(3.0f);
    const int all = CountMagenta();
    plotter.SetCurveVisibility(0, false);
    EXPECT_EQ(CountMagenta(), 0);
    AddAtHeight(0.0f); // the height is 2 sin x cos y, so that about half the line lies above
    const int part = CountMagenta();
    EXPECT_GT(part, all / 4);
    EXPECT_LT(part, all * 3 / 4);
}

TEST_P(CurvesOverASurface, BallsHaveTheirDepthToo) {
    float above[] = {1.0f, 0.5f, 3.0f}, below[] = {1.0f, 0.5f, -3.0f};
    plotter.SetPointRadiusPixelSize(20);
    const Image without = CaptureImage(plotter);
    plotter.AddCurveData(below, 1, 3);
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
    plotter.AddCurveData(above, 1, 3);
    EXPECT_GT(Compare(CaptureImage(plotter), without).max, 0);
}

TEST_P(CurvesOverASurface, FlatPlotsHaveNoCurves) {
    AddAtHeight(3.0f);
    plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(CountMagenta(), 0);
    plotter.SwitchToNormalPlot();
    EXPECT_GT(CountMagenta(), 40);
}

TEST_P(CurvesOverASurface, NewDataRemoveAllCurves) {
    AddAtHeight(3.0f);
    AddAtHeight(4.0f);
    plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
    EXPECT_EQ(StoreSizes(plotter), std::vector<std::size_t>(5, 0));
    EXPECT_EQ(plotter.SetCurveColor(0, 0), badIndex);
    EXPECT_EQ(CountMagenta(), 0);
    EXPECT_EQ(AddAtHeight(3.0f), 0);
    EXPECT_GT(CountMagenta(), 80);
    plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    EXPECT_EQ(StoreSizes(plotter), std::vector<std::size_t>(5, 0));
}

KIVO_IN_ONE_WINDOW(CurvesAlone);
KIVO_IN_EVERY_WINDOW(CurvesOverASurface);
