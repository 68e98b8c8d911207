// Construction, copying and the ways of giving back what a plotter holds.
#include "KivoAxis.h"
#include "KivoContours.h"
#include "KivoLegend.h"
#include "KivoMotion.h"
#include "KivoPoints.h"
#include "KivoStyle.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "support/FilledPlot.h"
#include "support/Image.h"
#include "support/PublicMembers.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <thread>
#include <vector>

using namespace KivoDrawingTools;

// ---- Counting how often watched arrays are freed

namespace {

struct Watched {
    void* array = nullptr;
    int deletions = 0;
};
Watched watched[4];

void Forget() {
    for (Watched& entry : watched)
        entry = {};
}

// An array whose deletions are counted in watched[slot].
template <typename T>
T* WatchedArray(int slot, std::size_t count) {
    T* array = new T[count]();
    watched[slot] = {array, 0};
    return array;
}

} // namespace

// Not inlined: the compiler would take the pair for a mismatched allocation.
[[gnu::noinline]] void* operator new[](std::size_t size) {
    if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size != 0 ? size : 1);
}

[[gnu::noinline]] void operator delete[](void* memory) noexcept {
    for (Watched& entry : watched)
        if (memory && entry.array == memory) {
            ++entry.deletions;
            entry.array = nullptr; // the address may be given out again
        }
    std::free(memory);
}

[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept {
    operator delete[](memory);
}

[[gnu::noinline]] void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    operator delete[](memory);
}

// ---- Construction

namespace {

// A plotter in memory that holds no zeros, so that what construction forgets is seen.
class FreshPlotter {
public:
    FreshPlotter() {
        volatile unsigned char* const bytes =
            m_memory; // else the compiler leaves out what a constructor ends
        for (std::size_t i = 0; i < sizeof m_memory; ++i)
            bytes[i] = 0xA5;
        m_plotter = new (m_memory) PlotterProbe;
    }
    ~FreshPlotter() { m_plotter->~PlotterProbe(); }
    FreshPlotter(const FreshPlotter&) = delete;
    FreshPlotter& operator=(const FreshPlotter&) = delete;

    const PlotterProbe& Get() const { return *m_plotter; }

private:
    alignas(PlotterProbe) unsigned char m_memory[sizeof(PlotterProbe)];
    PlotterProbe* m_plotter;
};

} // namespace

TEST(Lifecycle, AFreshPlotterHasNoWindowAndNoData) {
    const FreshPlotter fresh;
    const PlotterProbe& p = fresh.Get();
    EXPECT_EQ(p.m_hWnd, nullptr);
    EXPECT_EQ(p.m_hDC, nullptr);
    EXPECT_EQ(p.m_hGLRC, nullptr);
    EXPECT_FALSE(p.m_mouseButtonDown);
    EXPECT_EQ(p.m_lastMouseX, 0);
    EXPECT_EQ(p.m_lastMouseY, 0);
    EXPECT_EQ(p.m_plotType, 0);
    EXPECT_EQ(p.m_clientHeight, 0);
    for (const int* viewport : {p.m_plotViewport, p.m_legendViewport})
        EXPECT_EQ((std::vector<int>(viewport, viewport + 4)), (std::vector<int>{0, 0, 0, 1}));
    for (const double bound :
         {p.m_viewLeft, p.m_viewRight, p.m_viewBottom, p.m_viewTop, p.m_viewNear, p.m_viewFar})
        EXPECT_EQ(bound, 0.0);
    EXPECT_EQ((std::vector<double>(p.m_legendViewVolume, p.m_legendViewVolume + 6)),
              (std::vector<double>(6)));
    EXPECT_EQ(p.m_points, nullptr);
    EXPECT_FALSE(p.m_isDataReference);
    for (const unsigned int count : {p.m_columnCount, p.m_rowCount, p.m_vertexCount, p.m_indexCount,
                                     p.m_columnStride, p.m_rowStride, p.m_componentCount})
        EXPECT_EQ(count, 0u);
    EXPECT_EQ(p.m_colorArray, nullptr);
    EXPECT_EQ(p.m_normalArray, nullptr);
    EXPECT_EQ(p.m_texcoordArray, nullptr);
    EXPECT_EQ(p.m_indexArray, nullptr);
    EXPECT_EQ(p.m_framelineIndexArray, nullptr);
    EXPECT_EQ(p.m_framelineIndexCount, 0);
    EXPECT_EQ(p.m_fontListBase, 0u);
}

TEST(Lifecycle, AFreshPlotterHasItsCameraAndColours) {
    const FreshPlotter fresh;
    const PlotterProbe& p = fresh.Get();
    EXPECT_EQ(p.m_panFractionX, 0.055);
    EXPECT_EQ(p.m_panFractionY, -0.025);
    EXPECT_EQ(FromArray(p.m_rotationMatrix), Identity());
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(p.m_volumeTranslate[axis], 0.0);
        EXPECT_EQ(p.m_axisScale[axis], 1.0);
        EXPECT_EQ(p.m_boundingBoxMin[axis], 0.0f);
        EXPECT_EQ(p.m_boundingBoxMax[axis], 0.0f);
        EXPECT_EQ(p.m_tracePoint[axis], 0.0f);
    }
    EXPECT_EQ((std::vector<float>(p.m_viewVolumeFactor, p.m_viewVolumeFactor + 3)),
              (std::vector<float>{1.01f, 1.01f, 15.0f}));
    EXPECT_EQ((std::vector<float>(p.m_defaultBackgroundColor, p.m_defaultBackgroundColor + 4)),
              (std::vector<float>{1.0f, 253.0f / 255.0f, 233.0f / 255.0f, 1.0f}));
    EXPECT_EQ((std::vector<float>(p.m_backgroundColor, p.m_backgroundColor + 4)), (std::vector<float>(4)));
    EXPECT_EQ((std::vector<float>(p.m_framelineColor, p.m_framelineColor + 4)),
              (std::vector<float>{0, 0, 0, 1}));
    EXPECT_EQ(p.m_pointRadiusPixelSize, 4.0f);
    EXPECT_FALSE(p.m_inverseXAxis || p.m_inverseYAxis || p.m_inverseZAxis);
}

