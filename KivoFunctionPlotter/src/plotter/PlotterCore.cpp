// CKivoFunctionPlotter: lifetime, rendering context, window hooks, frame driver and plot modes.
#include "KivoFunctionPlotter.h"

#include "computing/ColorSpace.h"
#include "ContourAccess.h"
#include "drawing/ClipScope.h"
#include "drawing/GLScopes.h"
#include "parts/FontDescription.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "PictureDrawing.h"
#include "PlotType.h"
#include "PointAccess.h"
#include "ReducedSurface.h"
#include "SurfaceLayers.h"
#include "ViewState.h"
#include "window_system/Failure.h"
#include "window_system/HostContext.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <new>

namespace KivoDrawingTools {

namespace {

constexpr GLsizei glyphCount = 256;
constexpr double legendShare = 0.16;
constexpr double plotShare = 0.84;

// What is public is what the platform says.
static_assert(frameShown == static_cast<int>(ERROR_SUCCESS));
static_assert(frameWithoutPlot == static_cast<int>(ERROR_INVALID_HANDLE));
static_assert(frameOutOfMemory == static_cast<int>(ERROR_NOT_ENOUGH_MEMORY));
static_assert(frameRefused == static_cast<int>(ERROR_GEN_FAILURE));
static_assert(frameNotSupported == static_cast<int>(ERROR_NOT_SUPPORTED));
static_assert(frameInvalidValue == static_cast<int>(ERROR_INVALID_PARAMETER));
static_assert(frameElsewhere == static_cast<int>(ERROR_BUSY));
static_assert(frameWindowGone == static_cast<int>(ERROR_INVALID_WINDOW_HANDLE));
static_assert(frameOtherFormat == static_cast<int>(ERROR_INVALID_PIXEL_FORMAT));

template <typename T>
void FreeArray(T*& array) {
    delete[] array;
    array = nullptr;
}

void FreeContours(std::vector<SKivoIsoContour>& contours) {
    for (SKivoIsoContour& contour : contours)
        delete[] contour.points;
    contours.clear();
}

void SetColumn(double* matrix, int column, double x, double y, double z) {
    matrix[4 * column] = x;
    matrix[4 * column + 1] = y;
    matrix[4 * column + 2] = z;
}

void NegateColumn(double* matrix, int column) {
    for (int i = 4 * column; i < 4 * column + 3; ++i)
        matrix[i] = -matrix[i];
}

// Lighting and depth test are on between frames, also after one that ran out of memory for a label.
struct SurfaceStateAfterwards {
    SurfaceStateAfterwards() = default;
    ~SurfaceStateAfterwards() {
        glEnable(GL_LIGHTING);
        glEnable(GL_DEPTH_TEST);
    }
    SurfaceStateAfterwards(const SurfaceStateAfterwards&) = delete;
    SurfaceStateAfterwards& operator=(const SurfaceStateAfterwards&) = delete;
};

// A font selected into a device context; the one before is selected again at the end of the scope.
class SelectedFont {
public:
    SelectedFont(HDC dc, const LOGFONTA& description)
        : m_dc(dc), m_font(CreateFontIndirectA(&description)), m_previous(SelectObject(dc, m_font)) {}
    ~SelectedFont() {
        SelectObject(m_dc, m_previous);
        DeleteObject(m_font);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC m_dc;
    HFONT m_font;
    HGDIOBJ m_previous;
};

// Tells the box which texts of others stand in the plot: the title, and numbers of the legend that are wider
// than their strip.
void CollectOtherTexts(const CKivoGradientColorRuler* ruler, const int* legendViewport,
                       const double* legendVolume, const SKivoTexImage* title, const int* plotViewport,
                       CKivoGridBox& box) {
    std::vector<PlacedImage>& others = box.m_screenBox.others; // keeps its memory
    others.clear();
    if (ruler) ruler->AddLabelsBeyond(legendViewport, legendVolume, plotViewport, &others);
    if (title && title->texture != 0 && title->pixels) {
        PlacedImage place;
        place.halfWidth = 0.5 * title->width;
        place.halfHeight = 0.5 * title->height;
        place.center = {0.5 * plotViewport[2], plotViewport[3] - place.halfHeight};
        place.isShown = true;
        others.push_back(place);
    }
}

// The box measures in pixels of its own.
void ScaleOtherTexts(CKivoGridBox& box) {
    const double scale = static_cast<double>(box.m_pixelScale);
    for (PlacedImage& place : box.m_screenBox.others) {
        place.center = {place.center.x / scale, place.center.y / scale};
        place.halfWidth /= scale;
        place.halfHeight /= scale;
    }
}

// Where there is no memory for it, groups find their room when they are added.
void ReserveGroups(std::vector<CKivoMeasurePointGroup*>& groups) {
    try {
        groups.reserve(10);
    } catch (const std::bad_alloc&) {
    }
}

} // namespace

// ---- Lifetime -------------------------------------------------------------------------------------------

// An owned object that cannot be allocated stays null; later steps test for it.
CKivoFunctionPlotter::CKivoFunctionPlotter()
    : m_zGradientColor(new (std::nothrow) CKivoGradientColor),
      m_xGradientColor(new (std::nothrow) CKivoGradientColor),
      m_yGradientColor(new (std::nothrow) CKivoGradientColor),
      m_zColorRuler(new (std::nothrow) CKivoGradientColorRuler),
      m_xColorRuler(new (std::nothrow) CKivoGradientColorRuler),
      m_yColorRuler(new (std::nothrow) CKivoGradientColorRuler),
      m_gridBox(new (std::nothrow) CKivoGridBox(&m_inverseXAxis, &m_inverseYAxis, &m_inverseZAxis)),
      m_textRenderer(new (std::nothrow) STextRenderer), m_plotTitleImage(new (std::nothrow) SKivoTexImage),
      m_measureGroups(new (std::nothrow) CKivoMeasurePointGroupManager) {
    if (m_gridBox) m_gridBox->m_autoSwitchFramePlanes = true;
    if (m_measureGroups) ReserveGroups(m_measureGroups->m_groups);
}

CKivoFunctionPlotter::CKivoFunctionPlotter(const CKivoFunctionPlotter& other) = default;

CKivoFunctionPlotter& CKivoFunctionPlotter::operator=(const CKivoFunctionPlotter& other) = default;

CKivoFunctionPlotter::~CKivoFunctionPlotter() {
    Release();
    delete m_gridBox;
    if (m_textRenderer) ReleaseTextRenderer(m_textRenderer);
    delete m_textRenderer;
    delete m_measureGroups;
    delete m_xGradientColor;
    delete m_yGradientColor;
    delete m_zGradientColor;
    delete m_xColorRuler;
    delete m_yColorRuler;
    delete m_zColorRuler;
    // The texture went with the context; the pixels go right before their record.
    if (m_plotTitleImage) FreeArray(m_plotTitleImage->pixels);
    delete m_plotTitleImage;
}

int CKivoFunctionPlotter::ReleaseTex(SKivoTexImage* image) {
    if (image->texture != 0) {
        glDeleteTextures(1, &image->texture);
        image->texture = 0;
    }
    if (image->pixels) FreeArray(image->pixels);
    image->width = 0;
    return 0;
}

int CKivoFunctionPlotter::ReleaseIsoContour() {
    const ContextScope context(m_hDC, m_hGLRC);
    if (m_isoContourTexId != 0) {
        glDeleteTextures(1, &m_isoContourTexId);
        m_isoContourTexId = 0;
    }
    FreeContours(m_flatZIsoContours);
    FreeContours(m_flatXIsoContours);
    FreeContours(m_flatYIsoContours);
    FreeArray(m_isoContourTexels);
    ContourAccess::ForgetLabels(*this);
    return 0;
}

int CKivoFunctionPlotter::ReleaseDataRelativeResource() {
    ReleaseWhatFollowsFromData();
    ReleasePoints();
    return 0;
}

// Everything but the points.
void CKivoFunctionPlotter::ReleaseWhatFollowsFromData() {
    {
        const ContextScope context(m_hDC, m_hGLRC);
        for (int axis = 0; m_gridBox && axis < 3; ++axis) {
            FreeArray(m_gridBox->m_tickPositions[axis]);
            m_gridBox->ReleaseTickLabels(axis);
        }
        for (CKivoGradientColorRuler* ruler : {m_xColorRuler, m_yColorRuler, m_zColorRuler})
            if (ruler) ruler->ReleaseLabels();
        FreeArray(m_colorArray);
        FreeArray(m_normalArray);
        FreeArray(m_texcoordArray);
        FreeArray(m_indexArray);
        FreeArray(m_framelineIndexArray);
        if (m_framelineTexId != 0) {
            glDeleteTextures(1, &m_framelineTexId);
            m_framelineTexId = 0;
            m_framelineIndexCount = 0;
        }
        FreeArray(m_framelineTexels);
    }
    ReleaseIsoContour();
    m_reducedSurface.reset();
    m_pointsWithoutHoles = nullptr;
    m_curveData.clear();
    m_curvePointCounts.clear();
    m_curveVisible.clear();
    m_curveColors.clear();
    m_curveWidths.clear();
    m_hasTracePoint = 0;
    SurfaceAccess::ForgetData(*this);
}

int CKivoFunctionPlotter::Release() {
    ReleaseDataRelativeResource();
    m_isDetailReduced = false;
    m_requestedDetail = 0;
    {
        const ContextScope context(m_hDC, m_hGLRC);
        DeleteFontLists(m_fontListBase);
        m_fontListBase = 0;
        PictureAccess::ReleaseStore(*this);
        for (CKivoGradientColorRuler* ruler : {m_xColorRuler, m_yColorRuler, m_zColorRuler})
            if (ruler) ruler->ReleaseTitle();
    }
    if (m_textRenderer) ReleaseTextRenderer(m_textRenderer);

    const HostContextScope host(m_hDC);
    int result = 0;
    if (m_hGLRC) {
        wglMakeCurrent(m_hDC, nullptr);
        result = wglDeleteContext(m_hGLRC) ? 0 : -1;
        RemovePlotterContext(m_hGLRC);
        m_hGLRC = nullptr;
        ForgetNameTextures();
    }
    // The device context stays with the window.
    if (m_hDC) {
        wglMakeCurrent(m_hDC, nullptr);
        m_hDC = nullptr;
    }
    return result;
}

// The textures of titles and of names go with the context. Their names mean nothing in another one.
void CKivoFunctionPlotter::ForgetNameTextures() {
    if (m_plotTitleImage) m_plotTitleImage->texture = 0;
    for (int axis = 0; m_gridBox && axis < 3; ++axis)
        m_gridBox->m_axisTitleImage[axis].texture = 0;
    for (unsigned int i = 0; i < GetNumMeasureGroups(); ++i)
        FindMeasureGroup(i)->ForgetTextures();
}

// ---- Rendering context and window hooks -----------------------------------------------------------------

int CKivoFunctionPlotter::OnCreate(HWND hWnd, bool accelerated) {
    const int result = Init(hWnd, 10, accelerated);
    if (m_awaitedZoom != 0.0 && result == 0) {
        const ContextScope context(m_hDC, m_hGLRC);
        ViewAccess::ShowAwaited(*this); // data and size may be those of another window
    }
    return result;
}

int CKivoFunctionPlotter::OnCreate(HWND hWnd, int cx, int cy, bool accelerated) {
    return OnCreate(hWnd, cx, cy, 10, accelerated);
}

int CKivoFunctionPlotter::OnCreate(HWND hWnd, int cx, int cy, int fontSize, bool accelerated) {
    const int result = Init(hWnd, fontSize, accelerated);
    Reshape(cx, cy); // after a failure too: the sizes are then known to a later OnCreate
    return result;
}

int CKivoFunctionPlotter::OnDestroy() {
    return Release();
}

void CKivoFunctionPlotter::OnDraw() {
    Renderscene();
}

void CKivoFunctionPlotter::OnSize(unsigned int, int cx, int cy) {
    Reshape(cx, cy);
}

int CKivoFunctionPlotter::SetFont(void*) {
    if (m_textRenderer && m_textRenderer->m_windowDC && m_textRenderer->m_memoryDC) {
        SelectObject(m_textRenderer->m_memoryDC, m_textRenderer->m_font);
        GetTextMetricsA(m_textRenderer->m_memoryDC, &m_textRenderer->m_textMetrics);
    }
    return 0;
}

int CKivoFunctionPlotter::InitCustomized() {
    return 0;
}

int CKivoFunctionPlotter::Init(HWND hWnd, int fontSize, bool accelerated) {
    if (!hWnd) return -1;
    if (m_hGLRC) Release(); // bound to a window already: what belongs to that context goes with it
    m_hWnd = hWnd;
    m_hDC = GetDC(m_hWnd);
    if (SetDCPixelFormat(m_hDC, accelerated) != 0) return -1;
    m_hGLRC = wglCreateContext(m_hDC);
    if (!m_hGLRC) return -1;
    AddPlotterContext(m_hGLRC);
    const ViewState before = ViewAccess::Save(*this);
    m_plotType = normalPlot;
    m_traceEnabled = false;
    m_hasTracePoint = 0;

    ContextScope context(m_hDC, m_hGLRC);
    std::copy(std::begin(m_defaultBackgroundColor), std::end(m_defaultBackgroundColor), m_backgroundColor);
    glClearColor(m_backgroundColor[0], m_backgroundColor[1], m_backgroundColor[2], m_backgroundColor[3]);
    glClearDepth(1.0);
    glEnable(GL_DEPTH_TEST);
    InitLighting();
    glShadeModel(GL_SMOOTH);
    if (InitFont() != 0) {
        ViewAccess::KeepAwaited(*this, before);
        context.Keep();
        return -1;
    }

    if (m_textRenderer) InitTexts(fontSize);
    if (m_gridBox) m_gridBox->m_textMaker = m_textRenderer;
    InitRuler(m_xColorRuler, m_xGradientColor);
    InitRuler(m_yColorRuler, m_yGradientColor);
    InitRuler(m_zColorRuler, m_zGradientColor);
    PointAccess::MakeMissingImages(*this);
    ApplyStartView();
    ViewAccess::KeepAwaited(*this, before);
    ContourAccess::FollowLevels(*this);
    return 0;
}

void CKivoFunctionPlotter::InitTexts(int fontSize) {
    m_textRenderer->m_pixelScale = m_pixelScale;
    m_textRenderer->m_inkColor = m_inkColor;
    m_textRenderer->m_face = m_textFace;
    m_textRenderer->m_isBold = m_boldText;
    InitTextRenderer(m_textRenderer, m_hDC, fontSize);
}

// InitLighting may have chosen another plot type; none for what is no plot type.
void CKivoFunctionPlotter::ApplyStartView() {
    switch (static_cast<PlotType>(m_plotType)) {
    case normalPlot:
        ApplyNormalPlotView();
        break;
    case xyPlot:
        ApplyXYPlotView();
        break;
    case yzPlot:
        ApplyYZPlotView();
        break;
    case xzPlot:
        ApplyXZPlotView();
        break;
    }
}

void CKivoFunctionPlotter::InitRuler(CKivoGradientColorRuler* ruler, CKivoGradientColor* gradient) {
    constexpr unsigned int divisions = 10; // eleven labels
    if (!ruler || !gradient) return;
    ruler->m_textRenderer = m_textRenderer;
    ruler->SetGradient(gradient);
    ruler->ReleaseLabels(); // they are counted by the divisions
    ruler->m_divisionCount = divisions;
    ruler->BuildLabels();
    ruler->BuildTitle();
}

int CKivoFunctionPlotter::SetDCPixelFormat(HDC hdc, bool accelerated) {
    PIXELFORMATDESCRIPTOR descriptor = {};
    descriptor.nSize = sizeof(descriptor);
    descriptor.nVersion = 1;
    // Formats of the software renderer are asked for without naming OpenGL: all of them support it.
    descriptor.dwFlags = PFD_DRAW_TO_WINDOW | PFD_DOUBLEBUFFER | PFD_STEREO_DONTCARE |
                         (accelerated ? PFD_SUPPORT_OPENGL | PFD_GENERIC_ACCELERATED : PFD_GENERIC_FORMAT);
    descriptor.iPixelType = PFD_TYPE_RGBA;
    descriptor.cColorBits = 32;
    descriptor.cRedBits = 8;
    descriptor.cRedShift = 16;
    descriptor.cGreenBits = 8;
    descriptor.cGreenShift = 8;
    descriptor.cBlueBits = 8;
    descriptor.cBlueShift = 0;
    descriptor.cAccumBits = 64;
    descriptor.cAccumRedBits = 16;
    descriptor.cAccumGreenBits = 16;
    descriptor.cAccumBlueBits = 16;
    descriptor.cDepthBits = 32;
    descriptor.cStencilBits = 8;
    descriptor.iLayerType = PFD_MAIN_PLANE;

    int format = ChoosePixelFormat(hdc, &descriptor);
    if (format == 0) {
        format = 1;
        if (DescribePixelFormat(hdc, format, sizeof(descriptor), &descriptor) == 0) return -1;
    }
    return SetPixelFormat(hdc, format, &descriptor) ? 0 : -1;
}

int CKivoFunctionPlotter::InitFont() {
    if (!m_hDC || !m_hGLRC) return -1;
    m_fontListBase = glGenLists(glyphCount);
    const char* const face = m_textFace.empty() ? "Arial" : m_textFace.c_str();
    const SelectedFont font(m_hDC,
                            DescribeFont(DotsPerInch(m_hDC, m_hDC), 10, FW_MEDIUM, face, m_pixelScale));
    return wglUseFontBitmapsA(m_hDC, 0, glyphCount, m_fontListBase) == 1 ? 0 : -1;
}

void CKivoFunctionPlotter::DeleteFontLists(unsigned int base) {
    glDeleteLists(base, glyphCount);
}

int CKivoFunctionPlotter::InitLighting() {
    glEnable(GL_LIGHTING);
    glLightModelf(GL_LIGHT_MODEL_LOCAL_VIEWER, 0.0f);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);

    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);

