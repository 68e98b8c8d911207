// The public axis members: ranges, tick counts, label precisions, and the labels made of them.
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <ostream>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Plotter = CKivoFunctionPlotter;

// The members of one axis.
struct AxisMembers {
    float (Plotter::*getMin)() const;
    float (Plotter::*getMax)() const;
    int (Plotter::*setMin)(float);
    int (Plotter::*setMax)(float);
    unsigned int (Plotter::*getTicks)() const;
    int (Plotter::*setTicks)(unsigned int);
    unsigned int (Plotter::*getPrecision)() const;
    int (Plotter::*setPrecision)(unsigned int);
};

const AxisMembers axes[] = {
    {&Plotter::GetXAxisMin, &Plotter::GetXAxisMax, &Plotter::SetXAxisMin, &Plotter::SetXAxisMax,
     &Plotter::GetXAxisTickMarkNumber, &Plotter::SetXAxisTickMarkNumber,
     &Plotter::GetXAxisFloatingPointPrecision, &Plotter::SetXAxisFloatingPointPrecision},
    {&Plotter::GetYAxisMin, &Plotter::GetYAxisMax, &Plotter::SetYAxisMin, &Plotter::SetYAxisMax,
     &Plotter::GetYAxisTickMarkNumber, &Plotter::SetYAxisTickMarkNumber,
     &Plotter::GetYAxisFloatingPointPrecision, &Plotter::SetYAxisFloatingPointPrecision},
    {&Plotter::GetZAxisMin, &Plotter::GetZAxisMax, &Plotter::SetZAxisMin, &Plotter::SetZAxisMax,
     &Plotter::GetZAxisTickMarkNumber, &Plotter::SetZAxisTickMarkNumber,
     &Plotter::GetZAxisFloatingPointPrecision, &Plotter::SetZAxisFloatingPointPrecision}};

// What an axis says of itself.
struct AxisState {
    float min;
    float max;
    unsigned int ticks;
    unsigned int precision;

    bool operator==(const AxisState& other) const {
        return min == other.min && max == other.max && ticks == other.ticks && precision == other.precision;
    }
};

std::ostream& operator<<(std::ostream& stream, const AxisState& state) {
    return stream << state.min << " to " << state.max << ", " << state.ticks << " ticks, " << state.precision
                  << " digits";
}

using AllAxes = std::array<AxisState, 3>;

AllAxes Told(const Plotter& plotter) {
    AllAxes all;
    for (std::size_t axis = 0; axis < 3; ++axis)
        all[axis] = {std::invoke(axes[axis].getMin, plotter), std::invoke(axes[axis].getMax, plotter),
                     std::invoke(axes[axis].getTicks, plotter),
                     std::invoke(axes[axis].getPrecision, plotter)};
    return all;
}

// The same, as the grid box holds it.
AllAxes Held(const PlotterProbe& plotter) {
    const CKivoGridBox& box = *plotter.m_gridBox;
    AllAxes all;
    for (std::size_t axis = 0; axis < 3; ++axis)
        all[axis] = {box.m_axisMin[axis], box.m_axisMax[axis], box.m_tickIntervals[axis] + 1,
                     box.m_precision[axis]};
    return all;
}

class AxisSettings : public WindowTest {
protected:
    AxisSettings() { SetData(); }

    // x from 0 to 100, y from 0 to 10, z from 0 to 0.6: three axes without a number in common.
    void SetData() {
        const float points[] = {0, 0, 0, 100, 0, 0.25f, 0, 10, 0.5f, 100, 10, 0.6f};
        float* owned = new float[12];
        std::copy(points, points + 12, owned);
        plotter.SetData(owned, 2, 2, 1, 2, 3);
    }

    // After a setter: the axes tell what they hold, which is this, and no context is current.
    void ExpectAxes(const AllAxes& expected) {
        EXPECT_EQ(Told(plotter), expected);
        EXPECT_EQ(Held(plotter), expected);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
    }