TEST(Lifecycle, AFreshPlotterShowsFrameLinesOnly) {
    const FreshPlotter fresh;
    const PlotterProbe& p = fresh.Get();
    EXPECT_FALSE(p.m_useFramelineTexture);
    EXPECT_TRUE(p.m_showFrameLines);
    EXPECT_FALSE(p.m_showXIsoContours);
    EXPECT_FALSE(p.m_showYIsoContours);
    EXPECT_FALSE(p.m_showZIsoContours);
    EXPECT_FALSE(p.m_useIsoContourTexture);
    EXPECT_EQ(p.m_isoContourCount, 20u);
    EXPECT_EQ(p.m_isoContourTexId, 0u);
    EXPECT_EQ(p.m_isoContourTexWidth, 0);
    EXPECT_EQ(p.m_isoContourTexHeight, 0);
    EXPECT_EQ(p.m_isoContourTexels, nullptr);
    EXPECT_EQ(p.m_framelineTexId, 0u);
    EXPECT_EQ(p.m_framelineTexWidth, 0);
    EXPECT_EQ(p.m_framelineTexHeight, 0);
    EXPECT_EQ(p.m_framelineTexels, nullptr);
    EXPECT_TRUE(p.m_flatXIsoContours.empty() && p.m_flatYIsoContours.empty() && p.m_flatZIsoContours.empty());
    EXPECT_TRUE(p.m_curveData.empty() && p.m_curvePointCounts.empty() && p.m_curveVisible.empty());
    EXPECT_TRUE(p.m_curveColors.empty() && p.m_curveWidths.empty());
    EXPECT_TRUE(p.m_plotTitle.empty() && p.m_xAxisTitle.empty());
    EXPECT_TRUE(p.m_yAxisTitle.empty() && p.m_zAxisTitle.empty());
    EXPECT_FALSE(p.m_traceEnabled);
    EXPECT_EQ(p.m_hasTracePoint, 0);
}

TEST(Lifecycle, AFreshPlotterOwnsItsHelpers) {
    const PlotterProbe p;
    for (const CKivoGradientColor* gradient : {p.m_xGradientColor, p.m_yGradientColor, p.m_zGradientColor}) {
        ASSERT_NE(gradient, nullptr);
        EXPECT_EQ(gradient->m_startHue, 2.0f / 3.0f);
        EXPECT_EQ(gradient->m_range, 0.0f);
    }
    for (const CKivoGradientColorRuler* ruler : {p.m_xColorRuler, p.m_yColorRuler, p.m_zColorRuler}) {
        ASSERT_NE(ruler, nullptr);
        EXPECT_EQ(ruler->m_gradient, nullptr);
        EXPECT_EQ(ruler->m_textRenderer, nullptr);
        EXPECT_EQ(ruler->m_labels, nullptr);
        EXPECT_EQ(ruler->m_precision, 3u);
        EXPECT_EQ(ruler->m_divisionCount, 0u);
    }
    ASSERT_NE(p.m_gridBox, nullptr);
    ASSERT_NE(p.m_textRenderer, nullptr);
    EXPECT_EQ(p.m_textRenderer->m_windowDC, nullptr);
    EXPECT_EQ(p.m_textRenderer->m_memoryDC, nullptr);
    EXPECT_EQ(p.m_textRenderer->m_font, nullptr);
    EXPECT_EQ(p.m_textRenderer->m_savedFont, nullptr);
    ASSERT_NE(p.m_plotTitleImage, nullptr);
    EXPECT_EQ(p.m_plotTitleImage->texture, 0u);
    EXPECT_EQ(p.m_plotTitleImage->width, 0);
    EXPECT_EQ(p.m_plotTitleImage->height, 0);
    EXPECT_EQ(p.m_plotTitleImage->pixels, nullptr);
    ASSERT_NE(p.m_measureGroups, nullptr);
    EXPECT_TRUE(p.m_measureGroups->m_groups.empty());
    EXPECT_GE(p.m_measureGroups->m_groups.capacity(), 10u);
}

// ---- Copying