    constexpr GLfloat materialAmbient[] = {0.11f, 0.11f, 0.11f, 1.0f};
    constexpr GLfloat materialDiffuse[] = {0.2f, 0.2f, 0.2f, 1.0f};
    constexpr GLfloat materialSpecular[] = {0.11f, 0.11f, 0.11f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, materialAmbient);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, materialDiffuse);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, materialSpecular);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 0.0f);

    constexpr GLfloat position[] = {0.8f, 1.0f, 1.0f, 1.0f};
    constexpr GLfloat ambient[] = {0.65f, 0.65f, 0.65f, 1.0f};
    constexpr GLfloat diffuse[] = {0.2f, 0.2f, 0.2f, 1.0f};
    constexpr GLfloat specular[] = {0.4f, 0.4f, 0.4f, 1.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, position);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, specular);
    glEnable(GL_LIGHT0);
    return 0;
}

void CKivoFunctionPlotter::BeginGLOperation() {
    BeginBracket(m_hDC, m_hGLRC);
}

void CKivoFunctionPlotter::EndGLOperation() {
    EndBracket(m_hDC);
}

void CKivoFunctionPlotter::UpdateLightsPosition() {
    const float* min = m_boundingBoxMin;
    const float* max = m_boundingBoxMax;
    const GLfloat light0[] = {max[0] * 1.2f, max[1] * 1.2f, max[2] * 1.8f, 1.0f};
    const GLfloat light1[] = {min[0] * 1.2f, min[1] * 1.2f, max[2] * 1.8f, 1.0f};
    // Positions go through the model-view matrix, which holds no numbers while the axes have no ranges.
    GLdouble modelView[16] = {};
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    const bool isUsable =
        std::all_of(modelView, modelView + 16, [](double element) { return std::isfinite(element); });
    const MatrixModeScope modelViewMode(GL_MODELVIEW);
    glPushMatrix();
    if (!isUsable) glLoadIdentity();
    glLightfv(GL_LIGHT0, GL_POSITION, light0);
    glLightfv(GL_LIGHT1, GL_POSITION, light1);
    glPopMatrix();
    glDisable(GL_LIGHT1); // placed for derived classes, but kept off
}