    // Every label of the axis shows the value at its tick, and is a texture of the plotter's context.
    void ExpectLabels(int axis) {
        const CKivoGridBox& box = *plotter.m_gridBox;
        ASSERT_NE(box.m_tickLabels[axis], nullptr);
        const CurrentContext context(plotter);
        for (unsigned int i = 0; i <= box.m_tickIntervals[axis]; ++i) {
            const float value = box.m_tickPositions[axis][i] + box.m_axisMin[axis];
            SKivoTexImage expected;
            CreateTextImage(plotter.m_textRenderer, FormatNumber(value, box.m_precision[axis]).c_str(),
                            &expected);
            const SKivoTexImage& label = box.m_tickLabels[axis][i];
            ASSERT_EQ(label.width, expected.width) << value;
            EXPECT_EQ(std::memcmp(label.pixels, expected.pixels,
                                  static_cast<std::size_t>(label.width) * label.height * 4),
                      0)
                << value;
            EXPECT_TRUE(glIsTexture(label.texture)) << value;
            ReleaseTextImage(&expected);
        }
    }

    TestPlot plot{GetParam(), 400, 300};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST(AxisSettingsWithoutWindow, AxesStartEmptyAndCanBeSet) {
    PlotterProbe plotter;
    AllAxes expected;
    expected.fill({0, 0, 1, 1});
    EXPECT_EQ(Told(plotter), expected);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const float length = 4.0f + static_cast<float>(axis);
        EXPECT_EQ(std::invoke(axes[axis].setTicks, plotter, 3), 0);
        EXPECT_EQ(std::invoke(axes[axis].setMax, plotter, length), 0);
        EXPECT_EQ(std::invoke(axes[axis].setPrecision, plotter, 2), 0);
        expected[axis] = {0, length, 3, 2};
        EXPECT_EQ(Told(plotter), expected);
        const CKivoGridBox& box = *plotter.m_gridBox;
        EXPECT_EQ(box.m_tickPositions[axis][2], length);
        EXPECT_EQ(box.m_tickLabels[axis], nullptr) << "no fonts to make them with";
    }
}

TEST_P(AxisSettings, DataChooseRoundOnes) {
    const AllAxes told = Told(plotter);
    const AllAxes expected = {{{-5, 115, 7, 0}, {-0.5f, 11.5f, 7, 1}, {-0.05f, 0.75f, 9, 2}}};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_FLOAT_EQ(told[axis].min, expected[axis].min);
        EXPECT_FLOAT_EQ(told[axis].max, expected[axis].max);
        EXPECT_EQ(told[axis].ticks, expected[axis].ticks);
        EXPECT_EQ(told[axis].precision, expected[axis].precision);
        ExpectLabels(static_cast<int>(axis));
    }
}

TEST_P(AxisSettings, EachMemberChangesItsOwnAxisOnly) {
    AllAxes expected = Told(plotter);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        SCOPED_TRACE(axis);
        const float shift = static_cast<float>(axis);
        EXPECT_EQ(std::invoke(axes[axis].setMin, plotter, -7.5f - shift), 0);
        expected[axis].min = -7.5f - shift;
        ExpectAxes(expected);
        EXPECT_EQ(std::invoke(axes[axis].setMax, plotter, 25.5f + shift), 0);
        expected[axis].max = 25.5f + shift;
        ExpectAxes(expected);
        EXPECT_EQ(std::invoke(axes[axis].setTicks, plotter, 5u + static_cast<unsigned int>(axis)), 0);
        expected[axis].ticks = 5u + static_cast<unsigned int>(axis);
        ExpectAxes(expected);
        EXPECT_EQ(std::invoke(axes[axis].setPrecision, plotter, 3u + static_cast<unsigned int>(axis)), 0);
        expected[axis].precision = 3u + static_cast<unsigned int>(axis);
        ExpectAxes(expected);
    }
}