namespace {

// Takes from a copy what it shares, so that it can be destroyed beside its source.
void Disown(PlotterProbe& p) {
    p.m_hDC = nullptr;
    p.m_hGLRC = nullptr;
    p.m_xGradientColor = p.m_yGradientColor = p.m_zGradientColor = nullptr;
    p.m_xColorRuler = p.m_yColorRuler = p.m_zColorRuler = nullptr;
    p.m_gridBox = nullptr;
    p.m_colorArray = p.m_normalArray = p.m_texcoordArray = p.m_points = nullptr;
    p.m_indexArray = p.m_framelineIndexArray = nullptr;
    p.m_textRenderer = nullptr;
    p.m_plotTitleImage = nullptr;
    p.m_isoContourTexels = p.m_framelineTexels = nullptr;
    p.m_isoContourTexId = p.m_framelineTexId = 0;
    p.m_flatXIsoContours.clear();
    p.m_flatYIsoContours.clear();
    p.m_flatZIsoContours.clear();
    p.m_measureGroups = nullptr;
}

void FillWithOddValues(PlotterProbe& p) {
    p.m_mouseButtonDown = true;
    p.m_lastMouseX = 3;
    p.m_clientHeight = 77;
    p.m_panFractionX = 0.5;
    p.m_rotationMatrix[12] = 9;
    p.m_volumeTranslate[1] = 8;
    p.m_axisScale[2] = 7;
    p.m_legendViewVolume[5] = 6;
    p.m_viewVolumeFactor[0] = 5;
    p.m_plotTitle = "a title that is longer than a short string";
    p.m_xAxisTitle = "x";
    p.m_isoContourCount = 11;
    p.m_showZIsoContours = true;
    p.m_framelineColor[0] = 0.5f;
    p.m_traceEnabled = true;
    p.m_hasTracePoint = 1;
    p.m_tracePoint[2] = 4;
    p.m_pointRadiusPixelSize = 2;
    p.m_inverseYAxis = true;
    p.m_curveData.push_back({1, 2, 3});
    p.m_curvePointCounts.push_back(1);
    p.m_curveVisible.push_back(true);
    p.m_curveColors.push_back({1, 0, 0, 1});
    p.m_curveWidths.push_back(2);
    p.m_flatZIsoContours.push_back({new float[6](), 2, 0.5f});
}

void ExpectSharedWith(const PlotterProbe& copy, const PlotterProbe& source) {
    EXPECT_EQ(copy.m_hWnd, source.m_hWnd);
    EXPECT_EQ(copy.m_hDC, source.m_hDC);
    EXPECT_EQ(copy.m_hGLRC, source.m_hGLRC);
    EXPECT_EQ(copy.m_fontListBase, source.m_fontListBase);
    EXPECT_EQ(copy.m_xGradientColor, source.m_xGradientColor);
    EXPECT_EQ(copy.m_yGradientColor, source.m_yGradientColor);
    EXPECT_EQ(copy.m_zGradientColor, source.m_zGradientColor);
    EXPECT_EQ(copy.m_xColorRuler, source.m_xColorRuler);
    EXPECT_EQ(copy.m_yColorRuler, source.m_yColorRuler);
    EXPECT_EQ(copy.m_zColorRuler, source.m_zColorRuler);
    EXPECT_EQ(copy.m_gridBox, source.m_gridBox);
    EXPECT_EQ(copy.m_textRenderer, source.m_textRenderer);
    EXPECT_EQ(copy.m_plotTitleImage, source.m_plotTitleImage);
    EXPECT_EQ(copy.m_measureGroups, source.m_measureGroups);
    EXPECT_EQ(copy.m_points, source.m_points);
    EXPECT_EQ(copy.m_colorArray, source.m_colorArray);
    EXPECT_EQ(copy.m_texcoordArray, source.m_texcoordArray);
    EXPECT_EQ(copy.m_indexArray, source.m_indexArray);
    EXPECT_EQ(copy.m_framelineIndexArray, source.m_framelineIndexArray);
    ASSERT_EQ(copy.m_flatZIsoContours.size(), source.m_flatZIsoContours.size());
    EXPECT_EQ(copy.m_flatZIsoContours.back().points, source.m_flatZIsoContours.back().points);
}

void ExpectSameValues(const PlotterProbe& copy, const PlotterProbe& source) {
    EXPECT_EQ(copy.m_mouseButtonDown, source.m_mouseButtonDown);
    EXPECT_EQ(copy.m_lastMouseX, source.m_lastMouseX);
    EXPECT_EQ(copy.m_clientHeight, source.m_clientHeight);
    EXPECT_TRUE(std::equal(copy.m_plotViewport, copy.m_plotViewport + 4, source.m_plotViewport));
    EXPECT_EQ(copy.m_viewRight, source.m_viewRight);
    EXPECT_EQ(copy.m_panFractionX, source.m_panFractionX);
    EXPECT_EQ(FromArray(copy.m_rotationMatrix), FromArray(source.m_rotationMatrix));
    EXPECT_EQ(copy.m_volumeTranslate[1], source.m_volumeTranslate[1]);
    EXPECT_EQ(copy.m_axisScale[2], source.m_axisScale[2]);
    EXPECT_EQ(copy.m_legendViewVolume[5], source.m_legendViewVolume[5]);
    EXPECT_EQ(copy.m_viewVolumeFactor[0], source.m_viewVolumeFactor[0]);
    EXPECT_EQ(copy.m_boundingBoxMax[0], source.m_boundingBoxMax[0]);
    EXPECT_EQ(copy.m_backgroundColor[1], source.m_backgroundColor[1]);
    EXPECT_EQ(copy.m_plotTitle, source.m_plotTitle);
    EXPECT_EQ(copy.m_xAxisTitle, source.m_xAxisTitle);
    EXPECT_EQ(copy.m_isoContourCount, source.m_isoContourCount);
    EXPECT_EQ(copy.m_showZIsoContours, source.m_showZIsoContours);
    EXPECT_EQ(copy.m_framelineColor[0], source.m_framelineColor[0]);
    EXPECT_EQ(copy.m_traceEnabled, source.m_traceEnabled);
    EXPECT_EQ(copy.m_tracePoint[2], source.m_tracePoint[2]);
    EXPECT_EQ(copy.m_pointRadiusPixelSize, source.m_pointRadiusPixelSize);
    EXPECT_EQ(copy.m_inverseYAxis, source.m_inverseYAxis);
    EXPECT_EQ(copy.m_columnCount, source.m_columnCount);
    EXPECT_EQ(copy.m_indexCount, source.m_indexCount);
    EXPECT_EQ(copy.m_framelineIndexCount, source.m_framelineIndexCount);
    EXPECT_EQ(copy.m_curveData, source.m_curveData);
    EXPECT_EQ(copy.m_curvePointCounts, source.m_curvePointCounts);
    EXPECT_EQ(copy.m_curveVisible, source.m_curveVisible);
    EXPECT_EQ(copy.m_curveWidths, source.m_curveWidths);
    EXPECT_EQ(copy.m_curveColors.size(), source.m_curveColors.size());
}

// Data, titles, curve and traced point, with the groups that are there.
void FillAgain(PlotterProbe& plotter) {
    const unsigned int groups = plotter.GetNumMeasureGroups();
    FillPlot(plotter);
    while (plotter.GetNumMeasureGroups() > groups)
        RemoveMeasureGroup(plotter, groups);
}

class LifecycleInWindow : public WindowTest {
protected:
    LifecycleInWindow() { Forget(); }

