#include "Drawing.h"

#include "window_system/WindowSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace KivoDrawingTools {

namespace {

constexpr std::size_t vertexSize = 11; // x, y, depth, four of colour, four of texture
constexpr double sameVertex = 1e-3;    // pixels: corners of the two halves of a quad

DrawnVertex ReadVertex(const GLfloat* values) {
    return {double{values[0]},
            double{values[1]},
            double{values[2]},
            {values[3], values[4], values[5], values[6]},
            {values[7], values[8]}};
}

// How many vertices follow a token, and how many values stand before them.
struct Layout {
    std::size_t vertices = 0;
    std::size_t header = 1;
};

Layout LayoutOf(const GLfloat* token) {
    switch (static_cast<GLenum>(*token)) {
    case GL_LINE_TOKEN:
    case GL_LINE_RESET_TOKEN:
        return {2, 1};
    case GL_POLYGON_TOKEN:
        return {static_cast<std::size_t>(token[1]), 2};
    case GL_PASS_THROUGH_TOKEN:
        return {0, 2};
    default:
        return {1, 1};
    }
}

Drawing Decode(const std::vector<GLfloat>& values, std::size_t count) {
    Drawing drawing;
    for (std::size_t i = 0; i < count;) {
        const Layout layout = LayoutOf(&values[i]);
        i += layout.header;
        DrawnPrimitive primitive;
        for (std::size_t vertex = 0; vertex < layout.vertices; ++vertex, i += vertexSize)
            primitive.push_back(ReadVertex(&values[i]));
        if (!primitive.empty()) drawing.push_back(primitive);
    }
    return drawing;
}

bool IsLineOfColor(const DrawnPrimitive& primitive, const std::array<float, 3>& rgb) {
    if (primitive.size() != 2) return false;
    for (std::size_t i = 0; i < 3; ++i)
        if (std::fabs(primitive[0].color[i] - rgb[i]) > 0.001f) return false;
    return true;
}

bool IsSamePlace(const DrawnVertex& a, const DrawnVertex& b) {
    return std::fabs(a.x - b.x) < sameVertex && std::fabs(a.y - b.y) < sameVertex;
}

double DistanceOf(const DrawnVertex& a, const DrawnVertex& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// Whether a text image is drawn: its corners differ in their texture coordinates.
bool IsTextured(const DrawnPrimitive& primitive) {
    return primitive.size() >= 3 &&
           std::any_of(primitive.begin(), primitive.end(),
                       [&](const DrawnVertex& v) { return v.texture != primitive[0].texture; });
}

// The four different corners of a quad or of its two halves; fewer where they do not make one.
std::vector<DrawnVertex> CornersOf(const Drawing& halves) {
    std::vector<DrawnVertex> corners;
    for (const DrawnPrimitive& half : halves)
        for (const DrawnVertex& vertex : half)
            if (std::none_of(corners.begin(), corners.end(),
                             [&](const DrawnVertex& known) { return IsSamePlace(known, vertex); }))
                corners.push_back(vertex);
    return corners;
}

// From the corner at the texture's origin along its lower side.
DrawnQuad Ordered(const std::vector<DrawnVertex>& corners) {
    DrawnQuad quad;
    for (const DrawnVertex& corner : corners) {
        const bool isRight = corner.texture[0] > 0.0f, isUpper = corner.texture[1] > 0.0f;
        quad.corners[isUpper ? (isRight ? 2 : 3) : (isRight ? 1 : 0)] = corner;
    }
    return quad;
}

} // namespace

bool DrawnVertex::operator==(const DrawnVertex& other) const {
    return x == other.x && y == other.y && depth == other.depth && color == other.color &&
           texture == other.texture;
}

Drawing Record(const std::function<void()>& draw) {
    for (std::size_t size = 1u << 18; size <= 1u << 26; size *= 4) {
        std::vector<GLfloat> values(size);
        glTexCoord2f(0.0f, 0.0f); // of what has no texture: alike in every recording
        glFeedbackBuffer(static_cast<GLsizei>(size), GL_3D_COLOR_TEXTURE, values.data());
        glRenderMode(GL_FEEDBACK);
        draw();
        const GLint count = glRenderMode(GL_RENDER);
        if (count >= 0) return Decode(values, static_cast<std::size_t>(count)); // else it did not fit
    }
    ADD_FAILURE() << "too much is drawn to be recorded";
    return {};
}

Drawing LinesOfColor(const Drawing& drawing, const std::array<float, 3>& rgb) {
    Drawing lines;
    std::copy_if(drawing.begin(), drawing.end(), std::back_inserter(lines),
                 [&](const DrawnPrimitive& primitive) { return IsLineOfColor(primitive, rgb); });
    return lines;
}

Drawing WithoutLinesOfColor(const Drawing& drawing, const std::array<float, 3>& rgb) {
    Drawing rest;
    std::remove_copy_if(drawing.begin(), drawing.end(), std::back_inserter(rest),
                        [&](const DrawnPrimitive& primitive) { return IsLineOfColor(primitive, rgb); });
    return rest;
}

double DrawnQuad::CenterX() const {
    return (corners[0].x + corners[2].x) / 2.0;
}

double DrawnQuad::CenterY() const {
    return (corners[0].y + corners[2].y) / 2.0;
}

double DrawnQuad::Width() const {
    return DistanceOf(corners[0], corners[1]);
}

double DrawnQuad::Height() const {
    return DistanceOf(corners[0], corners[3]);
}

std::vector<DrawnQuad> TexturedQuads(const Drawing& drawing) {
    std::vector<DrawnQuad> quads;
    for (std::size_t i = 0; i < drawing.size(); ++i) {
        if (!IsTextured(drawing[i])) continue;
        Drawing halves = {drawing[i]};
        if (drawing[i].size() == 3 && i + 1 < drawing.size()) halves.push_back(drawing[++i]);
        const std::vector<DrawnVertex> corners = CornersOf(halves);
        EXPECT_EQ(corners.size(), 4u) << "a quad is cut off by the view volume";
        if (corners.size() == 4) quads.push_back(Ordered(corners));
    }
    return quads;
}

} // namespace KivoDrawingTools