TEST_P(AxisSettings, EveryChangeMakesTheLabelsAnew) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        SCOPED_TRACE(axis);
        const int number = static_cast<int>(axis);
        std::invoke(axes[axis].setMin, plotter, -20.0f);
        ExpectLabels(number);
        std::invoke(axes[axis].setMax, plotter, 13.5f);
        ExpectLabels(number);
        std::invoke(axes[axis].setTicks, plotter, 4u);
        ExpectLabels(number);
        std::invoke(axes[axis].setPrecision, plotter, 4u);
        ExpectLabels(number);
    }
}

TEST_P(AxisSettings, ARangeMayRunBackwards) {
    plotter.SetYAxisMin(20.0f);
    EXPECT_EQ(plotter.GetYAxisMin(), 20.0f);
    EXPECT_EQ(plotter.GetYAxisMax(), Told(plotter)[1].max);
    EXPECT_LT(plotter.m_gridBox->m_tickStep[1], 0.0f);
    ExpectLabels(1);
    EXPECT_EQ(plotter.Renderscene(), 0);
}

TEST_P(AxisSettings, ThePrecisionOutlivesRangesAndTickCountsButNotNewData) {
    const AllAxes chosen = Told(plotter);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::invoke(axes[axis].setPrecision, plotter, 6u);
        std::invoke(axes[axis].setMin, plotter, -1000.0f);
        std::invoke(axes[axis].setMax, plotter, 1000.0f);
        std::invoke(axes[axis].setTicks, plotter, 3u);
        EXPECT_EQ(std::invoke(axes[axis].getPrecision, plotter), 6u);
        ExpectLabels(static_cast<int>(axis));
    }
    SetData();
    EXPECT_EQ(Told(plotter), chosen) << "ranges and tick counts are chosen anew, too";
}

TEST_P(AxisSettings, CountsBelowTwoAreTakenAsTheyAre) {
    for (std::size_t axis = 0; axis < 3; ++axis)
        for (const unsigned int count : {1u, 0u, 2u}) {
            SCOPED_TRACE(count);
            AllAxes expected = Told(plotter);
            EXPECT_EQ(std::invoke(axes[axis].setTicks, plotter, count), 0);
            expected[axis].ticks = count;
            ExpectAxes(expected);
            EXPECT_EQ(plotter.m_gridBox->m_tickIntervals[axis], count - 1);
            if (count == 1) {
                EXPECT_EQ(plotter.m_gridBox->m_tickStep[axis], std::numeric_limits<float>::infinity());
            }
            if (count == 2) ExpectLabels(static_cast<int>(axis));
            EXPECT_EQ(plotter.Renderscene(), 0);
            plotter.SwitchToYZProjectPlot();
            EXPECT_EQ(plotter.Renderscene(), 0);
            plotter.SwitchToNormalPlot();
        }
}

TEST_P(AxisSettings, TheViewIsFittedOnRequestOnly) {
    const auto view = [this] {
        return std::vector<double>{plotter.m_viewLeft,    plotter.m_viewRight,    plotter.m_viewBottom,
                                   plotter.m_viewTop,     plotter.m_axisScale[0], plotter.m_axisScale[1],
                                   plotter.m_axisScale[2]};
    };
    const std::vector<double> before = view();
    for (const AxisMembers& axis : axes) {
        std::invoke(axis.setMin, plotter, -50.0f);
        std::invoke(axis.setMax, plotter, 500.0f);
        std::invoke(axis.setTicks, plotter, 12u);
        std::invoke(axis.setPrecision, plotter, 0u);
        EXPECT_EQ(view(), before);
    }
    plotter.AutoAdjustAxisLengthRatio();
    EXPECT_NE(view(), before);
    EXPECT_EQ(plotter.m_axisScale[0], 1.2);
}

KIVO_IN_ONE_WINDOW(AxisSettings);