    void SetSurface() {
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    }

    TestSurface surface = HillSurface(10, 8);
    TestPlot plot{GetParam(), 320, 240};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST_P(LifecycleInWindow, ACopySharesWhatItsSourceHolds) {
    SetSurface();
    FillWithOddValues(plotter);
    PlotterProbe copy(plotter);
    ExpectSharedWith(copy, plotter);
    ExpectSameValues(copy, plotter);
    Disown(copy);
}

TEST_P(LifecycleInWindow, AnAssignmentSharesWhatItsSourceHolds) {
    SetSurface();
    FillWithOddValues(plotter);
    PlotterProbe copy;
    PlotterProbe keeper(copy); // what the copy owned is not freed by the assignment
    EXPECT_EQ(&(copy = plotter), &copy);
    ExpectSharedWith(copy, plotter);
    ExpectSameValues(copy, plotter);
    Disown(copy);
}

TEST_P(LifecycleInWindow, ACopyDrawsThePictureOfItsSource) {
    SetSurface();
    const Image expected = CaptureImage(plotter);
    PlotterProbe copy(plotter);
    EXPECT_TRUE(ImagesAgree(CaptureImage(copy), expected, 0, 0, "copy"));
    Disown(copy);
}

// Either goes on with what it has copied of the points when the other lets go of that.
TEST_P(LifecycleInWindow, ACopyShowsASurfaceThatMovesToo) {
    SetSurface();
    ASSERT_EQ(SetMotionDetail(plotter, 3), 0);
    const auto turn = [](PlotterProbe& turned) {
        turned.OnMouseWheel(0, 120, {100, 100});
        return IsDetailReduced(turned);
    };
    EXPECT_TRUE(turn(plotter));
    PlotterProbe copy(plotter);
    EXPECT_TRUE(turn(copy));
    ASSERT_EQ(SetMotionDetail(copy, 0), 0);
    EXPECT_TRUE(turn(plotter));
    EXPECT_FALSE(turn(copy));
    Disown(copy);
}

// Which triangles are left out is found with room that each has for itself.
TEST_P(LifecycleInWindow, ACopyCullsSmallTrianglesByItself) {
    const TestSurface hill = HillSurface(300, 250);
    plotter.SetData(hill.NewArray(), hill.columns, hill.rows, 1, hill.columns, 3);
    const Image expected = CaptureImage(plotter);
    ASSERT_EQ(CullSmallTriangles(plotter, true), 0);
    PlotterProbe copy(plotter);
    EXPECT_TRUE(ImagesAgree(CaptureImage(copy), expected, 0, 0, "culled-copy"));
    ASSERT_EQ(CullSmallTriangles(plotter, false), 0);
    EXPECT_TRUE(ImagesAgree(CaptureImage(copy), expected, 0, 0, "culled-copy-alone"));
    Disown(copy);
}

// Absolute numbers and words are with the box and the legends, which both have.
TEST_P(LifecycleInWindow, ACopyHasTheAxesOfItsSource) {
    SetSurface();
    PlotterProbe copy(plotter);
    EXPECT_EQ(SetAxisOrigin(copy, 0, 1e6), 0);
    EXPECT_EQ(SetAxisLabelFormat(plotter, 1, [](double, double) { return "word"; }), 0);
    EXPECT_EQ(GetAxisOrigin(plotter, 0), 1e6);
    EXPECT_EQ(copy.m_gridBox->LabelText(1, 0), "word");
    for (PlotterProbe* const either : {&plotter, &copy}) {
        EXPECT_EQ(either->Trace({190, 120}), 0);
        EXPECT_EQ(either->Renderscene(), 0);
    }
    EXPECT_EQ(SetAxisOrigin(plotter, 0, 0.0), 0);
    EXPECT_EQ(GetAxisOrigin(copy, 0), 0.0);
    EXPECT_EQ(copy.Renderscene(), 0);
    Disown(copy);
}

// ---- Giving back

TEST_P(LifecycleInWindow, ReleaseTexFreesTextureAndPixels) {
    SKivoTexImage image;
    const CurrentContext context(plotter);
    glGenTextures(1, &image.texture);
    glBindTexture(GL_TEXTURE_2D, image.texture);
    const unsigned int name = image.texture;
    ASSERT_TRUE(glIsTexture(name));
    image.width = 5;
    image.height = 6;
    image.pixels = WatchedArray<unsigned char>(0, 120);
    EXPECT_EQ(PlotterProbe::ReleaseTex(&image), 0);
    EXPECT_FALSE(glIsTexture(name));
    EXPECT_EQ(image.texture, 0u);
    EXPECT_EQ(image.pixels, nullptr);
    EXPECT_EQ(image.width, 0);
    EXPECT_EQ(watched[0].deletions, 1);
    EXPECT_EQ(PlotterProbe::ReleaseTex(&image), 0);
    EXPECT_EQ(watched[0].deletions, 1);
}

TEST_P(LifecycleInWindow, ReleaseIsoContourFreesRecordsAndTexture) {
    {
        const CurrentContext context(plotter);
        glGenTextures(1, &plotter.m_isoContourTexId);
        glBindTexture(GL_TEXTURE_2D, plotter.m_isoContourTexId);
    }
    const unsigned int name = plotter.m_isoContourTexId;
    plotter.m_isoContourTexels = WatchedArray<unsigned char>(0, 16);
    plotter.m_flatZIsoContours.push_back({WatchedArray<float>(1, 6), 2, 0});
    plotter.m_flatXIsoContours.push_back({WatchedArray<float>(2, 6), 2, 0});
    plotter.m_flatYIsoContours.push_back({WatchedArray<float>(3, 6), 2, 0});
    EXPECT_EQ(plotter.ReleaseIsoContour(), 0);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    for (const Watched& entry : watched)
        EXPECT_EQ(entry.deletions, 1);
    EXPECT_EQ(plotter.m_isoContourTexId, 0u);
    EXPECT_EQ(plotter.m_isoContourTexels, nullptr);
    EXPECT_TRUE(plotter.m_flatZIsoContours.empty());
    EXPECT_TRUE(plotter.m_flatXIsoContours.empty());
    EXPECT_TRUE(plotter.m_flatYIsoContours.empty());
    EXPECT_EQ(plotter.ReleaseIsoContour(), 0);
    const CurrentContext context(plotter);
    EXPECT_FALSE(glIsTexture(name));
}

TEST_P(LifecycleInWindow, ReleasingTheDataFreesEverythingMadeOfThem) {
    SetSurface();
    plotter.AssignNormalData();
    plotter.m_framelineTexels = WatchedArray<unsigned char>(0, 16);
    plotter.m_curveData.push_back({1, 2, 3});
    plotter.m_curvePointCounts.push_back(1);
    plotter.m_curveVisible.push_back(true);
    plotter.m_curveColors.push_back({1, 0, 0, 1});
    plotter.m_curveWidths.push_back(2);
    plotter.m_flatYIsoContours.push_back({WatchedArray<float>(1, 6), 2, 0});
    EXPECT_EQ(plotter.ReleaseDataRelativeResource(), 0);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(watched[0].deletions, 1);
    EXPECT_EQ(watched[1].deletions, 1);
    EXPECT_EQ(plotter.m_points, nullptr);
    EXPECT_EQ(plotter.m_colorArray, nullptr);
    EXPECT_EQ(plotter.m_normalArray, nullptr);
    EXPECT_EQ(plotter.m_texcoordArray, nullptr);
    EXPECT_EQ(plotter.m_indexArray, nullptr);
    EXPECT_EQ(plotter.m_framelineIndexArray, nullptr);
    EXPECT_EQ(plotter.m_framelineTexels, nullptr);
    EXPECT_TRUE(plotter.m_curveData.empty() && plotter.m_curvePointCounts.empty());
    EXPECT_TRUE(plotter.m_curveVisible.empty() && plotter.m_curveColors.empty());
    EXPECT_TRUE(plotter.m_curveWidths.empty() && plotter.m_flatYIsoContours.empty());
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(plotter.m_gridBox->m_tickPositions[axis], nullptr);
        EXPECT_EQ(plotter.m_gridBox->m_tickLabels[axis], nullptr);
    }
    for (const CKivoGradientColorRuler* ruler :
         {plotter.m_xColorRuler, plotter.m_yColorRuler, plotter.m_zColorRuler})
        EXPECT_EQ(ruler->m_labels, nullptr);
    EXPECT_EQ(plotter.ReleaseDataRelativeResource(), 0);
}

TEST_P(LifecycleInWindow, TheLineCountGoesWithTheLineTextureOnly) {
    SetSurface();
    plotter.ReleaseDataRelativeResource();
    EXPECT_GT(plotter.m_framelineIndexCount, 0);
    SetSurface();
    {
        const CurrentContext context(plotter);
        glGenTextures(1, &plotter.m_framelineTexId);
    }
    plotter.ReleaseDataRelativeResource();
    EXPECT_EQ(plotter.m_framelineTexId, 0u);
    EXPECT_EQ(plotter.m_framelineIndexCount, 0);
}

TEST_P(LifecycleInWindow, OwnedPointsAreFreedOnceAndBorrowedOnesNever) {
    float* owned = WatchedArray<float>(0, 12);
    float* borrowed = WatchedArray<float>(1, 12);
    plotter.SetData(owned, 2, 2, 1, 2, 3);
    EXPECT_EQ(watched[0].deletions, 0);
    plotter.SetDataReference(borrowed, 2, 2, 1, 2, 3);
    EXPECT_EQ(watched[0].deletions, 1);
    plotter.SetData(WatchedArray<float>(2, 12), 2, 2, 1, 2, 3);
    EXPECT_EQ(watched[1].deletions, 0);
    plotter.SetDataReference(borrowed, 2, 2, 1, 2, 3);
    EXPECT_EQ(watched[2].deletions, 1);
    plotter.ReleaseDataRelativeResource();
    EXPECT_TRUE(plotter.m_isDataReference) << "the flag stays as it was";
    plotter.SetData(WatchedArray<float>(3, 12), 2, 2, 1, 2, 3);
    plotter.OnDestroy();
    EXPECT_EQ(watched[3].deletions, 1);
    EXPECT_EQ(watched[1].deletions, 0);
    delete[] borrowed;
    EXPECT_EQ(watched[1].deletions, 1);
}

namespace {

// Bounds of the points that a plotter reads, found one by one.
std::vector<float> ZBounds(const PlotterProbe& p) {
    float min = p.m_points[2], max = p.m_points[2];
    for (unsigned int i = 0; i < p.m_columnCount * p.m_rowCount; ++i) {
        min = std::min(min, p.m_points[3 * i + 2]);
        max = std::max(max, p.m_points[3 * i + 2]);
    }
    return {min, max};
}

} // namespace

// A host that edits its array hands it over again, with the same counts or others, as a whole or in part.
TEST_P(LifecycleInWindow, TheOwnedArrayHandedOverAgainIsReadAgainAndFreedOnce) {
    const TestSurface hill = HillSurface(6, 5);
    for (const bool isReference : {false, true}) {
        const auto hand = [&](float* points, unsigned int columns, unsigned int rows) {
            return isReference ? plotter.SetDataReference(points, columns, rows, 1, columns, 3)
                               : plotter.SetData(points, columns, rows, 1, columns, 3);
        };
        SCOPED_TRACE(isReference ? "SetDataReference" : "SetData");
        float* const array = WatchedArray<float>(0, 90);
        std::copy(hill.points.begin(), hill.points.end(), array);
        EXPECT_EQ(plotter.SetData(array, 6, 5, 1, 6, 3), 0);
        array[2] = 40.0f;
        EXPECT_EQ(hand(array, 6, 5), 0);
        EXPECT_EQ(plotter.m_boundingBoxMax[2], 40.0f);
        const struct {
            std::size_t offset; ///< in points
            unsigned int columns, rows;
        } parts[] = {{0, 3, 2}, {12, 6, 3}, {29, 1, 1}, {1, 2, 2}, {0, 6, 5}, {24, 6, 1}};
        for (const auto& part : parts) {
            SCOPED_TRACE(part.offset);
            EXPECT_EQ(hand(array + 3 * part.offset, part.columns, part.rows), 0);
            EXPECT_EQ(plotter.m_points, array + 3 * part.offset);
            EXPECT_FALSE(plotter.m_isDataReference) << "the array stays the plotter's";
            EXPECT_EQ(watched[0].deletions, 0);
            EXPECT_EQ((std::vector<float>{plotter.m_boundingBoxMin[2], plotter.m_boundingBoxMax[2]}),
                      ZBounds(plotter));
            EXPECT_EQ(plotter.Renderscene(), 0);
        }
        SetSurface(); // other data, which free the array as a whole
        EXPECT_EQ(watched[0].deletions, 1);
        EXPECT_EQ(plotter.SetData(WatchedArray<float>(1, 12), 2, 2, 1, 2, 3), 0);
        EXPECT_EQ(hand(plotter.m_points + 6, 2, 1), 0);
        EXPECT_EQ(plotter.OnDestroy(), 0);
        EXPECT_EQ(watched[1].deletions, 1);
        EXPECT_EQ(plotter.m_points, nullptr);
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 64, 48, true), 0);
    }
}

