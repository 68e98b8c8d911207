// CKivoFunctionPlotter: surface data, mesh arrays, frame lines and iso-contours.
#include "KivoFunctionPlotter.h"

#include "computing/ColorSpace.h"
#include "computing/MarchingSquares.h"
#include "computing/MeshArrays.h"
#include "ContourAccess.h"
#include "drawing/Camera.h"
#include "drawing/ClipScope.h"
#include "drawing/GLScopes.h"
#include "drawing/LongDraws.h"
#include "NewContours.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
#include "PictureDrawing.h"
#include "PlotType.h"
#include "ReducedSurface.h"
#include "SurfaceLayers.h"
#include "ViewState.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr int framelineTexSize = 400;
constexpr int framelineTexCells = 20;
constexpr int contourTexSize = 400;

template <typename T>
void ReplaceArray(T*& array, std::size_t count) {
    T* const fresh = new T[count];
    delete[] array;
    array = fresh;
}

// Points are numbered, and strides kept as floats, in 32 bits; what is made of a point must be addressable
// too. A stride counts where there is a second point in its direction.
void RefuseUncountable(const unsigned int* counts, const unsigned int* strides, unsigned int components) {
    constexpr std::uint64_t most = std::numeric_limits<unsigned int>::max();
    constexpr std::uint64_t mostBytes = std::numeric_limits<std::ptrdiff_t>::max();
    constexpr std::uint64_t bytesPerPoint = 6 * sizeof(unsigned int); // of indices, the largest array
    const std::uint64_t points = std::uint64_t{counts[0]} * counts[1];
    bool isCountable = points <= std::min(most, mostBytes / bytesPerPoint);
    for (const int side : {0, 1})
        if (counts[side] > 1) isCountable &= std::uint64_t{strides[side]} * components <= most;
    if (!isCountable) throw std::length_error("the counts or strides of the points exceed what can be held");
}

// White texels of a square picture, four bytes each.
std::unique_ptr<unsigned char[]> WhiteTexels(int size) {
    const std::size_t byteCount = static_cast<std::size_t>(size) * size * 4;
    std::unique_ptr<unsigned char[]> texels(new unsigned char[byteCount]);
    std::memset(texels.get(), 255, byteCount);
    return texels;
}

// Cells along a side of so many points.
unsigned int CellCount(unsigned int points) {
    return points == 0 ? 0 : points - 1;
}

// OpenGL takes two to four floats of a point; of longer points it gets the first three, with their stride.
void DrawFramelineTexture() {
    constexpr float size = framelineTexSize;
    glColor4f(0.2f, 0.2f, 0.2f, 1.0f);
    glBegin(GL_LINES);
    const auto line = [](float x0, float y0, float x1, float y1) {
        glVertex3f(x0, y0, 0.5f);
        glVertex3f(x1, y1, 0.5f);
    };
    for (int i = 1; i < framelineTexCells; ++i) {
        const float x = size / framelineTexCells * static_cast<float>(i);
        line(x, 0.0f, x, size);
    }
    line(1.0f, 0.0f, 1.0f, size); // at 1: a line at 0 falls outside the picture
    line(size, 0.0f, size, size);
    for (int i = 1; i < framelineTexCells; ++i) {
        const float y = size / framelineTexCells * static_cast<float>(i);
        line(0.0f, y, size, y);
    }
    line(0.0f, 0.0f, size, 0.0f);
    line(0.0f, size, size, size);
    glEnd();
}

// Draws into the lower left square of the back buffer and reads that into fresh, which takes the place of
// texels. volume: left, right, bottom, top, near, far. draw must not throw. Viewport and clear colour are as
// before afterwards; lighting is on.
template <typename Draw>
void DrawIntoTexels(int size, const double* volume, const float* clearColor, Draw draw,
                    std::unique_ptr<unsigned char[]> fresh, unsigned char*& texels) {
    delete[] texels;
    texels = fresh.release();
    glPushAttrib(GL_VIEWPORT_BIT | GL_COLOR_BUFFER_BIT);
    glViewport(0, 0, size, size);
    {
        const MatrixModeScope projection(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        MultiplyOrtho(volume);
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();

        glDisable(GL_LIGHTING);
        glClearColor(clearColor[0], clearColor[1], clearColor[2], clearColor[3]);
        glClearDepth(1.0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        draw();
        glEnable(GL_LIGHTING);

        glPopMatrix();
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
    }
    GLint readBuffer = GL_BACK;
    glGetIntegerv(GL_READ_BUFFER, &readBuffer);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, size, size, GL_RGBA, GL_UNSIGNED_BYTE, texels);
    glReadBuffer(static_cast<GLenum>(readBuffer));
    glPopAttrib();
}

} // namespace