void CKivoFunctionPlotter::Reshape(int cx, int cy) {
    const ContextScope context(m_hDC, m_hGLRC);
    m_clientHeight = cy;
    const int legendWidth = static_cast<int>(cx * legendShare);
    const int plotViewport[] = {legendWidth, 0, static_cast<int>(cx * plotShare), cy};
    const int legendViewport[] = {0, 0, legendWidth, cy};
    std::copy(std::begin(plotViewport), std::end(plotViewport), m_plotViewport);
    std::copy(std::begin(legendViewport), std::end(legendViewport), m_legendViewport);

    FitView(m_plotType);
    UpdateLegendViewVolume();

    const double width = m_plotViewport[2];
    const double height = m_plotViewport[3];
    if (width >= height) {
        m_viewBottom = -(std::fabs(m_viewLeft) * height / width);
        m_viewTop = std::fabs(m_viewRight) * height / width;
    } else {
        m_viewLeft = -(std::fabs(m_viewBottom) * width / height);
        m_viewRight = std::fabs(m_viewTop) * width / height;
    }
    ApplyViewVolume();
    ViewAccess::ShowAwaited(*this);
}

void CKivoFunctionPlotter::UpdateViewport(int x, int y, int width, int height) {
    const int legendWidth = static_cast<int>(width * legendShare);
    const int legendViewport[] = {x, y, legendWidth, height};
    const std::int64_t plotX = std::clamp<std::int64_t>(
        std::int64_t{x} + legendWidth, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    const int plotViewport[] = {static_cast<int>(plotX), y, static_cast<int>(width * plotShare), height};
    std::copy(std::begin(legendViewport), std::end(legendViewport), m_legendViewport);
    std::copy(std::begin(plotViewport), std::end(plotViewport), m_plotViewport);
}

// ---- Frame driver ---------------------------------------------------------------------------------------

// One that has been asked for is drawn as the member would have drawn it.
int CKivoFunctionPlotter::Renderscene() {
    const unsigned int requested = std::exchange(m_requestedDetail, 0U);
    const DetailScope detail(m_detailOfFrame, m_detailOfFrame != 0 ? m_detailOfFrame : requested);
    const bool isBeside = DrawSmoothFrame();
    const ContextScope context(m_hDC, m_hGLRC);
    if (isBeside)
        PictureAccess::PutFrame(*this);
    else
        DrawScene();
    if (SwapBuffers(m_hDC)) {
        m_isDetailReduced = m_isFrameReduced || m_areLayersReduced;
        return frameShown;
    }
    const int error = static_cast<int>(GetLastError());
    return error != frameShown ? error : frameUnexplained;
}

// Whether the window asks for one and there is the memory.
bool CKivoFunctionPlotter::DrawSmoothFrame() {
    const int smoothing = GetWindowSmoothing(m_hWnd);
    if (smoothing == 1) return false;
    const KeepFailure keep; // without it, the frame is drawn plain
    try {
        return PictureAccess::DrawFrameBeside(*this, smoothing);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void CKivoFunctionPlotter::DrawScene() {
    switch (static_cast<PlotType>(m_plotType)) {
    case normalPlot:
        DrawNormalPlot();
        break;
    case xyPlot:
    case yzPlot:
    case xzPlot:
        DrawProjectionPlot();
        break;
    } // nothing for what is no plot type
}

void CKivoFunctionPlotter::ClearFrame() {
    m_isFrameReduced = m_areLayersReduced = false;
    const float* const ground = m_pictureGround ? m_pictureGround : m_backgroundColor;
    glClearColor(ground[0], ground[1], ground[2], ground[3]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

// A shade between ink and ground; black ink has the one that it has on white, whatever the ground is.
void CKivoFunctionPlotter::ShadeOfInk(float groundShare, float* rgba) const {
    float ink[4];
    ColorToRgba(m_inkColor, ink);
    const bool isBlack = ink[0] == 0.0f && ink[1] == 0.0f && ink[2] == 0.0f;
    for (int i = 0; i < 3; ++i)
        rgba[i] = isBlack ? groundShare : groundShare * m_backgroundColor[i] + (1.0f - groundShare) * ink[i];
    rgba[3] = 1.0f;
}

void CKivoFunctionPlotter::StyleGridBox() const {
    m_gridBox->m_pixelScale = m_pixelScale;
    ColorToRgba(m_inkColor, m_gridBox->m_lineColor);
    ShadeOfInk(0.8f, m_gridBox->m_gridColor);
}

void CKivoFunctionPlotter::DrawNormalPlot() {
    const SurfaceStateAfterwards stateAfterwards;
    ClearFrame();
    m_isFrameReduced = m_detailOfFrame != 0 && ReduceSurface();
    ApplyModelViewMatrix();

    glDisable(GL_LIGHTING);
    if (m_gridBox) {
        StyleGridBox();
        CollectOtherTexts(m_zColorRuler, m_legendViewport, m_legendViewVolume, m_plotTitleImage,
                          m_plotViewport, *m_gridBox);
        if (m_hasGroupNames) AddGroupNamesPlace(&m_gridBox->m_screenBox.others);
        ScaleOtherTexts(*m_gridBox);
        m_gridBox->Render(PixelToWorld(1.0), m_axisScale, m_rotationMatrix);
    }
    if (m_hasTracePoint != 0) RenderTraceGuideLines();
    glEnable(GL_LIGHTING);
    RenderTracePoints();
    glDisable(GL_LIGHTING);

    if (m_showXIsoContours) RenderFlatXIsoContour();
    if (m_showYIsoContours) RenderFlatYIsoContour();
    if (m_showZIsoContours) RenderFlatZIsoContour();

    glEnable(GL_LIGHTING);
    RenderCurves();
    {
        const ClipScope cut = CutScope(allAxes);
        RenderSurface();
        SurfaceAccess::DrawOpaque(*this);
    }
    RenderMeasurePoints();
    {
        const ClipScope cut = CutScope(allAxes);
        SurfaceAccess::DrawSeeThrough(*this);
    }

    glDisable(GL_LIGHTING);
    PointAccess::DrawNames(*this);
    glDisable(GL_DEPTH_TEST);
    RenderPlotName();
    glDisable(GL_LIGHTING); // the title's quad leaves it on, and the bar shows the gradient's own colours
    RenderTraceLegend();
    if (m_zColorRuler) m_zColorRuler->Render(m_legendViewport, m_legendViewVolume);
    if (m_hasGroupNames) RenderGroupNames(false);
}

void CKivoFunctionPlotter::DrawProjectionPlot() {
    // The plot of X and Z; a derived class that calls this with another type than those of flat plots gets
    // it.
    void (CKivoGridBox::*renderFrame)(double, const double*) = &CKivoGridBox::RenderXZFrame;
    void (CKivoFunctionPlotter::*renderContours)() = &CKivoFunctionPlotter::RenderFlatYIsoContour;
    const CKivoGradientColorRuler* ruler = m_yColorRuler;
    switch (static_cast<PlotType>(m_plotType)) {
    case xyPlot:
        renderFrame = &CKivoGridBox::RenderXYFrame;
        renderContours = &CKivoFunctionPlotter::RenderFlatZIsoContour;
        ruler = m_zColorRuler;
        break;
    case yzPlot:
        renderFrame = &CKivoGridBox::RenderYZFrame;
        renderContours = &CKivoFunctionPlotter::RenderFlatXIsoContour;
        ruler = m_xColorRuler;
        break;
    case xzPlot:
    case normalPlot:
        break;
    }

    ClearFrame();
    const bool isFilled = m_areContoursFilled && m_plotType == xyPlot;
    m_isFrameReduced = isFilled && m_detailOfFrame != 0 && ReduceSurface();
    ApplyModelViewMatrix();

    glDisable(GL_LIGHTING);
    const bool listsNames = m_arePointsFlat && m_hasGroupNames;
    if (isFilled) ContourAccess::Fill(*this);
    if (m_gridBox) {
        StyleGridBox();
        CollectOtherTexts(ruler, m_legendViewport, m_legendViewVolume, m_plotTitleImage, m_plotViewport,
                          *m_gridBox);
        if (listsNames) AddGroupNamesPlace(&m_gridBox->m_screenBox.others);
        ScaleOtherTexts(*m_gridBox);
        (m_gridBox->*renderFrame)(PixelToWorld(1.0), m_axisScale);
    }
    if (m_plotType == xyPlot) ContourAccess::LeaveGaps(*this);
    (this->*renderContours)();
    if (m_plotType == xyPlot) ContourAccess::DrawLabels(*this);
    if (m_arePointsFlat) RenderFlatPoints();

    glDisable(GL_DEPTH_TEST);
    RenderPlotName();
    glDisable(GL_LIGHTING); // as in the 3-D plot
    if (m_arePointsFlat) PointAccess::DrawNames(*this);
    if (m_arePointsFlat) RenderTraceLegend();
    if (listsNames) RenderGroupNames(false);
    if (ruler) ruler->Render(m_legendViewport, m_legendViewVolume);

    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
}

void CKivoFunctionPlotter::RenderTraceGuideLines() {
    if (!m_gridBox) return;
    const float* min = m_gridBox->m_boxMin;
    const float* max = m_gridBox->m_boxMax;
    const float wallX = m_gridBox->GridFace(0);
    const float wallY = m_gridBox->GridFace(1);
    const float wallZ = m_gridBox->GridFace(2);
    const float* p = m_tracePoint;

    const LineWidthScope lines(m_pixelScale);
    float color[4];
    ShadeOfInk(0.3f, color);
    glColor4f(color[0], color[1], color[2], color[3]);
    glBegin(GL_LINES);
    glVertex3f(p[0], wallY, min[2]);
    glVertex3f(p[0], wallY, max[2]);
    glVertex3f(min[0], wallY, p[2]);
    glVertex3f(max[0], wallY, p[2]);
    glVertex3f(p[0], min[1], wallZ);
    glVertex3f(p[0], max[1], wallZ);
    glVertex3f(min[0], p[1], wallZ);
    glVertex3f(max[0], p[1], wallZ);
    glVertex3f(wallX, p[1], min[2]);
    glVertex3f(wallX, p[1], max[2]);
    glVertex3f(wallX, min[1], p[2]);
    glVertex3f(wallX, max[1], p[2]);
    glEnd();
}

// ---- Plot modes and switches ----------------------------------------------------------------------------

int CKivoFunctionPlotter::SwitchToNormalPlot() {
    const ContextScope context(m_hDC, m_hGLRC);
    m_plotType = normalPlot;
    m_awaitedZoom = 0.0;
    ApplyNormalPlotView();
    return 0;
}

// The XY and YZ plots set their orientation here, the other two leave it to their start view.
int CKivoFunctionPlotter::SwitchToXYProjectPlot() {
    const ContextScope context(m_hDC, m_hGLRC);
    m_plotType = xyPlot;
    m_awaitedZoom = 0.0;
    UpdateXYBoundingBoxToViewVolume();
    SetColumn(m_rotationMatrix, 0, 1, 0, 0);
    SetColumn(m_rotationMatrix, 1, 0, 1, 0);
    SetColumn(m_rotationMatrix, 2, 0, 0, 1);
    ApplyModelViewMatrix();
    return 0;
}

int CKivoFunctionPlotter::SwitchToYZProjectPlot() {
    const ContextScope context(m_hDC, m_hGLRC);
    m_plotType = yzPlot;
    m_awaitedZoom = 0.0;
    UpdateYZBoundingBoxToViewVolume();
    SetColumn(m_rotationMatrix, 0, 0, 0, 1);
    SetColumn(m_rotationMatrix, 1, 1, 0, 0);
    SetColumn(m_rotationMatrix, 2, 0, 1, 0);
    ApplyModelViewMatrix();
    return 0;
}

int CKivoFunctionPlotter::SwitchToZXProjectPlot() {
    const ContextScope context(m_hDC, m_hGLRC);
    m_plotType = xzPlot;
    m_awaitedZoom = 0.0;
    ApplyXZPlotView();
    return 0;
}

int CKivoFunctionPlotter::GetCurrentPlotType() const {
    return m_plotType;
}

int CKivoFunctionPlotter::SetInverseAxis(int axis, bool& current, bool inverse) {
    if (inverse == current) return 0;
    current = inverse;
    NegateColumn(m_rotationMatrix, axis);
    const ContextScope context(m_hDC, m_hGLRC);
    ApplyModelViewMatrix();
    return 0;
}

int CKivoFunctionPlotter::SetInverseXAxis(bool inverse) {
    return SetInverseAxis(0, m_inverseXAxis, inverse);
}

int CKivoFunctionPlotter::SetInverseYAxis(bool inverse) {
    return SetInverseAxis(1, m_inverseYAxis, inverse);
}

int CKivoFunctionPlotter::SetInverseZAxis(bool inverse) {
    return SetInverseAxis(2, m_inverseZAxis, inverse);
}

void CKivoFunctionPlotter::SetAutoSwitchFramePlanes(bool autoSwitch) {
    if (m_gridBox) m_gridBox->m_autoSwitchFramePlanes = autoSwitch;
}

void CKivoFunctionPlotter::SetBackgroundColor(float r, float g, float b, float a) {
    m_backgroundColor[0] = r;
    m_backgroundColor[1] = g;
    m_backgroundColor[2] = b;
    m_backgroundColor[3] = a;
}

void CKivoFunctionPlotter::SetBackgroundColor(unsigned long color) {
    ColorToRgba(color, m_backgroundColor);
}

void CKivoFunctionPlotter::ResetBackgroundColor() {
    std::copy(std::begin(m_defaultBackgroundColor), std::end(m_defaultBackgroundColor), m_backgroundColor);
}

void CKivoFunctionPlotter::ShowFrameLines(bool show) {
    m_showFrameLines = show;
}

bool CKivoFunctionPlotter::IsShowFrameLines() const {
    return m_showFrameLines;
}

int CKivoFunctionPlotter::ShowXIsoContours(bool show) {
    m_showXIsoContours = show;
    return 0;
}

int CKivoFunctionPlotter::ShowYIsoContours(bool show) {
    m_showYIsoContours = show;
    return 0;
}

int CKivoFunctionPlotter::ShowZIsoContours(bool show) {
    m_showZIsoContours = show;
    return 0;
}

bool CKivoFunctionPlotter::IsShowXIsoContours() const {
    return m_showXIsoContours;
}

bool CKivoFunctionPlotter::IsShowYIsoContours() const {
    return m_showYIsoContours;
}

bool CKivoFunctionPlotter::IsShowZIsoContours() const {
    return m_showZIsoContours;
}

void CKivoFunctionPlotter::ShowGridLines(bool show) {
    if (m_gridBox) m_gridBox->m_showGridLines = show;
}

bool CKivoFunctionPlotter::IsShowGridLines() const {
    return m_gridBox && m_gridBox->m_showGridLines;
}

} // namespace KivoDrawingTools