// What counts as the array's inside are the floats that counts and strides have addressed.
TEST_P(LifecycleInWindow, AnArrayBesideTheOwnedOneIsAnother) {
    float both[30] = {};
    plotter.SetDataReference(both, 2, 2, 1, 2, 3);
    float* const owned = WatchedArray<float>(0, 12);
    plotter.SetData(owned, 2, 2, 1, 2, 3);
    plotter.SetDataReference(both, 2, 2, 1, 2, 3);
    EXPECT_TRUE(plotter.m_isDataReference);
    EXPECT_EQ(watched[0].deletions, 1);
    // The host's until now; from new[], it becomes the plotter's.
    float* const lent = WatchedArray<float>(1, 12);
    plotter.SetDataReference(lent, 2, 2, 1, 2, 3);
    plotter.SetData(lent, 2, 2, 1, 2, 3);
    EXPECT_FALSE(plotter.m_isDataReference);
    EXPECT_EQ(watched[1].deletions, 0);
    plotter.SetDataReference(both + 12, 2, 2, 1, 2, 3);
    EXPECT_EQ(watched[1].deletions, 1);
}

// A derived class may put its own array in the place of the plotter's.
TEST_P(LifecycleInWindow, AnArrayPutInByADerivedClassIsFreedAsItIs) {
    float* const first = WatchedArray<float>(0, 24);
    plotter.SetData(first, 4, 2, 1, 4, 3);
    plotter.SetData(first + 6, 2, 1, 1, 2, 3);
    delete[] first;
    plotter.m_points = WatchedArray<float>(1, 6);
    plotter.ReleaseDataRelativeResource();
    EXPECT_EQ(watched[0].deletions, 1);
    EXPECT_EQ(watched[1].deletions, 1);
}

