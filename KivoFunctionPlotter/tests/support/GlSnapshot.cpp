#include "GlSnapshot.h"

#include <GL/gl.h>

#include <cstdint>

namespace KivoTest {

namespace {

struct Variable {
    GLenum name;
    const char* words;
    int count;
};

#define KIVO_VARIABLE(name, count)                                                                           \
    { name, #name, count }

// Variables that glGetDoublev answers.
constexpr Variable variables[] = {
    // current values
    KIVO_VARIABLE(GL_CURRENT_COLOR, 4),
    KIVO_VARIABLE(GL_CURRENT_INDEX, 1),
    KIVO_VARIABLE(GL_CURRENT_TEXTURE_COORDS, 4),
    KIVO_VARIABLE(GL_CURRENT_NORMAL, 3),
    KIVO_VARIABLE(GL_CURRENT_RASTER_POSITION, 4),
    KIVO_VARIABLE(GL_CURRENT_RASTER_DISTANCE, 1),
    KIVO_VARIABLE(GL_CURRENT_RASTER_COLOR, 4),
    KIVO_VARIABLE(GL_CURRENT_RASTER_TEXTURE_COORDS, 4),
    KIVO_VARIABLE(GL_CURRENT_RASTER_POSITION_VALID, 1),
    KIVO_VARIABLE(GL_EDGE_FLAG, 1),
    // vertex arrays
    KIVO_VARIABLE(GL_VERTEX_ARRAY_SIZE, 1),
    KIVO_VARIABLE(GL_VERTEX_ARRAY_TYPE, 1),
    KIVO_VARIABLE(GL_VERTEX_ARRAY_STRIDE, 1),
    KIVO_VARIABLE(GL_NORMAL_ARRAY_TYPE, 1),
    KIVO_VARIABLE(GL_NORMAL_ARRAY_STRIDE, 1),
    KIVO_VARIABLE(GL_COLOR_ARRAY_SIZE, 1),
    KIVO_VARIABLE(GL_COLOR_ARRAY_TYPE, 1),
    KIVO_VARIABLE(GL_COLOR_ARRAY_STRIDE, 1),
    KIVO_VARIABLE(GL_TEXTURE_COORD_ARRAY_SIZE, 1),
    KIVO_VARIABLE(GL_TEXTURE_COORD_ARRAY_TYPE, 1),
    KIVO_VARIABLE(GL_TEXTURE_COORD_ARRAY_STRIDE, 1),
    // transformation
    KIVO_VARIABLE(GL_MODELVIEW_MATRIX, 16),
    KIVO_VARIABLE(GL_PROJECTION_MATRIX, 16),
    KIVO_VARIABLE(GL_TEXTURE_MATRIX, 16),
    KIVO_VARIABLE(GL_VIEWPORT, 4),
    KIVO_VARIABLE(GL_DEPTH_RANGE, 2),
    KIVO_VARIABLE(GL_MODELVIEW_STACK_DEPTH, 1),
    KIVO_VARIABLE(GL_PROJECTION_STACK_DEPTH, 1),
    KIVO_VARIABLE(GL_TEXTURE_STACK_DEPTH, 1),
    KIVO_VARIABLE(GL_MATRIX_MODE, 1),
    // fog and shading
    KIVO_VARIABLE(GL_FOG_COLOR, 4),
    KIVO_VARIABLE(GL_FOG_DENSITY, 1),
    KIVO_VARIABLE(GL_FOG_START, 1),
    KIVO_VARIABLE(GL_FOG_END, 1),
    KIVO_VARIABLE(GL_FOG_MODE, 1),
    KIVO_VARIABLE(GL_SHADE_MODEL, 1),
    // lighting
    KIVO_VARIABLE(GL_COLOR_MATERIAL_PARAMETER, 1),
    KIVO_VARIABLE(GL_COLOR_MATERIAL_FACE, 1),
    KIVO_VARIABLE(GL_LIGHT_MODEL_AMBIENT, 4),
    KIVO_VARIABLE(GL_LIGHT_MODEL_LOCAL_VIEWER, 1),
    KIVO_VARIABLE(GL_LIGHT_MODEL_TWO_SIDE, 1),
    // rasterization
    KIVO_VARIABLE(GL_POINT_SIZE, 1),
    KIVO_VARIABLE(GL_LINE_WIDTH, 1),
    KIVO_VARIABLE(GL_LINE_STIPPLE_PATTERN, 1),
    KIVO_VARIABLE(GL_LINE_STIPPLE_REPEAT, 1),
    KIVO_VARIABLE(GL_CULL_FACE_MODE, 1),
    KIVO_VARIABLE(GL_FRONT_FACE, 1),
    KIVO_VARIABLE(GL_POLYGON_MODE, 2),
    KIVO_VARIABLE(GL_POLYGON_OFFSET_FACTOR, 1),
    KIVO_VARIABLE(GL_POLYGON_OFFSET_UNITS, 1),
    // textures
    KIVO_VARIABLE(GL_TEXTURE_BINDING_1D, 1),
    KIVO_VARIABLE(GL_TEXTURE_BINDING_2D, 1),
    // fragments
    KIVO_VARIABLE(GL_SCISSOR_BOX, 4),
    KIVO_VARIABLE(GL_ALPHA_TEST_FUNC, 1),
    KIVO_VARIABLE(GL_ALPHA_TEST_REF, 1),
    KIVO_VARIABLE(GL_STENCIL_FUNC, 1),
    KIVO_VARIABLE(GL_STENCIL_VALUE_MASK, 1),
    KIVO_VARIABLE(GL_STENCIL_REF, 1),
    KIVO_VARIABLE(GL_STENCIL_FAIL, 1),
    KIVO_VARIABLE(GL_STENCIL_PASS_DEPTH_FAIL, 1),
    KIVO_VARIABLE(GL_STENCIL_PASS_DEPTH_PASS, 1),
    KIVO_VARIABLE(GL_DEPTH_FUNC, 1),
    KIVO_VARIABLE(GL_BLEND_SRC, 1),
    KIVO_VARIABLE(GL_BLEND_DST, 1),
    KIVO_VARIABLE(GL_LOGIC_OP_MODE, 1),
    // the frame buffer
    KIVO_VARIABLE(GL_DRAW_BUFFER, 1),
    KIVO_VARIABLE(GL_INDEX_WRITEMASK, 1),
    KIVO_VARIABLE(GL_COLOR_WRITEMASK, 4),
    KIVO_VARIABLE(GL_DEPTH_WRITEMASK, 1),
    KIVO_VARIABLE(GL_STENCIL_WRITEMASK, 1),
    KIVO_VARIABLE(GL_COLOR_CLEAR_VALUE, 4),
    KIVO_VARIABLE(GL_DEPTH_CLEAR_VALUE, 1),
    KIVO_VARIABLE(GL_STENCIL_CLEAR_VALUE, 1),
    KIVO_VARIABLE(GL_INDEX_CLEAR_VALUE, 1),
    KIVO_VARIABLE(GL_ACCUM_CLEAR_VALUE, 4),
    // pixels
    KIVO_VARIABLE(GL_UNPACK_SWAP_BYTES, 1),
    KIVO_VARIABLE(GL_UNPACK_LSB_FIRST, 1),
    KIVO_VARIABLE(GL_UNPACK_ROW_LENGTH, 1),
    KIVO_VARIABLE(GL_UNPACK_SKIP_ROWS, 1),
    KIVO_VARIABLE(GL_UNPACK_SKIP_PIXELS, 1),
    KIVO_VARIABLE(GL_UNPACK_ALIGNMENT, 1),
    KIVO_VARIABLE(GL_PACK_SWAP_BYTES, 1),
    KIVO_VARIABLE(GL_PACK_LSB_FIRST, 1),
    KIVO_VARIABLE(GL_PACK_ROW_LENGTH, 1),
    KIVO_VARIABLE(GL_PACK_SKIP_ROWS, 1),
    KIVO_VARIABLE(GL_PACK_SKIP_PIXELS, 1),
    KIVO_VARIABLE(GL_PACK_ALIGNMENT, 1),
    KIVO_VARIABLE(GL_MAP_COLOR, 1),
    KIVO_VARIABLE(GL_MAP_STENCIL, 1),
    KIVO_VARIABLE(GL_RED_SCALE, 1),
    KIVO_VARIABLE(GL_RED_BIAS, 1),
    KIVO_VARIABLE(GL_ALPHA_SCALE, 1),
    KIVO_VARIABLE(GL_ALPHA_BIAS, 1),
    KIVO_VARIABLE(GL_DEPTH_SCALE, 1),
    KIVO_VARIABLE(GL_DEPTH_BIAS, 1),
    KIVO_VARIABLE(GL_ZOOM_X, 1),
    KIVO_VARIABLE(GL_ZOOM_Y, 1),
    KIVO_VARIABLE(GL_READ_BUFFER, 1),
    // hints, lists, stacks
    KIVO_VARIABLE(GL_PERSPECTIVE_CORRECTION_HINT, 1),
    KIVO_VARIABLE(GL_POINT_SMOOTH_HINT, 1),
    KIVO_VARIABLE(GL_LINE_SMOOTH_HINT, 1),
    KIVO_VARIABLE(GL_POLYGON_SMOOTH_HINT, 1),
    KIVO_VARIABLE(GL_FOG_HINT, 1),
    KIVO_VARIABLE(GL_LIST_BASE, 1),
    KIVO_VARIABLE(GL_LIST_INDEX, 1),
    KIVO_VARIABLE(GL_LIST_MODE, 1),
    KIVO_VARIABLE(GL_ATTRIB_STACK_DEPTH, 1),
    KIVO_VARIABLE(GL_CLIENT_ATTRIB_STACK_DEPTH, 1),
    KIVO_VARIABLE(GL_NAME_STACK_DEPTH, 1),
    KIVO_VARIABLE(GL_RENDER_MODE, 1),
};

// What glIsEnabled answers.
constexpr Variable switches[] = {
    KIVO_VARIABLE(GL_VERTEX_ARRAY, 1),
    KIVO_VARIABLE(GL_NORMAL_ARRAY, 1),
    KIVO_VARIABLE(GL_COLOR_ARRAY, 1),
    KIVO_VARIABLE(GL_INDEX_ARRAY, 1),
    KIVO_VARIABLE(GL_TEXTURE_COORD_ARRAY, 1),
    KIVO_VARIABLE(GL_EDGE_FLAG_ARRAY, 1),
    KIVO_VARIABLE(GL_NORMALIZE, 1),
    KIVO_VARIABLE(GL_CLIP_PLANE0, 1),
    KIVO_VARIABLE(GL_CLIP_PLANE1, 1),
    KIVO_VARIABLE(GL_CLIP_PLANE2, 1),
    KIVO_VARIABLE(GL_CLIP_PLANE3, 1),
    KIVO_VARIABLE(GL_CLIP_PLANE4, 1),
    KIVO_VARIABLE(GL_CLIP_PLANE5, 1),
    KIVO_VARIABLE(GL_FOG, 1),
    KIVO_VARIABLE(GL_LIGHTING, 1),
    KIVO_VARIABLE(GL_COLOR_MATERIAL, 1),
    KIVO_VARIABLE(GL_LIGHT0, 1),
    KIVO_VARIABLE(GL_LIGHT1, 1),
    KIVO_VARIABLE(GL_LIGHT2, 1),
    KIVO_VARIABLE(GL_LIGHT3, 1),
    KIVO_VARIABLE(GL_LIGHT4, 1),
    KIVO_VARIABLE(GL_LIGHT5, 1),
    KIVO_VARIABLE(GL_LIGHT6, 1),
    KIVO_VARIABLE(GL_LIGHT7, 1),
    KIVO_VARIABLE(GL_POINT_SMOOTH, 1),
    KIVO_VARIABLE(GL_LINE_SMOOTH, 1),
    KIVO_VARIABLE(GL_LINE_STIPPLE, 1),
    KIVO_VARIABLE(GL_CULL_FACE, 1),
    KIVO_VARIABLE(GL_POLYGON_SMOOTH, 1),
    KIVO_VARIABLE(GL_POLYGON_OFFSET_POINT, 1),
    KIVO_VARIABLE(GL_POLYGON_OFFSET_LINE, 1),
    KIVO_VARIABLE(GL_POLYGON_OFFSET_FILL, 1),
    KIVO_VARIABLE(GL_POLYGON_STIPPLE, 1),
    KIVO_VARIABLE(GL_TEXTURE_1D, 1),
    KIVO_VARIABLE(GL_TEXTURE_2D, 1),
    KIVO_VARIABLE(GL_TEXTURE_GEN_S, 1),
    KIVO_VARIABLE(GL_TEXTURE_GEN_T, 1),
    KIVO_VARIABLE(GL_TEXTURE_GEN_R, 1),
    KIVO_VARIABLE(GL_TEXTURE_GEN_Q, 1),
    KIVO_VARIABLE(GL_SCISSOR_TEST, 1),
    KIVO_VARIABLE(GL_ALPHA_TEST, 1),
    KIVO_VARIABLE(GL_STENCIL_TEST, 1),
    KIVO_VARIABLE(GL_DEPTH_TEST, 1),
    KIVO_VARIABLE(GL_BLEND, 1),
    KIVO_VARIABLE(GL_DITHER, 1),
    KIVO_VARIABLE(GL_INDEX_LOGIC_OP, 1),
    KIVO_VARIABLE(GL_COLOR_LOGIC_OP, 1),
    KIVO_VARIABLE(GL_AUTO_NORMAL, 1),
};

constexpr Variable pointers[] = {
    KIVO_VARIABLE(GL_VERTEX_ARRAY_POINTER, 1),
    KIVO_VARIABLE(GL_NORMAL_ARRAY_POINTER, 1),
    KIVO_VARIABLE(GL_COLOR_ARRAY_POINTER, 1),
    KIVO_VARIABLE(GL_TEXTURE_COORD_ARRAY_POINTER, 1),
};

constexpr Variable lightVariables[] = {
    KIVO_VARIABLE(GL_AMBIENT, 4),        KIVO_VARIABLE(GL_DIFFUSE, 4),
    KIVO_VARIABLE(GL_SPECULAR, 4),       KIVO_VARIABLE(GL_POSITION, 4),
    KIVO_VARIABLE(GL_SPOT_DIRECTION, 3), KIVO_VARIABLE(GL_SPOT_EXPONENT, 1),
    KIVO_VARIABLE(GL_SPOT_CUTOFF, 1),    KIVO_VARIABLE(GL_CONSTANT_ATTENUATION, 1),
};

constexpr Variable materialVariables[] = {
    KIVO_VARIABLE(GL_AMBIENT, 4),  KIVO_VARIABLE(GL_DIFFUSE, 4),   KIVO_VARIABLE(GL_SPECULAR, 4),
    KIVO_VARIABLE(GL_EMISSION, 4), KIVO_VARIABLE(GL_SHININESS, 1),
};

// Of texture 0, which is bound between the layers.
constexpr Variable textureVariables[] = {
    KIVO_VARIABLE(GL_TEXTURE_WRAP_S, 1),
    KIVO_VARIABLE(GL_TEXTURE_WRAP_T, 1),
    KIVO_VARIABLE(GL_TEXTURE_MIN_FILTER, 1),
    KIVO_VARIABLE(GL_TEXTURE_MAG_FILTER, 1),
};
#undef KIVO_VARIABLE

std::vector<double> Values(const float* values, int count) {
    return std::vector<double>(values, values + count);
}

void AddLightsAndMaterials(GlSnapshot& snapshot) {
    float values[4] = {};
    for (int light = 0; light < 8; ++light)
        for (const Variable& variable : lightVariables) {
            glGetLightfv(GL_LIGHT0 + static_cast<GLenum>(light), variable.name, values);
            snapshot["light " + std::to_string(light) + " " + variable.words] =
                Values(values, variable.count);
        }
    for (const GLenum face : {GL_FRONT, GL_BACK})
        for (const Variable& variable : materialVariables) {
            glGetMaterialfv(face, variable.name, values);
            snapshot[std::string(face == GL_FRONT ? "front " : "back ") + variable.words] =
                Values(values, variable.count);
        }
}

void AddTexture(GlSnapshot& snapshot) {
    float values[4] = {};
    for (const Variable& variable : textureVariables) {
        glGetTexParameterfv(GL_TEXTURE_2D, variable.name, values);
        snapshot[variable.words] = Values(values, variable.count);
    }
    glGetTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, values);
    snapshot["GL_TEXTURE_ENV_MODE"] = {static_cast<double>(values[0])};
    glGetTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, values);
    snapshot["GL_TEXTURE_ENV_COLOR"] = Values(values, 4);
}

} // namespace

