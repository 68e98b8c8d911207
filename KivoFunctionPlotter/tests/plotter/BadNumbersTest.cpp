// Numbers and texts at which arithmetic or memory ends: what each gives, that it comes within a second, and
// that the plot shows the next good data as if nothing had been.
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "support/Deadline.h"
#include "support/Image.h"
#include "support/PublicMembers.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Limits = std::numeric_limits<float>;
constexpr float notANumber = Limits::quiet_NaN();
constexpr float infinity = Limits::infinity();
constexpr int plotLeft = 51; // right of the legend's strip of a window 320 pixels wide

bool IsColoured(const unsigned char* pixel) {
    const auto range = std::minmax({pixel[0], pixel[1], pixel[2]});
    return range.second - range.first > 60;
}

// Pixels of the surface, which is the only thing with colours right of the legend.
int SurfacePixels(const Image& image) {
    int count = 0;
    for (int y = 0; y < image.height; ++y)
        for (int x = plotLeft + 50; x < image.width; ++x)
            if (IsColoured(image.Pixel(x, y))) ++count;
    return count;
}

class BadNumbers : public testing::Test {
protected:
    BadNumbers() : plotter(plot.plotter) {
        plotter.SetPlotTitle("Title");
        plotter.SetXAxisTitle("X");
        m_reference = GoodPicture();
    }

    // Each good picture shows the same data, the first time with the lights of whatever was before.
    Image GoodPicture() {
        const TestSurface good = HillSurface(12, 9);
        for (int i = 0; i < 2; ++i) {
            plotter.SetData(good.NewArray(), 12, 9, 1, 12, 3);
            EXPECT_EQ(plotter.Renderscene(), 0);
        }
        return CaptureImage(plotter);
    }

    void ExpectStillGood(const std::string& name) {
        EXPECT_TRUE(ImagesAgree(GoodPicture(), m_reference, 2, 0.01, name));
    }

    void SetPoints(const std::vector<float>& points, unsigned int columns, unsigned int rows,
                   unsigned int components = 3) {
        auto array = std::make_unique<float[]>(points.size());
        std::copy(points.begin(), points.end(), array.get());
        ExpectWithinASecond("SetData", [&] {
            EXPECT_EQ(plotter.SetData(array.release(), columns, rows, 1, columns, components), 0);
        });
    }

    // Everything that a user can do with data, each step within its time.
    void UseEverything() {
        const POINT middle = {180, 120};
        const std::vector<std::pair<const char*, std::function<void()>>> steps = {
            {"frame", [&] { EXPECT_EQ(plotter.Renderscene(), 0); }},
            {"contours",
             [&] {
                 plotter.ShowXIsoContours(true);
                 plotter.ShowYIsoContours(true);
                 plotter.ShowZIsoContours(true);
                 plotter.Renderscene();
                 plotter.ShowXIsoContours(false);
                 plotter.ShowYIsoContours(false);
                 plotter.ShowZIsoContours(false);
             }},
            {"frame line step", [&] { plotter.SetFrameLineStep(3, 2); }},
            {"trace", [&] { plotter.Trace(middle); }},
            {"trace frame", [&] { plotter.Renderscene(); }},
            {"press", [&] { plotter.OnRButtonDown(MK_RBUTTON, middle); }},
            {"turn", [&] { plotter.OnMouseMove(MK_RBUTTON, middle); }},
            {"pan", [&] { plotter.OnMouseMove(MK_RBUTTON | MK_SHIFT, middle); }},
            {"zoom", [&] { plotter.OnMouseMove(MK_RBUTTON | MK_CONTROL, middle); }},
            {"let go", [&] { plotter.OnRButtonUp(0, middle); }},
            {"XY plot",
             [&] {
                 plotter.SwitchToXYProjectPlot();
                 plotter.Renderscene();
             }},
            {"YZ plot",
             [&] {
                 plotter.SwitchToYZProjectPlot();
                 plotter.Renderscene();
             }},
            {"XZ plot",
             [&] {
                 plotter.SwitchToZXProjectPlot();
                 plotter.Renderscene();
             }},
            {"contour count",
             [&] {
                 plotter.SetIsoContourCount(7);
                 plotter.SetIsoContourCount(20);
             }},
            {"ratio", [&] { plotter.AutoAdjustAxisLengthRatio(); }},
            {"size", [&] { plotter.OnSize(0, 320, 240); }},
            {"3-D plot", [&] {
                 plotter.SwitchToNormalPlot();
                 plotter.Renderscene();
             }}};
        for (const auto& [name, step] : steps)
            ExpectWithinASecond(name, step);
        plotter.Trace(false);
    }

