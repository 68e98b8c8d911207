// The axis box: ranges, ticks and back planes.
#include "parts/KivoGridBox.h"
#include "support/PlotterProbe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace KivoDrawingTools;

namespace {

struct Box {
    bool inverse[3] = {};
    CKivoGridBox box{&inverse[0], &inverse[1], &inverse[2]};
};

void ExpectTicks(const CKivoGridBox& box, int axis, float offset = 0.0f) {
    ASSERT_NE(box.m_tickPositions[axis], nullptr);
    for (unsigned int i = 0; i <= box.m_tickIntervals[axis]; ++i)
        EXPECT_EQ(box.m_tickPositions[axis][i], static_cast<float>(i) * box.m_tickStep[axis] + offset);
}

} // namespace

TEST(GridBox, StartsEmpty) {
    const Box b;
    EXPECT_EQ(b.box.m_textMaker, nullptr);
    EXPECT_EQ(b.box.m_dataMin, nullptr);
    EXPECT_EQ(b.box.m_dataMax, nullptr);
    EXPECT_FALSE(b.box.m_autoSwitchFramePlanes);
    EXPECT_TRUE(b.box.m_showGridLines);
    EXPECT_EQ(b.box.m_marginRatio, 0.0f);
    EXPECT_EQ(b.box.m_tickLength, 10.0f);
    EXPECT_EQ(b.box.m_labelOffset, 12.5f);
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(b.box.m_inverseAxis[axis], &b.inverse[axis]);
        for (const float* values : {b.box.m_axisMin, b.box.m_axisMax, b.box.m_boxMin, b.box.m_boxMax,
                                    b.box.m_tickOffset, b.box.m_margin, b.box.m_tickStep})
            EXPECT_EQ(values[axis], 0.0f);
        EXPECT_EQ(b.box.m_tickIntervals[axis], 0u);
        EXPECT_EQ(b.box.m_precision[axis], 1u);
        EXPECT_TRUE(b.box.m_backPlane[axis]);
        EXPECT_EQ(b.box.m_tickPositions[axis], nullptr);
        EXPECT_EQ(b.box.m_tickLabels[axis], nullptr);
        EXPECT_EQ(b.box.m_axisTitleImage[axis].texture, 0u);
        EXPECT_EQ(b.box.m_axisTitleImage[axis].pixels, nullptr);
    }
}

TEST(GridBox, FitsEveryAxisToItsData) {
    Box b;
    const float min[] = {0, 3, -0.004f}, max[] = {100, 7, 0.004f};
    b.box.FitToData(min, max);
    const float axisMin[] = {-5, 2.5f, -0.0045f}, axisMax[] = {115, 8.5f, 0.0055f};
    const float step[] = {20, 1, 0.002f};
    const unsigned int intervals[] = {6, 6, 5}, precision[] = {0, 1, 3};
    EXPECT_EQ(b.box.m_dataMin, min);
    EXPECT_EQ(b.box.m_dataMax, max);
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(b.box.m_axisMin[axis], axisMin[axis], step[axis] * 1e-4f);
        EXPECT_NEAR(b.box.m_axisMax[axis], axisMax[axis], step[axis] * 1e-4f);
        EXPECT_NEAR(b.box.m_tickStep[axis], step[axis], step[axis] * 1e-4f);
        EXPECT_EQ(b.box.m_tickIntervals[axis], intervals[axis]);
        EXPECT_EQ(b.box.m_precision[axis], precision[axis]);
        EXPECT_EQ(b.box.m_boxMin[axis], b.box.m_axisMin[axis]);
        EXPECT_EQ(b.box.m_boxMax[axis], b.box.m_axisMax[axis]);
        EXPECT_EQ(b.box.m_margin[axis], 0.0f);
        ExpectTicks(b.box, axis);
    }
}

TEST(GridBox, NewDataReplaceThePrecisionOfTheHost) {
    Box b;
    const float min[] = {0, 0, 0}, max[] = {10, 10, 10};
    b.box.m_precision[1] = 7;
    b.box.FitToData(min, max);
    EXPECT_EQ(b.box.m_precision[1], 1u);
}