GlSnapshot TakeSnapshot() {
    GlSnapshot snapshot;
    double values[16] = {};
    for (const Variable& variable : variables) {
        glGetDoublev(variable.name, values);
        snapshot[variable.words].assign(values, values + variable.count);
    }
    for (const Variable& variable : switches)
        snapshot[variable.words] = {glIsEnabled(variable.name) ? 1.0 : 0.0};
    for (const Variable& variable : pointers) {
        void* pointer = nullptr;
        glGetPointerv(variable.name, &pointer);
        snapshot[variable.words] = {static_cast<double>(reinterpret_cast<std::uintptr_t>(pointer))};
    }
    AddLightsAndMaterials(snapshot);
    AddTexture(snapshot);
    snapshot["glGetError"] = {static_cast<double>(glGetError())};
    return snapshot;
}

std::set<std::string> Differences(const GlSnapshot& before, const GlSnapshot& after) {
    std::set<std::string> names;
    for (const auto& [name, values] : after)
        if (before.at(name) != values) names.insert(name);
    return names;
}

void SetOddState() {
    glColor4f(0.125f, 0.375f, 0.625f, 0.875f);
    glTexCoord2f(0.25f, 0.75f);
    glNormal3f(0.6f, 0.0f, 0.8f);
    glLineWidth(3.0f);
    glPolygonOffset(5.0f, 7.0f);
    glBlendFunc(GL_DST_COLOR, GL_ONE);
    glAlphaFunc(GL_LEQUAL, 0.625f);
    glDepthRange(0.0, 0.75);
    glDepthFunc(GL_LEQUAL);
    glListBase(77);
    glMatrixMode(GL_TEXTURE);
    glClearColor(0.5f, 0.25f, 0.125f, 1.0f);
    glEnable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glVertexPointer(2, GL_SHORT, 6, nullptr);
    glColorPointer(3, GL_BYTE, 5, nullptr);
    glNormalPointer(GL_SHORT, 9, nullptr);
    glTexCoordPointer(1, GL_SHORT, 7, nullptr);
}

} // namespace KivoTest