// Contours of equal z traced for their picture, and the room for it; without points there is no room.
struct CKivoFunctionPlotter::SContourPicture {
    std::vector<float> levels;
    std::vector<LevelLines> lines;
    std::unique_ptr<unsigned char[]> texels;
};

// ---- Data -----------------------------------------------------------------------------------------------

int CKivoFunctionPlotter::SetData(float* points, unsigned int columns, unsigned int rows,
                                  unsigned int columnStride, unsigned int rowStride,
                                  unsigned int components) {
    const unsigned int counts[] = {columns, rows};
    const unsigned int strides[] = {columnStride, rowStride};
    return TakeData(points, false, counts, strides, components);
}

int CKivoFunctionPlotter::SetDataReference(float* points, unsigned int columns, unsigned int rows,
                                           unsigned int columnStride, unsigned int rowStride,
                                           unsigned int components) {
    const unsigned int counts[] = {columns, rows};
    const unsigned int strides[] = {columnStride, rowStride};
    return TakeData(points, true, counts, strides, components);
}

int CKivoFunctionPlotter::TakeData(float* points, bool isReference, const unsigned int* counts,
                                   const unsigned int* strides, unsigned int components) {
    RefuseUncountable(counts, strides, components);
    ReleaseWhatFollowsFromData();
    SOwnedArray array = OwnedArray();
    if (!IsInside(array, points)) {
        ReleasePoints();
        array = {points, 0, points};
        m_isDataReference = isReference;
    }
    m_points = points;
    m_columnCount = counts[0];
    m_rowCount = counts[1];
    m_vertexCount = m_columnCount * m_rowCount;
    m_componentCount = components;
    m_columnStride = strides[0] * components;
    m_rowStride = strides[1] * components;
    if (!m_isDataReference) {
        const auto end = static_cast<std::uint64_t>(points - array.start) + AddressedFloats();
        m_ownedArray = {array.start, std::max(array.floats, static_cast<std::size_t>(end)), points};
    }

    float min[3] = {};
    float max[3] = {};
    // A fourth float, which OpenGL takes as well, is not looked at here.
    if (HasReadablePoints() && FindBounds(Grid(), min, max) && ArePointsPacked() && m_componentCount != 4)
        m_pointsWithoutHoles = m_points;

    const ContextScope context(m_hDC, m_hGLRC);
    UpdateBoundingBoxToViewVolume(min, max);
    ViewAccess::ShowAwaited(*this);
    AssignColorData();
    AssignTexcoordData();
    AssignIndexData();
    AssignFramelineIndexData(SurfaceAccess::KeptStep(*this, 0), SurfaceAccess::KeptStep(*this, 1));
    CreateIsoContourData();
    if (m_useFramelineTexture) CreateFramelineSKivoTexImage();
    return 0;
}

// The array from new[] in which the plotter's points lie; of the host's points there is none.
CKivoFunctionPlotter::SOwnedArray CKivoFunctionPlotter::OwnedArray() const {
    if (m_isDataReference || !m_points) return {};
    if (m_ownedArray.points == m_points) return m_ownedArray;
    return {m_points, 0, m_points}; // put in by a derived class
}

// Pointers into different arrays are compared by std::less.
bool CKivoFunctionPlotter::IsInside(const SOwnedArray& array, const float* points) {
    if (!array.start || !points) return false;
    const std::less<const float*> isBefore;
    return points == array.start ||
           (isBefore(array.start, points) && isBefore(points, array.start + array.floats));
}

void CKivoFunctionPlotter::ReleasePoints() {
    delete[] OwnedArray().start;
    m_points = nullptr;
    m_ownedArray = {};
}

bool CKivoFunctionPlotter::HasReadablePoints() const {
    return m_points && m_columnCount != 0 && m_rowCount != 0 && m_componentCount >= 3;
}

// Drawing takes the points as packed. Where the strides address fewer floats than that, the host's array may
// end before them.
bool CKivoFunctionPlotter::HasDrawablePoints() const {
    if (!HasReadablePoints()) return false;
    constexpr std::size_t longestPoint = std::numeric_limits<GLsizei>::max() / sizeof(float);
    if (m_componentCount > longestPoint) return false; // no stride of OpenGL's
    const std::uint64_t packed = std::uint64_t{m_columnCount} * m_rowCount * m_componentCount;
    return packed <= AddressedFloats();
}