    // Calls all members that repeat themselves in this way. Each comes back in time, with a result that it
    // documents.
    void RunAll(Repetition repetition, Arguments& arguments, bool isEachToBeDrawn) {
        for (const PublicMember& member : PublicMembers()) {
            if (member.context == ContextUse::lifetime || member.repetition != repetition) continue;
            SCOPED_TRACE(member.name);
            ExpectWithinASecond("call", [&] {
                if (member.context == ContextUse::callers) plotter.BeginGLOperation();
                EXPECT_TRUE(member.IsDocumented(member.run(plotter, arguments)));
                if (member.context == ContextUse::none || member.context == ContextUse::bracketed) {
                    EXPECT_EQ(wglGetCurrentContext(), nullptr);
                }
                plotter.EndGLOperation();
            });
            if (!isEachToBeDrawn) continue;
            ExpectWithinASecond("frame", [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
        }
    }

    TestPlot plot{WindowKind::offscreen, 320, 240};
    PlotterProbe& plotter;
    Image m_reference;
};

} // namespace

// ---- Data

namespace {

struct DataCase {
    std::string name;
    unsigned int columns;
    unsigned int rows;
    std::vector<float> points;
};

// A hill whose coordinates are replaced: change gets a point's column and row and its three floats.
DataCase Changed(const char* name, const std::function<void(unsigned int, unsigned int, float*)>& change) {
    TestSurface surface = HillSurface(10, 8);
    for (unsigned int r = 0; r < 8; ++r)
        for (unsigned int c = 0; c < 10; ++c)
            change(c, r, &surface.points[(std::size_t{r} * 10 + c) * 3]);
    return {name, 10, 8, surface.points};
}

std::vector<DataCase> CasesWithoutSurface() {
    using U = unsigned int;
    return {
        Changed("first height is no number",
                [](U c, U r, float* p) { p[2] = c + r == 0 ? notANumber : p[2]; }),
        Changed("first x is no number", [](U c, U r, float* p) { p[0] = c + r == 0 ? notANumber : p[0]; }),
        Changed("no number at all", [](U, U, float* p) { p[0] = p[1] = p[2] = notANumber; }),
        Changed("no height", [](U, U, float* p) { p[2] = notANumber; }),
        Changed("one infinite height", [](U c, U r, float* p) { p[2] = c == 4 && r == 3 ? infinity : p[2]; }),
        Changed("all heights infinite", [](U, U, float* p) { p[2] = infinity; }),
        Changed("both infinities", [](U c, U, float* p) { p[2] = c % 2 == 0 ? infinity : -infinity; }),
        Changed("infinite x", [](U c, U, float* p) { p[0] = c == 9 ? infinity : p[0]; }),
        Changed("all of everything", [](U, U, float* p) { p[0] = p[1] = p[2] = -infinity; }),
        Changed("largest numbers",
                [](U c, U, float* p) { p[2] = c % 2 == 0 ? Limits::max() : Limits::lowest(); }),
        Changed("largest everywhere",
                [](U c, U r, float* p) {
                    p[0] = c == 0 ? Limits::lowest() : Limits::max();
                    p[1] = r == 0 ? Limits::lowest() : Limits::max();
                    p[2] = c < r ? Limits::lowest() : Limits::max();
                }),
        Changed("one place", [](U, U, float* p) { p[0] = p[1] = p[2] = 5.0f; }),
        Changed("zeros", [](U, U, float* p) { p[0] = p[1] = p[2] = -0.0f; }),
        {"no point", 0, 0, {}},
        {"no row", 4, 0, {}},
        {"no column", 0, 4, {}},
        {"one point", 1, 1, {1, 2, 3}},
        {"one row", 5, 1, PlaneSurface(5, 1).points},
        {"one column", 1, 5, PlaneSurface(1, 5).points},
        {"one long column", 1, 10000, PlaneSurface(1, 10000).points},
        {"one row without numbers", 3, 1, std::vector<float>(9, notANumber)},
    };
}

} // namespace

TEST_F(BadNumbers, WithoutARangeOrCellsThereIsNoSurface) {
    for (const DataCase& data : CasesWithoutSurface()) {
        SCOPED_TRACE(data.name);
        SetPoints(data.points, data.columns, data.rows);
        EXPECT_EQ(SurfacePixels(CaptureImage(plotter)), 0);
        UseEverything();
        EXPECT_EQ(SurfacePixels(CaptureImage(plotter)), 0);
        ExpectStillGood(data.name);
    }
}

// A hole takes the cells around it away and does not count for the bounds, unless it is the first point.
TEST_F(BadNumbers, HolesLeaveTheRestOfTheSurface) {
    const DataCase whole = Changed("whole", [](unsigned int, unsigned int, float*) {});
    SetPoints(whole.points, 10, 8);
    const int allPixels = SurfacePixels(CaptureImage(plotter));
    const float zMin = plotter.GetZAxisMin(), zMax = plotter.GetZAxisMax();
    for (const int coordinate : {0, 1, 2}) {
        SCOPED_TRACE(coordinate);
        const DataCase holes = Changed("holes", [coordinate](unsigned int c, unsigned int r, float* p) {
            if (c == 6 && (r == 2 || r == 5)) p[coordinate] = notANumber;
        });
        SetPoints(holes.points, 10, 8);
        EXPECT_EQ(plotter.GetZAxisMin(), zMin);
        EXPECT_EQ(plotter.GetZAxisMax(), zMax);
        const int pixels = SurfacePixels(CaptureImage(plotter));
        EXPECT_LT(pixels, allPixels);
        EXPECT_GT(pixels, allPixels / 2);
        UseEverything();
        ExpectStillGood("holes");
    }
}

TEST_F(BadNumbers, AxesKeepNumbersThatCannotBeScaled) {
    const auto infinite =
        Changed("", [](unsigned int c, unsigned int, float* p) { p[2] = c == 4 ? infinity : p[2]; });
    SetPoints(infinite.points, 10, 8);
    EXPECT_EQ(plotter.GetZAxisMax(), infinity);
    EXPECT_EQ(plotter.GetZAxisTickMarkNumber(), 1u);
    const auto without = Changed("", [](unsigned int, unsigned int, float* p) { p[2] = notANumber; });
    SetPoints(without.points, 10, 8);
    EXPECT_TRUE(std::isnan(plotter.GetZAxisMin()));
    EXPECT_TRUE(std::isnan(plotter.GetZAxisMax()));
    EXPECT_EQ(plotter.GetZAxisTickMarkNumber(), 1u);
    const auto largest =
        Changed("", [](unsigned int c, unsigned int, float* p) { p[2] = c == 0 ? 0.0f : 3e38f; });
    SetPoints(largest.points, 10, 8);
    EXPECT_EQ(plotter.GetZAxisMin(), 0.0f);
    EXPECT_EQ(plotter.GetZAxisMax(), 3e38f);
    EXPECT_EQ(plotter.GetZAxisTickMarkNumber(), 1u);
}

TEST_F(BadNumbers, SpansFrom1eMinus36To1e37AreDrawn) {
    for (const float span :
         {1e-45f, 1e-40f, 1e-38f, 1e-37f, 1e-36f, 1e-20f, 1e-3f, 1e6f, 1e20f, 1e37f, 1e38f, 3e38f})
        for (const bool isFlat : {false, true}) {
            SCOPED_TRACE(testing::Message() << span << (isFlat ? ", of height" : ", of everything"));
            const DataCase data = Changed("", [&](unsigned int c, unsigned int r, float* p) {
                if (!isFlat) p[0] = span * static_cast<float>(c) / 9.0f;
                if (!isFlat) p[1] = span * static_cast<float>(r) / 7.0f;
                p[2] = span * (p[2] + 2.0f) / 4.0f;
            });
            SetPoints(data.points, 10, 8);
            if (span >= 1e-36f && span <= 1e37f) {
                EXPECT_GT(SurfacePixels(CaptureImage(plotter)), 2000);
            }
            UseEverything();
            ExpectStillGood("span");
        }
}

TEST_F(BadNumbers, AreasFarFromTheOriginAreDrawn) {
    const auto moved = [](unsigned int c, unsigned int r, float* p) {
        p[0] = 5999950.0f + 100.0f * static_cast<float>(c) / 9.0f;
        p[1] = -6000050.0f + 100.0f * static_cast<float>(r) / 7.0f;
        p[2] += 6000000.0f;
    };
    SetPoints(Changed("", moved).points, 10, 8);
    EXPECT_EQ(plotter.GetXAxisMin(), 5999945.0f);
    EXPECT_EQ(plotter.GetXAxisMax(), 6000065.0f);
    EXPECT_EQ(plotter.GetXAxisTickMarkNumber(), 7u);
    EXPECT_GT(SurfacePixels(CaptureImage(plotter)), 2000);
    UseEverything();
    ExpectStillGood("offset");
}

TEST_F(BadNumbers, AConstantHeightIsAFlatSurface) {
    const TestSurface constant = ConstantSurface(6, 5);
    SetPoints(constant.points, 6, 5);
    EXPECT_EQ(plotter.GetZAxisMin(), 4.5f);
    EXPECT_EQ(plotter.GetZAxisMax(), 6.0f);
    EXPECT_TRUE(plotter.m_flatZIsoContours.empty());
    EXPECT_GT(SurfacePixels(CaptureImage(plotter)), 1000);
    UseEverything();
    ExpectStillGood("constant");
}

// Drawing takes the points as packed, and draws nothing where the strides reach fewer floats than that.
TEST_F(BadNumbers, OtherStridesReadWhatTheyAddress) {
    struct StrideCase {
        const char* name;
        unsigned int columnStride, rowStride;
        std::size_t points; ///< in the array, which has no more
        bool isDrawn;
    };
    const StrideCase cases[] = {
        {"every second column", 2, 8, 4 * 8, true},    {"column by column", 4, 1, 16, true},
        {"rows with a gap", 1, 9, 3 * 9 + 4, true},    {"one row again and again", 1, 0, 4, false},
        {"one point again and again", 0, 0, 1, false}, {"one column again and again", 0, 4, 13, false}};
    for (const StrideCase& strides : cases)
        for (const unsigned int components : {3u, 4u, 5u, 7u}) {
            SCOPED_TRACE(testing::Message() << strides.name << ", " << components << " floats a point");
            const auto points = std::make_unique<float[]>(strides.points * components);
            for (std::size_t i = 0; i < strides.points * components; ++i)
                points[i] = i % components == 3 ? 1.0f : static_cast<float>(i % 11);
            ExpectWithinASecond("SetDataReference", [&] {
                EXPECT_EQ(plotter.SetDataReference(points.get(), 4, 4, strides.columnStride,
                                                   strides.rowStride, components),
                          0);
            });
            UseEverything();
            const bool isDrawn = SurfacePixels(CaptureImage(plotter)) > 0;
            EXPECT_EQ(isDrawn, strides.isDrawn);
            ExpectStillGood("strides");
        }
}

TEST_F(BadNumbers, PointsOfFewerThanThreeFloatsAreNotRead) {
    for (const unsigned int components : {0u, 1u, 2u}) {
        const auto points = std::make_unique<float[]>(std::size_t{16} * components);
        EXPECT_EQ(plotter.SetDataReference(points.get(), 4, 4, 1, 4, components), 0);
        UseEverything();
        EXPECT_EQ(SurfacePixels(CaptureImage(plotter)), 0) << components;
        ExpectStillGood("few components");
    }
}

// ---- Counts

TEST_F(BadNumbers, TickCountsOfNoneOneAndAHundredThousand) {
    const auto setTicks = [this](int axis, unsigned int count) {
        if (axis == 0) return plotter.SetXAxisTickMarkNumber(count);
        return axis == 1 ? plotter.SetYAxisTickMarkNumber(count) : plotter.SetZAxisTickMarkNumber(count);
    };
    for (const unsigned int count : {0u, 1u, 100000u})
        for (const int axis : {0, 1, 2}) {
            SCOPED_TRACE(testing::Message() << count << " ticks on axis " << axis);
            ExpectWithinASecond("ticks", [&] { EXPECT_EQ(setTicks(axis, count), 0); });
            EXPECT_EQ(plotter.m_gridBox->m_tickIntervals[axis] + 1, count);
            if (count < 2) UseEverything();
            ExpectWithinASecond("frame", [&] { EXPECT_GT(SurfacePixels(CaptureImage(plotter)), 1000); });
            axis == 0 ? plotter.SwitchToXYProjectPlot() : plotter.SwitchToYZProjectPlot();
            ExpectWithinASecond("flat frame", [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
            plotter.SwitchToNormalPlot();
            ExpectWithinASecond("away again", [&] { setTicks(axis, 5); });
            ExpectStillGood("ticks");
        }
}

TEST_F(BadNumbers, OfManyTicksAThousandHaveLabels) {
    plotter.SetXAxisTickMarkNumber(1000);
    for (unsigned int i = 0; i < 1000; ++i)
        EXPECT_NE(plotter.m_gridBox->m_tickLabels[0][i].pixels, nullptr) << i;
    plotter.SetXAxisTickMarkNumber(100000);
    for (unsigned int i = 0; i < 100000; ++i) {
        const SKivoTexImage& label = plotter.m_gridBox->m_tickLabels[0][i];
        ASSERT_EQ(label.pixels != nullptr, i % 100 == 0) << i;
        ASSERT_EQ(label.texture != 0, i % 100 == 0) << i;
    }
}

TEST_F(BadNumbers, PrecisionsOfAThousandAndMore) {
    for (const unsigned int precision : {1000u, 1000000u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        SCOPED_TRACE(precision);
        ExpectWithinASecond("axis", [&] {
            EXPECT_EQ(plotter.SetXAxisFloatingPointPrecision(precision), 0);
            EXPECT_EQ(plotter.SetYAxisFloatingPointPrecision(precision), 0);
            EXPECT_EQ(plotter.SetZAxisFloatingPointPrecision(precision), 0);
        });
        EXPECT_EQ(plotter.GetZAxisFloatingPointPrecision(), precision);
        ExpectWithinASecond(
            "legend", [&] { EXPECT_EQ(plotter.SetGradientColorRuleFloatingPointPrecision(precision), 0); });
        EXPECT_EQ(plotter.GetGradientColorRuleFloatingPointPrecision(), precision);
        UseEverything();
        plotter.SetGradientColorRuleFloatingPointPrecision(3);
        ExpectStillGood("precision");
    }
}

TEST_F(BadNumbers, ContourCountsOfOneAndTenThousand) {
    const TestSurface surface = HillSurface(100, 100);
    SetPoints(surface.points, 100, 100);
    ExpectWithinASecond("one", [&] { EXPECT_EQ(plotter.SetIsoContourCount(1), 0); });
    EXPECT_TRUE(plotter.m_flatZIsoContours.empty());
    EXPECT_EQ(plotter.m_flatXIsoContours.size(), 1u);
    UseEverything();
    ExpectWithinASecond("ten thousand", [&] { EXPECT_EQ(plotter.SetIsoContourCount(10000), 0); });
    EXPECT_EQ(plotter.m_flatXIsoContours.size(), 10000u);
    plotter.ShowZIsoContours(true);
    ExpectWithinASecond("frame", [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
    plotter.ShowZIsoContours(false);
    plotter.SetIsoContourCount(20);
    ExpectStillGood("contours");
}

// ---- Settings

TEST_F(BadNumbers, AxisEndsAreTakenAsTheyAre) {
    for (const float value :
         {notANumber, infinity, -infinity, Limits::max(), Limits::lowest(), Limits::denorm_min(), 1e30f}) {
        SCOPED_TRACE(value);
        plotter.SetXAxisMin(value);
        plotter.SetYAxisMax(value);
        UseEverything();
        plotter.SetZAxisMin(value);
        plotter.SetZAxisMax(value);
        const float got[] = {plotter.GetXAxisMin(), plotter.GetYAxisMax(), plotter.GetZAxisMax()};
        for (const float number : got)
            EXPECT_TRUE(std::isnan(value) ? std::isnan(number) : number == value) << number;
        UseEverything();
        ExpectStillGood("axis ends");
    }
}

// What a call with sensible arguments replaces leaves nothing of the bad ones behind.
TEST_F(BadNumbers, NoMemberLeavesThemBehind) {
    PlausibleArguments plausible;
    RunAll(Repetition::adds, plausible, false);
    RunAll(Repetition::same, plausible, false);
    m_reference = GoodPicture();
    for (unsigned int round = 0; round < BadArguments::roundCount; ++round) {
        SCOPED_TRACE(testing::Message() << "round " << round);
        BadArguments bad(round);
        RunAll(Repetition::same, bad, true);
        UseEverything();
        RunAll(Repetition::same, plausible, false);
        ExpectStillGood("bad-members-" + std::to_string(round));
    }
}

TEST_F(BadNumbers, NoMemberFailsOverThem) {
    std::vector<std::unique_ptr<BadArguments>> all; // measure groups refer to their points
    for (unsigned int round = 0; round < BadArguments::roundCount; ++round) {
        SCOPED_TRACE(testing::Message() << "round " << round);
        all.push_back(std::make_unique<BadArguments>(round));
        RunAll(Repetition::adds, *all.back(), true);
        RunAll(Repetition::changes, *all.back(), true);
        plotter.OnSize(0, 320, 240);
        GoodPicture();
        for (const double element : plotter.m_rotationMatrix)
            EXPECT_TRUE(std::isfinite(element));
    }
    plotter.OnDestroy();
}

TEST_F(BadNumbers, OverlaysAreDrawnAsFarAsTheyCanBe) {
    float points[] = {0, 0, 0, notANumber, 1, 1, infinity, 2, -infinity, 3e38f, -3e38f, 1e-45f, 1, 1, 1};
    ASSERT_EQ(plotter.AddCurveData(points, 5, 3), 0);
    ASSERT_EQ(plotter.AddCurveData(points, 15, 1), 1);
    for (const float width : {notANumber, infinity, -1.0f, 0.0f, 1e-45f, 3e38f}) {
        EXPECT_EQ(plotter.SetCurveWidth(0, width), 0);
        UseEverything();
    }
    for (const unsigned int pixels : {0u, 100000u, 0xffffffffu}) {
        plotter.SetPointRadiusPixelSize(pixels);
        UseEverything();
    }
    plotter.SetPointRadiusPixelSize(4);
    EXPECT_EQ(plotter.AddReferenceMeasurePoints(5, 3, points, "group"), 0);
    EXPECT_EQ(plotter.AddMeasurePoints(15, 1, points, ""), 0);
    UseEverything();
    plotter.ShowAllMeasureGroups(false);
    ExpectStillGood("overlays");
}

// ---- Sizes and pointers

TEST_F(BadNumbers, SizesThatNoWindowHas) {
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    for (const int width : {0, 1, -1, 16384, 46341, largest, smallest})
        for (const int height : {0, 1, -1, 16384, 65536, largest, smallest}) {
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            ExpectWithinASecond("OnSize", [&] { plotter.OnSize(0, width, height); });
            ExpectWithinASecond("frame", [&] { plotter.Renderscene(); });
            plotter.OnRButtonDown(MK_RBUTTON, POINT{0, 0});
            plotter.OnMouseMove(MK_RBUTTON, POINT{0, 0});
            plotter.OnMouseMove(MK_RBUTTON | MK_SHIFT, POINT{0, 0});
            plotter.OnRButtonUp(0, POINT{0, 0});
        }
    plotter.OnSize(0, 320, 240);
    ExpectStillGood("sizes");
}

TEST_F(BadNumbers, NoPointerLosesTheView) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
    const POINT points[] = {
        {0, 0}, {largest, largest}, {smallest, smallest}, {largest, smallest}, {100, 100}};
    for (const int width : {320, 0}) {
        plotter.OnSize(0, width, 240);
        for (const POINT from : points)
            for (const POINT to : points) {
                plotter.Rotate(from, to);
                plotter.Translate(from, to);
                plotter.Zoom(from, to);
                plotter.Trace(to);
                plotter.OnMouseWheel(0, -1, to);
                plotter.OnRButtonDown(MK_RBUTTON, from);
                plotter.OnMouseMove(MK_RBUTTON, to);
                plotter.OnRButtonUp(0, to);
            }
        for (const float factor : {0.0f, notANumber, infinity, -1.0f, 3e38f, 1e-45f}) {
            plotter.Zoom(factor);
            plotter.Translate(points[0], points[4]);
            plotter.Rotate(points[0], points[4]);
            plotter.Renderscene();
        }
    }
    plotter.OnSize(0, 320, 240);
    for (const double element : plotter.m_rotationMatrix)
        EXPECT_TRUE(std::isfinite(element));
    EXPECT_TRUE(std::isfinite(plotter.m_viewRight) && plotter.m_viewRight > 0.0);
}

// A drag by the height of the viewport makes the view volume infinite, until the next size.
TEST_F(BadNumbers, AnInfiniteViewVolumeIsNotPanned) {
    plotter.OnRButtonDown(MK_RBUTTON, POINT{100, 240});
    plotter.OnMouseMove(MK_RBUTTON | MK_CONTROL, POINT{100, 0});
    ASSERT_TRUE(std::isinf(plotter.m_viewRight));
    plotter.OnMouseMove(MK_RBUTTON | MK_SHIFT, POINT{120, 30});
    plotter.OnRButtonUp(0, POINT{120, 30});
    plotter.OnSize(0, 320, 240);
    ExpectStillGood("infinite volume");
}

// Before the first size the viewport has no width.
TEST_F(BadNumbers, NavigationBeforeOnCreateDoesNotLoseTheView) {
    PlotterProbe early;
    early.Rotate(POINT{0, 0}, POINT{5, 5});
    early.Translate(POINT{0, 0}, POINT{5, 5});
    TestWindow window(WindowKind::offscreen, 320, 240);
    ASSERT_EQ(early.OnCreate(window.Handle(), 320, 240, true), 0);
    const TestSurface good = HillSurface(12, 9);
    early.SetData(good.NewArray(), 12, 9, 1, 12, 3);
    EXPECT_GT(SurfacePixels(CaptureImage(early)), 2000);
    early.OnDestroy();
}

// ---- Texts

namespace {

std::vector<std::pair<std::string, std::string>> TextPieces() {
    return {{"letters", "a"},
            {"spaces", " "},
            {"words", "a b "},
            {"lines", "a\n"},
            {"line ends", "\r\n"},
            {"lone lead bytes", "\xC3"},
            {"lone continuation bytes", "\x80"},
            {"invalid bytes", "\xFF\xFE"},
            {"surrogates", "\xED\xA0\x80"},
            {"overlong", "\xC0\x80"},
            {"cut off", "ab\xE2\x82"},
            {"separators", "\xE2\x80\xA8"},
            {"many scripts", "a\xD7\x90\xD8\xA7\xE6\x97\xA5\xE0\xA4\x95\xF0\x9F\x98\x80 "},
            {"both directions", "a\xD7\x90"},
            {"combining", "\xCC\x81"},
            {"control", "\x01\x02\x7F\x1B"}};
}

std::string Repeated(const std::string& piece, std::size_t size) {
    std::string text;
    while (text.size() < size)
        text += piece;
    text.resize(size);
    return text;
}

} // namespace

TEST_F(BadNumbers, TextsOfAnyLengthAndBytes) {
    for (const auto& [name, piece] : TextPieces())
        for (const std::size_t size : {std::size_t{1}, std::size_t{1000}, std::size_t{1000000}}) {
            SCOPED_TRACE(testing::Message() << size << " bytes of " << name);
            const std::string text = Repeated(piece, size);
            ExpectWithinASecond("plot title", [&] { plotter.SetPlotTitle(text.c_str()); });
            ExpectWithinASecond("axis title", [&] { plotter.SetXAxisTitle(text.c_str()); });
            EXPECT_EQ(plotter.GetPlotTitle(), text);
            EXPECT_EQ(plotter.GetXAxisTitle(), text);
            ExpectWithinASecond("frame", [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
        }
    plotter.SetPlotTitle("Title");
    plotter.SetXAxisTitle("X");
    ExpectStillGood("texts");
}

TEST_F(BadNumbers, NamesAndBitmapTextsOfAnyLength) {
    float point[] = {0, 0, 0};
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{1000000}}) {
        const std::string text = Repeated("\xFF\xC3 a", size);
        ExpectWithinASecond("group", [&] {
            EXPECT_EQ(plotter.AddMeasurePoints(1, 3, point, text.c_str()), 0);
            EXPECT_EQ(plotter.SetMeasureGroupName(0, text.c_str()), 0);
        });
        EXPECT_EQ(plotter.GetMeasureGroupIndexByName(text), 0);
        // The driver takes a second or two for a million glyphs.
        const auto glyphs = size / 10;
        const CurrentContext context(plotter);
        ExpectWithinASecond("text", [&] { plotter.RenderText(0.0f, 0.0f, 0.0f, text.c_str(), glyphs); });
        ExpectWithinASecond("text nowhere",
                            [&] { plotter.RenderFarText(notANumber, infinity, text.c_str(), glyphs); });
    }
    plotter.ShowAllMeasureGroups(false);
    plotter.SetPlotTitle("");
    EXPECT_STREQ(plotter.GetPlotTitle(), "");
    EXPECT_EQ(plotter.Renderscene(), 0);
    plotter.SetPlotTitle("Title");
    ExpectStillGood("names");
}

// ---- Legend

TEST_F(BadNumbers, TheLegendOfAnyFiniteRangeHasTheGradientsColours) {
    const auto coloursOf = [this](float span) {
        const float points[] = {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, span};
        SetPoints({points, points + 12}, 2, 2);
        std::vector<float> colours;
        for (const auto& colour : plotter.m_zColorRuler->m_colors)
            colours.insert(colours.end(), colour, colour + 3);
        return colours;
    };
    const std::vector<float> usual = coloursOf(4.0f);
    for (const float span : {1e-30f, 1e30f, 1e38f, 3e38f})
        EXPECT_THAT(coloursOf(span), testing::Pointwise(testing::FloatNear(0.02f), usual)) << span;
}