TEST_P(LifecycleInWindow, DestructionFreesOwnedPointsAndTitlePixels) {
    TestWindow other(GetParam(), 64, 48);
    auto temporary = std::make_unique<PlotterProbe>();
    ASSERT_EQ(temporary->OnCreate(other.Handle(), 64, 48, true), 0);
    temporary->SetData(WatchedArray<float>(0, 12), 2, 2, 1, 2, 3);
    temporary->m_plotTitleImage->pixels = WatchedArray<unsigned char>(1, 4);
    temporary->m_gridBox->m_axisTitleImage[2].pixels = WatchedArray<unsigned char>(2, 4);
    temporary.reset();
    EXPECT_EQ(watched[0].deletions, 1);
    EXPECT_EQ(watched[1].deletions, 1);
    EXPECT_EQ(watched[2].deletions, 1);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(LifecycleInWindow, OnDestroyGivesTheContextBackAndCanBeRepeated) {
    SetSurface();
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(plotter.m_hGLRC, nullptr);
    EXPECT_EQ(plotter.m_hDC, nullptr);
    EXPECT_EQ(plotter.m_points, nullptr);
    EXPECT_EQ(plotter.m_textRenderer->m_memoryDC, nullptr);
    EXPECT_EQ(plotter.m_textRenderer->m_font, nullptr);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(plotter.OnDestroy(), 0);
}

TEST_P(LifecycleInWindow, AfterOnDestroyAPlotterCanBeCreatedAgain) {
    // Lights stand where the camera of the moment puts them: a frame and the data again make both lives
    // alike.
    const auto draw = [this] {
        SetSurface();
        EXPECT_EQ(plotter.Renderscene(), 0);
        SetSurface();
        return CaptureImage(plotter);
    };
    const Image first = draw();
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(plotter.OnDestroy(), 0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 320, 240, true), 0);
    EXPECT_EQ(plotter.Renderscene(), 0) << "without data";
    EXPECT_TRUE(ImagesAgree(draw(), first, 2, 0.1, "created-again"));
}