bool CKivoFunctionPlotter::ArePointsPacked() const {
    return m_columnStride == m_componentCount &&
           m_rowStride == std::uint64_t{m_columnCount} * m_componentCount;
}

// From the first point to the end of the last one.
std::uint64_t CKivoFunctionPlotter::AddressedFloats() const {
    if (!HasReadablePoints()) return 0;
    return std::uint64_t{m_columnCount - 1} * m_columnStride + std::uint64_t{m_rowCount - 1} * m_rowStride +
           m_componentCount;
}

// ---- Mesh arrays ----------------------------------------------------------------------------------------

void CKivoFunctionPlotter::AssignColorData() {
    if (!HasReadablePoints() || !m_zGradientColor) return;
    const std::size_t size = std::size_t{m_columnCount} * m_rowCount * 4;
    // An array of this size is written once more: large blocks are slow to come by.
    if (!m_colorArray || m_colorArraySize != size) {
        ReplaceArray(m_colorArray, size);
        m_colorArraySize = size;
    }
    m_hasReducedValues = false;
    SurfaceAccess::ForgetColors(*this);
    for (std::size_t r = 0; r < m_rowCount; ++r)
        m_zGradientColor->EvaluateAll(Grid().At(0, r) + 2, m_columnStride, m_columnCount,
                                      m_colorArray + r * m_columnCount * 4);
}

void CKivoFunctionPlotter::AssignTexcoordData() {
    ReplaceArray(m_texcoordArray, std::size_t{m_columnCount} * m_rowCount * 2);
    FillTexcoords(m_columnCount, m_rowCount, m_texcoordArray);
}

void CKivoFunctionPlotter::AssignIndexData() {
    const unsigned int cellColumns = CellCount(m_columnCount);
    const unsigned int cellRows = CellCount(m_rowCount);
    const std::size_t count = std::size_t{cellRows} * cellColumns * 6;
    ReplaceArray(m_indexArray, count);
    m_indexArraySize = count;
    m_indexCount = static_cast<unsigned int>(count);
    FillTriangleIndices(cellColumns, cellRows, m_indexArray);
}

void CKivoFunctionPlotter::AssignNormalData() {
    if (!HasReadablePoints()) return;
    const std::size_t cs = m_columnStride;
    const std::size_t rs = m_rowStride;
    const std::size_t cellColumns = m_columnCount - 1;
    const std::size_t cellRows = m_rowCount - 1;

    // Two face normals a cell: the triangle at its (c + 1, r) corner, then the one at (c, r + 1).
    std::vector<SPoint3f> faces(cellColumns * cellRows * 2);
    for (std::size_t r = 0; r < cellRows; ++r)
        for (std::size_t c = 0; c < cellColumns; ++c) {
            const float* p00 = m_points + c * cs + r * rs;
            const float* p11 = p00 + cs + rs;
            SPoint3f* face = &faces[(r * cellColumns + c) * 2];
            CalNormal(p00, p00 + cs, p11, &face[0].x);
            CalNormal(p00, p11, p00 + rs, &face[1].x);
        }

    const std::size_t size = cellColumns * cs + cellRows * rs + 3;
    ReplaceArray(m_normalArray, size);
    std::fill(m_normalArray, m_normalArray + size, 0.0f);
    for (std::size_t r = 0; r <= cellRows; ++r)
        for (std::size_t c = 0; c <= cellColumns; ++c) {
            float* normal = m_normalArray + c * cs + r * rs;
            if (r == 0 || c == 0 || r == cellRows || c == cellColumns) {
                normal[0] = normal[1] = 0.0f;
                normal[2] = 1.0f;
                continue;
            }
            const SPoint3f* lowerLeft = &faces[((r - 1) * cellColumns + c - 1) * 2];
            const SPoint3f* lowerRight = &faces[((r - 1) * cellColumns + c) * 2];
            const SPoint3f* upperLeft = &faces[(r * cellColumns + c - 1) * 2];
            const SPoint3f* upperRight = &faces[(r * cellColumns + c) * 2];
            const SPoint3f* touching[] = {lowerLeft, lowerLeft + 1, lowerRight + 1,
                                          upperLeft, upperRight,    upperRight + 1};
            float sum[3] = {};
            for (const SPoint3f* face : touching)
                VectorOffset3(sum, &face->x);
            for (int i = 0; i < 3; ++i)
                normal[i] = sum[i] / 6.0f;
        }
}

