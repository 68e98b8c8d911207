// The ball that marks points: its shape, its normals, its place and size, and the state it leaves behind.
#include "drawing/PointMarker.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Vector = std::array<double, 3>;

struct Corner {
    Vector position;
    Vector color;
};
using Triangle = std::array<Corner, 3>;

constexpr double range = 4.0; // the view volume reaches from -range to range on all axes
constexpr int side = 256;     // pixels of the square viewport

double Dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector Minus(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Length(const Vector& a) {
    return std::sqrt(Dot(a, a));
}

/// A camera along -z without perspective, and feedback of what would be drawn.
class PointMarker : public WindowTest {
protected:
    PointMarker() {
        plot.plotter.BeginGLOperation();
        glGetError(); // making the fonts leaves one on some systems
        glViewport(0, 0, side, side);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(-range, range, -range, range, -range, range);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glDisable(GL_LIGHTING);
        glDisable(GL_CULL_FACE);
    }
    ~PointMarker() override { plot.plotter.EndGLOperation(); }

    template <typename Draw>
    std::vector<Triangle> Feedback(Draw draw) const {
        std::vector<GLfloat> buffer(8192);
        glFeedbackBuffer(static_cast<GLsizei>(buffer.size()), GL_3D_COLOR, buffer.data());
        glRenderMode(GL_FEEDBACK);
        draw();
        const GLint count = glRenderMode(GL_RENDER);
        EXPECT_GE(count, 0) << "the buffer was too small";
        std::vector<Triangle> triangles;
        for (GLint i = 0; i < count; i += 2 + 3 * 7) {
            EXPECT_EQ(buffer[i], GL_POLYGON_TOKEN);
            EXPECT_EQ(buffer[i + 1], 3.0f);
            Triangle triangle = {};
            for (std::size_t corner = 0; corner < 3; ++corner)
                triangle[corner] = Decode(&buffer[i + 2 + 7 * corner]);
            triangles.push_back(triangle);
        }
        return triangles;
    }

    static Corner Decode(const GLfloat* values) {
        Corner corner = {};
        corner.position = {(values[0] / side * 2.0 - 1.0) * range, (values[1] / side * 2.0 - 1.0) * range,
                           (1.0 - 2.0 * values[2]) * range};
        for (std::size_t i = 0; i < 3; ++i)
            corner.color[i] = values[3 + i];
        return corner;
    }

    std::vector<Triangle> UnitSphere() const {
        return Feedback([] { DrawUnitSphere(); });
    }

    TestPlot plot{GetParam(), side, side};
};

/// The different corners, by their position rounded to thousandths.
std::map<std::array<long, 3>, int> CountCorners(const std::vector<Triangle>& triangles) {
    std::map<std::array<long, 3>, int> corners;
    for (const Triangle& triangle : triangles)
        for (const Corner& corner : triangle) {
            std::array<long, 3> key = {};
            for (std::size_t i = 0; i < 3; ++i)
                key[i] = std::lround(corner.position[i] * 1000.0);
            ++corners[key];
        }
    return corners;
}

/// Three lights without an end of their own, red from the right, green from above, blue from the viewer, or
/// each from the other side: a surface's colour is then its normal.
void LightAlongAxes(float sign) {
    const GLfloat black[] = {0, 0, 0, 1}, white[] = {1, 1, 1, 1};
    glEnable(GL_LIGHTING);
    glDisable(GL_COLOR_MATERIAL);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, white);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_FALSE);
    for (unsigned int axis = 0; axis < 3; ++axis) {
        GLfloat position[] = {0, 0, 0, 0}, color[] = {0, 0, 0, 1};
        position[axis] = sign;
        color[axis] = 1;
        glLightfv(GL_LIGHT0 + axis, GL_POSITION, position);
        glLightfv(GL_LIGHT0 + axis, GL_DIFFUSE, color);
        glLightfv(GL_LIGHT0 + axis, GL_AMBIENT, black);
        glLightfv(GL_LIGHT0 + axis, GL_SPECULAR, black);
        glEnable(GL_LIGHT0 + axis);
    }
}

GLint Integer(GLenum name) {
    GLint value = -1;
    glGetIntegerv(name, &value);
    return value;
}

} // namespace

TEST_P(PointMarker, The32TrianglesHave18CornersOnTheUnitSphere) {
    const std::vector<Triangle> triangles = UnitSphere();
    EXPECT_EQ(triangles.size(), 32u);
    EXPECT_EQ(CountCorners(triangles).size(), 18u);
    for (const Triangle& triangle : triangles)
        for (const Corner& corner : triangle)
            EXPECT_NEAR(Length(corner.position), 1.0, 1e-3);
}

// The corners of an octahedron belong to four triangles, the middles of its sides to six.
TEST_P(PointMarker, CornersAreThoseOfAnOctahedronAndTheMiddlesOfItsSides) {
    int ends = 0, middles = 0;
    for (const auto& corner : CountCorners(UnitSphere())) {
        const auto zeros = std::count(corner.first.begin(), corner.first.end(), 0L);
        (zeros == 2 ? ends : middles) += 1;
        EXPECT_EQ(corner.second, zeros == 2 ? 4 : 6);
        for (const long coordinate : corner.first)
            EXPECT_TRUE(coordinate == 0 || std::labs(std::labs(coordinate) - (zeros == 2 ? 1000 : 707)) <= 1)
                << coordinate;
    }
    EXPECT_EQ(ends, 6);
    EXPECT_EQ(middles, 12);
}