TEST(GridBox, SettingAnEndKeepsIntervalsAndPrecision) {
    Box b;
    const float min[] = {0, 0, 0}, max[] = {10, 10, 10}; // -0.5 to 11.5 in 6 intervals
    b.box.FitToData(min, max);
    b.box.m_precision[0] = 4;
    b.box.SetAxisMin(0, -6.5f);
    EXPECT_EQ(b.box.m_axisMin[0], -6.5f);
    EXPECT_EQ(b.box.m_axisMax[0], 11.5f);
    EXPECT_EQ(b.box.m_boxMin[0], -6.5f);
    EXPECT_EQ(b.box.m_tickStep[0], 3.0f);
    EXPECT_EQ(b.box.m_tickIntervals[0], 6u);
    EXPECT_EQ(b.box.m_precision[0], 4u);
    ExpectTicks(b.box, 0);
    b.box.SetAxisMax(0, -0.5f);
    EXPECT_EQ(b.box.m_boxMax[0], -0.5f);
    EXPECT_EQ(b.box.m_tickStep[0], 1.0f);
    ExpectTicks(b.box, 0);
    EXPECT_EQ(b.box.m_tickStep[1], 2.0f) << "another axis";
    b.box.SetAxisMin(0, 2.5f); // past the other end
    EXPECT_EQ(b.box.m_tickStep[0], -0.5f);
    ExpectTicks(b.box, 0);
}

TEST(GridBox, SettingTheTickCountKeepsTheRange) {
    Box b;
    const float min[] = {0, 0, 0}, max[] = {10, 10, 10};
    b.box.FitToData(min, max);
    b.box.m_precision[2] = 2;
    b.box.SetTickMarkNumber(2, 5);
    EXPECT_EQ(b.box.m_tickIntervals[2], 4u);
    EXPECT_EQ(b.box.m_tickStep[2], 3.0f);
    EXPECT_EQ(b.box.m_axisMin[2], -0.5f);
    EXPECT_EQ(b.box.m_axisMax[2], 11.5f);
    EXPECT_EQ(b.box.m_precision[2], 2u);
    ExpectTicks(b.box, 2);
}

TEST(GridBox, OneTickHasAnInfiniteStep) {
    Box b;
    const float min[] = {0, 0, 0}, max[] = {10, 10, 10};
    b.box.FitToData(min, max);
    b.box.SetTickMarkNumber(0, 1);
    EXPECT_EQ(b.box.m_tickIntervals[0], 0u);
    EXPECT_FALSE(std::isfinite(b.box.m_tickStep[0]));
    EXPECT_NE(b.box.m_tickPositions[0], nullptr);
}

// The interval count wraps round; one more is none, so nothing is stored or walked.
TEST(GridBox, NoTicksAtAllWrapTheIntervalCount) {
    Box b;
    const float min[] = {0, 0, 0}, max[] = {10, 10, 10};
    b.box.FitToData(min, max);
    b.box.SetTickMarkNumber(1, 0);
    EXPECT_EQ(b.box.m_tickIntervals[1], std::numeric_limits<unsigned int>::max());
    EXPECT_EQ(b.box.m_tickIntervals[1] + 1, 0u);
    b.box.SetAxisMin(1, 4.0f);
    b.box.SetTickMarkNumber(1, 4);
    EXPECT_EQ(b.box.m_tickIntervals[1], 3u);
    ExpectTicks(b.box, 1);
    b.box.SetTickMarkNumber(1, 0);
    b.box.FitToData(min, max);
    EXPECT_EQ(b.box.m_tickIntervals[1], 6u);
    ExpectTicks(b.box, 1);
}

TEST(GridBox, AMarginWidensTheBoxAndOffsetsTheTicks) {
    Box b;
    const float min[] = {0, 0, 0}, max[] = {10, 10, 10};
    b.box.m_marginRatio = 0.25f;
    b.box.FitToData(min, max);
    EXPECT_EQ(b.box.m_axisMin[0], -0.5f);
    EXPECT_EQ(b.box.m_margin[0], 3.0f);
    EXPECT_EQ(b.box.m_boxMin[0], -3.5f);
    EXPECT_EQ(b.box.m_boxMax[0], 14.5f);
    EXPECT_EQ(b.box.m_tickOffset[0], 3.0f);
    ExpectTicks(b.box, 0, 3.0f);
}