void CKivoFunctionPlotter::AssignPositionData() {}

// ---- Drawing --------------------------------------------------------------------------------------------

void CKivoFunctionPlotter::UploadFramelineTexture(const float* texcoords) const {
    glTexCoordPointer(2, GL_FLOAT, 0, texcoords);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, m_framelineTexId);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, m_framelineTexWidth, m_framelineTexHeight, 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, m_framelineTexels);
}

SurfaceArrays CKivoFunctionPlotter::WholeSurface() const {
    return {m_points,
            m_componentCount,
            std::size_t{m_columnCount} * m_rowCount,
            m_colorArray,
            m_texcoordArray,
            m_indexArray,
            WholeCount(m_indexCount, m_indexArraySize),
            m_framelineIndexArray,
            WholeCount(m_framelineIndexCount, m_framelineArraySize)};
}

void CKivoFunctionPlotter::RenderSurface() {
    if (!HasDrawablePoints() || !m_colorArray || !m_indexArray) return;
    const bool isReduced = m_isFrameReduced && m_reducedSurface;
    // Until the next frame that shows everything the points stay what they were in this one.
    if (!isReduced) m_hasReducedValues = false;
    if (!SurfaceAccess::IsFirstPlain(*this)) return; // it is drawn with the others
    DrawSurface(isReduced ? m_reducedSurface->Arrays() : WholeSurface());
}

void CKivoFunctionPlotter::DrawSurface(const SurfaceArrays& surface) {
    surface.SetVertexPointer();
    glEnableClientState(GL_VERTEX_ARRAY);
    glColorPointer(4, GL_FLOAT, 0, surface.colors);
    glEnableClientState(GL_COLOR_ARRAY);

    if (m_showFrameLines) {
        if (m_useFramelineTexture && m_framelineTexels && m_framelineTexId != 0) {
            UploadFramelineTexture(surface.texcoords);
        } else if (surface.lines) {
            const LineWidthScope lines(m_pixelScale);
            glDisable(GL_LIGHTING);
            glDisableClientState(GL_COLOR_ARRAY);
            glColor4fv(m_framelineColor);
            DrawIndexed(GL_LINES, surface.lines, surface.lineIndexCount, PictureAccess::Stop(*this));
            glEnable(GL_LIGHTING);
            glEnableClientState(GL_COLOR_ARRAY);
        }
    }

    // The surface is pushed back a little, so that the lines on it win the depth test: by what it rises in
    // the width of a line, and a bit.
    glPolygonOffset(m_pixelScale, 1.0f);
    glEnable(GL_POLYGON_OFFSET_FILL);
    SurfaceAccess::DrawTriangles(*this, {surface.points, surface.components, surface.pointCount},
                                 surface.triangles, surface.triangleIndexCount);
    glDisable(GL_POLYGON_OFFSET_FILL);

    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glBindTexture(GL_TEXTURE_2D, 0);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
}

// ---- Frame lines ----------------------------------------------------------------------------------------

void CKivoFunctionPlotter::SetFrameLineStep(unsigned int columnStep, unsigned int rowStep) {
    AssignFramelineIndexData(columnStep, rowStep);
}

void CKivoFunctionPlotter::SetFrameLineColor(unsigned long color) {
    ColorToRgba(color, m_framelineColor);
}

void CKivoFunctionPlotter::AssignFramelineIndexData() {
    AssignFramelineIndexData(1, 1);
}

void CKivoFunctionPlotter::AssignFramelineIndexData(unsigned int columnStep, unsigned int rowStep) {
    const FrameLines lines(CellCount(m_columnCount), CellCount(m_rowCount), columnStep, rowStep);
    const std::size_t count = HasReadablePoints() ? lines.IndexCount() : 0;
    if (count != 0) {
        ReplaceArray(m_framelineIndexArray, count);
        lines.Fill(m_framelineIndexArray);
    } else {
        delete[] m_framelineIndexArray;
        m_framelineIndexArray = nullptr;
    }
    m_framelineIndexCount = static_cast<int>(count);
    m_framelineArraySize = count;
    m_frameLineStep[0] = columnStep;
    m_frameLineStep[1] = rowStep;
}