TEST_P(PointMarker, TheBallIsClosedAndFacesOutwards) {
    std::map<std::pair<std::array<long, 3>, std::array<long, 3>>, int> sides;
    const auto key = [](const Vector& p) {
        return std::array<long, 3>{std::lround(p[0] * 1000), std::lround(p[1] * 1000),
                                   std::lround(p[2] * 1000)};
    };
    double volume = 0.0;
    for (const Triangle& t : UnitSphere()) {
        for (std::size_t i = 0; i < 3; ++i)
            ++sides[{key(t[i].position), key(t[(i + 1) % 3].position)}];
        const Vector normal = Cross(Minus(t[1].position, t[0].position), Minus(t[2].position, t[0].position));
        EXPECT_GT(Dot(normal, t[0].position), 0.0);
        volume += Dot(t[0].position, Cross(t[1].position, t[2].position)) / 6.0;
    }
    EXPECT_EQ(sides.size(), 96u);
    for (const auto& edge : sides) {
        EXPECT_EQ(edge.second, 1);
        EXPECT_EQ(sides.count({edge.first.second, edge.first.first}), 1u);
    }
    // Of each eighth of the octahedron: three outer pyramids of c * c / 6, an inner one of 2 c^3 / 6.
    const double c = std::sqrt(0.5);
    EXPECT_NEAR(volume, 8.0 * (3.0 * c * c + 2.0 * c * c * c) / 6.0, 2e-3);
}

TEST_P(PointMarker, EachCornerIsItsOwnNormal) {
    for (const float sign : {1.0f, -1.0f}) {
        LightAlongAxes(sign);
        for (const Triangle& triangle : UnitSphere())
            for (const Corner& corner : triangle)
                for (std::size_t i = 0; i < 3; ++i)
                    EXPECT_NEAR(corner.color[i], std::max(0.0, sign * corner.position[i]), 2e-3);
    }
}

TEST_P(PointMarker, VertexAndNormalArraysAreOffAfterwards) {
    DrawUnitSphere();
    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
    EXPECT_FALSE(glIsEnabled(GL_NORMAL_ARRAY));
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_P(PointMarker, IsRoundOnTheScreenWhateverTheAxisScale) {
    const double scales[][3] = {{1, 1, 1}, {2, 0.5, 4}, {0.001, 700, 1}};
    for (const auto& scale : scales) {
        glLoadIdentity();
        glScaled(scale[0], scale[1], scale[2]);
        const float place[] = {static_cast<float>(1.0 / scale[0]), static_cast<float>(-0.5 / scale[1]),
                               static_cast<float>(0.75 / scale[2])};
        const auto triangles = Feedback([&] { DrawPointMarker(place[0], place[1], place[2], 0.6f, scale); });
        EXPECT_EQ(triangles.size(), 32u);
        for (const Triangle& triangle : triangles)
            for (const Corner& corner : triangle)
                EXPECT_NEAR(Length(Minus(corner.position, {1.0, -0.5, 0.75})), 0.6, 2e-3);
    }
}

TEST_P(PointMarker, MatrixModeAndMatricesAreAsBefore) {
    const double scale[] = {2, 3, 4};
    glLoadMatrixd(Translation(0.5, 0.25, -0.125).data());
    const Matrix modelView = LoadedMatrix(GL_MODELVIEW_MATRIX);
    const Matrix projection = LoadedMatrix(GL_PROJECTION_MATRIX);
    const GLint depth = Integer(GL_MODELVIEW_STACK_DEPTH);
    for (const GLenum mode : {GL_MODELVIEW, GL_PROJECTION, GL_TEXTURE}) {
        glMatrixMode(mode);
        DrawPointMarker(1.0f, 1.0f, 1.0f, 0.5f, scale);
        EXPECT_EQ(Integer(GL_MATRIX_MODE), static_cast<GLint>(mode));
        EXPECT_EQ(Integer(GL_MODELVIEW_STACK_DEPTH), depth);
        EXPECT_EQ(LoadedMatrix(GL_MODELVIEW_MATRIX), modelView);
        EXPECT_EQ(LoadedMatrix(GL_PROJECTION_MATRIX), projection);
    }
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

// Seen along an axis the outline is a regular octagon of area 2 sqrt(2) r^2.
TEST_P(PointMarker, CoversAnOctagonOfPixels) {
    const double scale[] = {1, 1, 1};
    glDisable(GL_DEPTH_TEST);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(1, 1, 1);
    DrawPointMarker(0.0f, 0.0f, 0.0f, 2.0f, scale);
    const Image image = ReadBuffer(GL_BACK, side, side);
    const double radius = 2.0 / range * side / 2;
    const int covered = image.Count([](const unsigned char* rgb) { return rgb[0] == 255; });
    EXPECT_NEAR(covered, 2.0 * std::sqrt(2.0) * radius * radius, 2.0 * radius);
    for (const int corner : {0, side - 1})
        EXPECT_TRUE(image.IsNear(corner, side / 2, {0, 0, 0}));
}

TEST_P(PointMarker, ARadiusOf0DrawsNothing) {
    const double scale[] = {1, 1, 1};
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glColor3f(1, 1, 1);
    DrawPointMarker(0.01f, 0.01f, 0.0f, 0.0f, scale);
    const Image image = ReadBuffer(GL_BACK, side, side);
    EXPECT_EQ(image.Count([](const unsigned char* rgb) { return rgb[0] != 0; }), 0);
}

KIVO_IN_ONE_WINDOW(PointMarker);