TEST(GridBox, DataThatCannotBeScaledKeepTheirNumbers) {
    Box b;
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float min[] = {0, nan, -3e38f}, max[] = {infinity, 1, 3e38f};
    b.box.FitToData(min, max);
    EXPECT_EQ(b.box.m_axisMax[0], infinity);
    EXPECT_TRUE(std::isnan(b.box.m_axisMin[1]));
    EXPECT_EQ(b.box.m_axisMin[2], -3e38f);
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(b.box.m_tickIntervals[axis], 0u);
        EXPECT_EQ(b.box.m_precision[axis], 0u);
    }
}

TEST(GridBox, BackPlanesFollowTheDepthsOfTheAxes) {
    Box b;
    b.box.m_autoSwitchFramePlanes = true;
    for (int signs = 0; signs < 8; ++signs) {
        double rotation[16];
        std::fill(rotation, rotation + 16, -99.0);
        rotation[2] = signs & 1 ? 0.5 : -1e-9;  // depth of the X axis
        rotation[6] = signs & 2 ? 0.0 : -0.5;   // of the Y axis; 0 counts as positive
        rotation[10] = signs & 4 ? 1e-9 : -0.5; // of the Z axis
        b.box.ChooseBackPlanes(rotation);
        EXPECT_EQ(b.box.m_backPlane[2], (signs & 1) != 0);
        EXPECT_EQ(b.box.m_backPlane[0], (signs & 2) != 0);
        EXPECT_EQ(b.box.m_backPlane[1], (signs & 4) != 0);
    }
}

TEST(GridBox, TheGridStandsOnTheBackPlanes) {
    Box b;
    for (int axis = 0; axis < 3; ++axis) {
        b.box.m_boxMin[axis] = static_cast<float>(1 + axis);
        b.box.m_boxMax[axis] = static_cast<float>(10 + axis);
    }
    for (int flags = 0; flags < 8; ++flags) {
        SCOPED_TRACE(flags);
        bool* const planes = b.box.m_backPlane;
        planes[0] = (flags & 1) != 0; // XZ at y min
        planes[1] = (flags & 2) != 0; // XY at z min
        planes[2] = (flags & 4) != 0; // YZ at x min
        EXPECT_EQ(b.box.IsGridAtMin(0), (flags & 4) != 0);
        EXPECT_EQ(b.box.IsGridAtMin(1), (flags & 1) != 0);
        EXPECT_EQ(b.box.IsGridAtMin(2), (flags & 2) != 0);
        EXPECT_EQ(b.box.GridFace(0), flags & 4 ? 1.0f : 10.0f);
        EXPECT_EQ(b.box.GridFace(1), flags & 1 ? 2.0f : 11.0f);
        EXPECT_EQ(b.box.GridFace(2), flags & 2 ? 3.0f : 12.0f);
    }
}

TEST(GridBox, FixedBackPlanesFollowTheInverseAxes) {
    Box b;
    double rotation[16];
    std::fill(rotation, rotation + 16, -1.0);
    for (int flags = 0; flags < 8; ++flags) {
        for (int axis = 0; axis < 3; ++axis)
            b.inverse[axis] = (flags >> axis & 1) != 0;
        b.box.ChooseBackPlanes(rotation);
        EXPECT_EQ(b.box.m_backPlane[2], !b.inverse[0]);
        EXPECT_EQ(b.box.m_backPlane[0], !b.inverse[1]);
        EXPECT_EQ(b.box.m_backPlane[1], !b.inverse[2]);
    }
}

TEST(GridBox, ThePlottersBoxReadsItsInverseAxesAndSwitchesByItself) {
    PlotterProbe plotter;
    EXPECT_TRUE(plotter.m_gridBox->m_autoSwitchFramePlanes);
    EXPECT_EQ(plotter.m_gridBox->m_inverseAxis[0], &plotter.m_inverseXAxis);
    EXPECT_EQ(plotter.m_gridBox->m_inverseAxis[1], &plotter.m_inverseYAxis);
    EXPECT_EQ(plotter.m_gridBox->m_inverseAxis[2], &plotter.m_inverseZAxis);
    plotter.SetAutoSwitchFramePlanes(false);
    EXPECT_FALSE(plotter.m_gridBox->m_autoSwitchFramePlanes);
    plotter.SetAutoSwitchFramePlanes(true);
    EXPECT_TRUE(plotter.m_gridBox->m_autoSwitchFramePlanes);
}