void CKivoFunctionPlotter::CreateFramelineSKivoTexImage() {
    m_framelineTexWidth = framelineTexSize;
    m_framelineTexHeight = framelineTexSize;
    constexpr double volume[] = {0.0, framelineTexSize, 0.0, framelineTexSize, -1.0, 1.0};
    constexpr float white[] = {1.0f, 1.0f, 1.0f, 1.0f};
    DrawIntoTexels(framelineTexSize, volume, white, DrawFramelineTexture, WhiteTexels(framelineTexSize),
                   m_framelineTexels);
    if (m_framelineTexId == 0) glGenTextures(1, &m_framelineTexId);
}

// ---- Iso-contours ---------------------------------------------------------------------------------------

// What takes memory comes first, so that without it everything stays as it was.
int CKivoFunctionPlotter::SetIsoContourCount(unsigned int count) {
    if (count == 0) return -3;
    if (count == m_isoContourCount) return 0;
    NewContours z, x, y;
    SContourPicture picture;
    if (m_points) {
        if (m_useIsoContourTexture)
            picture = TraceContourPicture(count);
        else
            AssignFlatContours(z.records, 2, count);
        AssignFlatContours(x.records, 0, count);
        AssignFlatContours(y.records, 1, count);
    }

    m_isoContourCount = count;
    ReleaseIsoContour();
    const ContextScope context(m_hDC, m_hGLRC);
    if (m_points && m_useIsoContourTexture) DrawContourPicture(picture);
    m_flatZIsoContours.swap(z.records);
    m_flatXIsoContours.swap(x.records);
    m_flatYIsoContours.swap(y.records);
    ContourAccess::FollowLevels(*this);
    return 0;
}

void CKivoFunctionPlotter::CreateIsoContourData() {
    if (!m_points) return;
    if (m_useIsoContourTexture)
        CreateIsoContourSKivoTexImage();
    else
        AssignFlatZIsoContourData();
    AssignFlatXIsoContourData();
    AssignFlatYIsoContourData();
    ContourAccess::FollowLevels(*this);
}

void CKivoFunctionPlotter::AssignFlatZIsoContourData() {
    AssignFlatContours(m_flatZIsoContours, 2, m_isoContourCount);
}

void CKivoFunctionPlotter::AssignFlatXIsoContourData() {
    AssignFlatContours(m_flatXIsoContours, 0, m_isoContourCount);
}

void CKivoFunctionPlotter::AssignFlatYIsoContourData() {
    AssignFlatContours(m_flatYIsoContours, 1, m_isoContourCount);
}

std::vector<float> CKivoFunctionPlotter::FlatContourLevels(int axis, unsigned int count) const {
    const float min = m_boundingBoxMin[axis];
    const float max = m_boundingBoxMax[axis];
    if (m_contourInterval[axis] > 0.0)
        return LevelsAt(LevelStepsOf(min, max, m_contourInterval[axis], m_contourBase[axis]));
    return axis == 2 ? ContourLevelsOfHeight(min, max, count) : ContourLevelsInside(min, max, count);
}

void CKivoFunctionPlotter::AssignFlatContours(std::vector<SKivoIsoContour>& contours, int axis,
                                              unsigned int count) {
    if (!HasReadablePoints()) return;
    contours.reserve(contours.size() + count); // first, since it is most likely to end the memory
    const std::vector<float> levels = FlatContourLevels(axis, count);
    std::vector<LevelLines> lines = TraceLevelLines(Grid(), axis, levels);
    for (std::size_t k = 0; k < levels.size(); ++k) {
        if (!lines[k].points) continue;
        for (std::uint64_t i = 0; i < lines[k].pointCount; ++i)
            lines[k].points[3 * i + axis] = 0.0f;
        contours.push_back({lines[k].points.release(), lines[k].pointCount, levels[k]});
    }
}

GridView CKivoFunctionPlotter::Grid() const {
    return {m_points, m_columnCount, m_rowCount, m_columnStride, m_rowStride};
}

void CKivoFunctionPlotter::RenderFlatXIsoContour() {
    RenderFlatContours(m_flatXIsoContours, m_xGradientColor, 0);
}

void CKivoFunctionPlotter::RenderFlatYIsoContour() {
    RenderFlatContours(m_flatYIsoContours, m_yGradientColor, 1);
}

void CKivoFunctionPlotter::RenderFlatZIsoContour() {
    RenderFlatContours(m_flatZIsoContours, m_zGradientColor, 2);
}