// The settings of a surface that is gone find nothing to work on, and hold for the next one.
TEST_P(LifecycleInWindow, SettingsBetweenTwoLivesTakeEffectInTheSecond) {
    const auto set = [this] {
        plotter.SetZGradientColor(0x00FFFFFF, 0x00004000);
        plotter.SetFrameLineStep(3, 2);
        EXPECT_EQ(plotter.SetIsoContourCount(7), 0);
        plotter.ShowZIsoContours(true);
    };
    const auto draw = [this] {
        SetSurface();
        EXPECT_EQ(plotter.Renderscene(), 0);
        SetSurface();
        return CaptureImage(plotter);
    };
    set();
    const Image first = draw();
    EXPECT_EQ(plotter.OnDestroy(), 0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 320, 240, true), 0);
    EXPECT_EQ(plotter.Renderscene(), 0);
    set();
    EXPECT_EQ(plotter.Renderscene(), 0);
    EXPECT_TRUE(ImagesAgree(draw(), first, 2, 0.1, "set-between"));
}

// Data, titles and the traced point are given to it anew, as a host does; the rest is the plotter's.
TEST_P(LifecycleInWindow, ASecondLifeShowsWhatTheFirstShowed) {
    SKivoLegend legend;
    legend.title = "metres";
    ASSERT_EQ(SetLegend(plotter, 2, legend), 0);
    LabelContours(plotter, true);
    ShowMeasureGroupNames(plotter, true);
    ShowPointsInFlatPlots(plotter, true);
    FillPlot(plotter);
    ASSERT_EQ(SetMeasurePointNames(plotter, 0, {"Well 1", "Well 2"}), 0);
    ASSERT_EQ(SetListedTexts(plotter, 1, {"Well 1  0.0", "", "Well 2  1.0"}), 0);
    const auto draw = [this](bool isFlat) {
        isFlat ? plotter.SwitchToXYProjectPlot() : plotter.SwitchToNormalPlot();
        FillAgain(plotter);
        EXPECT_EQ(plotter.Renderscene(), 0);
        FillAgain(plotter); // lights stand where the camera of the moment puts them
        return CaptureImage(plotter);
    };
    const Image space = draw(false);
    const Image map = draw(true);
    for (const float scale : {2.0f, 1.0f}) { // of the life that ends
        SCOPED_TRACE(scale);
        SKivoStyle style;
        style.pixelScale = scale;
        EXPECT_EQ(SetStyle(plotter, style), 0);
        EXPECT_EQ(plotter.OnDestroy(), 0);
        EXPECT_EQ(SetStyle(plotter, SKivoStyle()), 0);
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 320, 240, true), 0);
        EXPECT_TRUE(ImagesAgree(draw(false), space, 0, 0, "second-space"));
        EXPECT_TRUE(ImagesAgree(draw(true), map, 0, 0, "second-map"));
    }
}

// Groups and names may be there before the first window, and the list be asked for at any time.
TEST_P(LifecycleInWindow, NamesThatCameBeforeTheWindowShow) {
    const auto name = [](PlotterProbe& p) {
        for (unsigned int i = 0; i < p.GetNumMeasureGroups(); ++i)
            EXPECT_EQ(SetMeasurePointNames(p, i, {"", "Well 2"}), 0);
    };
    FillPlot(plotter);
    name(plotter);
    const Image unlisted = CaptureImage(plotter);
    EXPECT_EQ(ShowMeasureGroupNames(plotter, true), 0);
    const Image listed = CaptureImage(plotter);
    for (const bool isAskedBefore : {true, false}) {
        SCOPED_TRACE(isAskedBefore);
        PlotterProbe early;
        FillPlot(early);
        name(early);
        const TestWindow other(GetParam(), 320, 240);
        EXPECT_EQ(ShowMeasureGroupNames(early, isAskedBefore), 0);
        ASSERT_EQ(early.OnCreate(other.Handle(), 320, 240, true), 0);
        FillAgain(early);
        EXPECT_EQ(Compare(CaptureImage(early), isAskedBefore ? listed : unlisted).max, 0);
        EXPECT_EQ(ShowMeasureGroupNames(early, true), 0);
        EXPECT_EQ(Compare(CaptureImage(early), listed).max, 0);
    }
}

TEST_P(LifecycleInWindow, CreatingTwiceGivesAWorkingPlotter) {
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 320, 240, true), 0);
    SetSurface();
    EXPECT_EQ(plotter.Renderscene(), 0);
}