void CKivoFunctionPlotter::RenderFlatContours(const std::vector<SKivoIsoContour>& contours,
                                              const CKivoGradientColor* gradient, int axis) {
    if (!m_gridBox || !gradient) return;
    float wall[3] = {};
    wall[axis] = m_gridBox->GridFace(axis);
    const std::vector<LevelLines>* const reduced =
        m_isFrameReduced && m_reducedSurface ? m_reducedSurface->Contours(axis, contours) : nullptr;

    const bool isOnBands = m_areContoursFilled && m_plotType == xyPlot;
    const PointBox range = CutBox();
    const ClipScope cut = CutScope(allAxes & ~(1U << static_cast<unsigned int>(axis)));
    const MatrixModeScope modelView(GL_MODELVIEW);
    glPushMatrix();
    glTranslatef(wall[0], wall[1], wall[2]);
    const LineWidthScope lines(m_pixelScale);
    glEnableClientState(GL_VERTEX_ARRAY);
    for (std::size_t k = 0; k < contours.size(); ++k) {
        if (contours[k].level < range.min[axis] || contours[k].level > range.max[axis]) continue;
        float color[4] = {0, 0, 0, 1};
        if (isOnBands)
            ColorToRgba(m_inkColor, color);
        else
            gradient->Evaluate(contours[k].level, color);
        glColor4fv(color);
        const float* const points = reduced ? (*reduced)[k].points.get() : contours[k].points;
        const std::uint64_t count = reduced ? (*reduced)[k].pointCount : contours[k].pointCount;
        if (!reduced || points)
            DrawLines(points, static_cast<std::size_t>(count), PictureAccess::Stop(*this));
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glPopMatrix();
}

void CKivoFunctionPlotter::RenderIsoContour() {
    std::vector<LevelLines> traced; // before any state is changed: it can throw
    if (HasReadablePoints())
        traced = TraceLevelLines(Grid(), ContouredAxis(), EvenHeights(m_isoContourCount));
    const LineWidthScope widths(m_pixelScale);
    glDisable(GL_LIGHTING);
    for (const LevelLines& lines : traced) {
        glBegin(GL_LINES);
        for (std::uint64_t i = 0; i < lines.pointCount; ++i)
            glVertex3fv(lines.points.get() + 3 * i);
        glEnd();
    }
    glEnable(GL_LIGHTING);
}

std::vector<float> CKivoFunctionPlotter::EvenHeights(unsigned int count) const {
    return ContourLevelsEven(m_boundingBoxMin[2], m_boundingBoxMax[2], count);
}

// The last coordinate of a point; of points with more than three floats that is z too.
int CKivoFunctionPlotter::ContouredAxis() const {
    return std::min(static_cast<int>(m_componentCount) - 1, 2);
}

void CKivoFunctionPlotter::CreateIsoContourSKivoTexImage() {
    SContourPicture picture = TraceContourPicture(m_isoContourCount);
    DrawContourPicture(picture);
}

CKivoFunctionPlotter::SContourPicture CKivoFunctionPlotter::TraceContourPicture(unsigned int count) const {
    SContourPicture picture;
    if (!HasReadablePoints()) return picture;
    picture.texels = WhiteTexels(contourTexSize);
    picture.levels = EvenHeights(count);
    picture.lines = TraceLevelLines(Grid(), ContouredAxis(), picture.levels);
    return picture;
}

void CKivoFunctionPlotter::DrawContourPicture(SContourPicture& picture) {
    m_isoContourTexWidth = contourTexSize;
    m_isoContourTexHeight = contourTexSize;
    const auto draw = [&] {
        glLineWidth(2.0f);
        for (std::size_t k = 0; k < picture.levels.size(); ++k) {
            const LevelLines& lines = picture.lines[k];
            float color[4] = {0, 0, 0, 1};
            if (m_zGradientColor) m_zGradientColor->Evaluate(picture.levels[k], color);
            glColor4fv(color);
            glBegin(GL_LINES);
            for (std::uint64_t i = 0; i < lines.pointCount; ++i)
                glVertex3f(lines.points[3 * i], lines.points[3 * i + 1], 0.5f);
            glEnd();
        }
        glLineWidth(1.0f);
    };
    const double volume[] = {
        m_boundingBoxMin[0], m_boundingBoxMax[0], m_boundingBoxMin[1], m_boundingBoxMax[1], -1.0, 1.0};
    constexpr float transparentWhite[] = {1.0f, 1.0f, 1.0f, 0.0f};
    if (picture.texels)
        DrawIntoTexels(contourTexSize, volume, transparentWhite, draw, std::move(picture.texels),
                       m_isoContourTexels);
    if (m_isoContourTexId == 0) glGenTextures(1, &m_isoContourTexId);
}

} // namespace KivoDrawingTools