TEST_P(LifecycleInWindow, CreatingAgainGivesBackTheFirstWindowsDataFirst) {
    SetSurface();
    EXPECT_EQ(plotter.OnCreate(nullptr, true), -1);
    EXPECT_NE(plotter.m_points, nullptr) << "no window was named, so nothing changes";
    EXPECT_EQ(plotter.Renderscene(), 0);

    HWND gone = nullptr;
    {
        const TestWindow other(GetParam(), 64, 48);
        gone = other.Handle();
    }
    EXPECT_EQ(plotter.OnCreate(gone, 64, 48, true), -1);
    EXPECT_EQ(plotter.m_points, nullptr);
    EXPECT_EQ(plotter.m_hGLRC, nullptr);
    EXPECT_NE(plotter.Renderscene(), 0);

    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 320, 240, true), 0);
    SetSurface();
    EXPECT_EQ(plotter.Renderscene(), 0);
}

TEST_P(LifecycleInWindow, APanAndMirroredAxesStayForTheNextWindow) {
    SetSurface();
    plotter.SetInverseYAxis(true);
    plotter.Translate(POINT{0, 0}, POINT{30, 20});
    const std::vector<double> before(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16);
    EXPECT_EQ(plotter.OnDestroy(), 0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 320, 240, true), 0);
    EXPECT_TRUE(plotter.m_inverseYAxis);
    const double* const now = plotter.m_rotationMatrix; // the start view's tilt has turned the pan too
    EXPECT_GT(std::abs(before[12]), 0.1);
    EXPECT_NEAR(now[12], before[12], 1e-6);
    EXPECT_NEAR(std::hypot(now[13], now[14]), std::hypot(before[13], before[14]), 1e-6);
}

// A context that another thread has bound cannot be deleted; the rest goes all the same.
TEST_P(LifecycleInWindow, AContextThatIsInUseElsewhereMakesOnDestroyFail) {
    float* points = WatchedArray<float>(0, 12);
    plotter.SetData(points, 2, 2, 1, 2, 3);
    const HDC dc = plotter.m_hDC;
    const HGLRC context = plotter.m_hGLRC;
    const auto elsewhere = [](const std::function<void()>& action) { std::thread(action).join(); };
    elsewhere([&] {
        ASSERT_TRUE(wglMakeCurrent(dc, context));
        std::thread([&] { EXPECT_EQ(plotter.OnDestroy(), -1); }).join();
        wglMakeCurrent(dc, nullptr);
        EXPECT_TRUE(wglDeleteContext(context));
    });
    EXPECT_EQ(plotter.m_hGLRC, nullptr);
    EXPECT_EQ(plotter.m_hDC, nullptr);
    EXPECT_EQ(watched[0].deletions, 1);
    EXPECT_EQ(plotter.OnDestroy(), 0);
}

KIVO_IN_EVERY_WINDOW(LifecycleInWindow);

TEST(Lifecycle, ReleasingWhatWasNeverCreatedSucceeds) {
    PlotterProbe plotter;
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(plotter.ReleaseIsoContour(), 0);
    EXPECT_EQ(plotter.ReleaseDataRelativeResource(), 0);
    EXPECT_EQ(plotter.OnDestroy(), 0);
}

// ---- Before OnCreate

namespace {

// Before its first size the viewport is one pixel high and none wide: drags begin there, and go on in every
// way.
class ArgumentsBeforeOnCreate : public PlausibleArguments {
public:
    explicit ArgumentsBeforeOnCreate(std::mt19937& generator) : m_generator(generator) {}

    bool Flag(bool) override { return Below(2) == 0; }
    int Int(int plausible) override { return Below(2) == 0 ? 0 : plausible; }
    unsigned int Unsigned(unsigned int) override { return Below(4); }
    unsigned int KeyState(unsigned int) override {
        constexpr unsigned int further[] = {0, MK_SHIFT, MK_CONTROL};
        return MK_RBUTTON | further[Below(3)];
    }
    POINT Point(POINT) override {
        constexpr POINT points[] = {{0, 0}, {0, 1}, {5, 5}};
        return points[Below(3)];
    }
    GridArguments GridToTakeOver() override {
        if (Below(2) == 0) return {nullptr, 0, 0, 1, 0, 3};
        return PlausibleArguments::GridToTakeOver();
    }

private:
    unsigned int Below(unsigned int limit) { return static_cast<unsigned int>(m_generator() % limit); }

    std::mt19937& m_generator;
};

} // namespace

// Text is drawn in a context of the caller's, who has none; OnCreate is given no window.
TEST(Lifecycle, EveryCallBeforeOnCreateIsHarmlessInEveryOrder) {
    std::vector<const PublicMember*> members;
    for (const PublicMember& member : PublicMembers())
        if (member.context != ContextUse::callers) members.push_back(&member);
    std::mt19937 generator(3);
    for (unsigned int round = 0; round < 60; ++round) {
        std::shuffle(members.begin(), members.end(), generator);
        ArgumentsBeforeOnCreate early(generator);
        BadArguments bad(round);
        PlotterProbe plotter;
        for (const PublicMember* const member : members) {
            Arguments& arguments = generator() % 3 == 0 ? static_cast<Arguments&>(bad) : early;
            EXPECT_TRUE(member->IsDocumented(member->run(plotter, arguments))) << member->name;
        }
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
    }
}

TEST(Lifecycle, DataSetBeforeOnCreateAreDrawnAfterIt) {
    const TestSurface surface = PlaneSurface(5, 5);
    TestWindow window(WindowKind::offscreen, 320, 240);
    PlotterProbe plotter;
    plotter.SetDataReference(surface.NewArray(), 5, 5, 1, 5, 3);
    const std::unique_ptr<float[]> points(plotter.m_points);
    ASSERT_EQ(plotter.OnCreate(window.Handle(), 320, 240, true), 0);
    EXPECT_EQ(plotter.m_points, points.get());
    const Image image = CaptureImage(plotter);
    EXPECT_GT(image.Count([](const unsigned char* p) { return p[0] < 100 && p[1] > 120 && p[2] < 100; }), 0);
    plotter.OnDestroy();
}
