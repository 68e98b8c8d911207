#include "PointMarker.h"

#include "GLScopes.h"
#include "window_system/WindowSystem.h"

namespace KivoDrawingTools {

namespace {

constexpr float c = 0.7071f;

constexpr float vertices[18][3] = {{0, -1, 0}, {1, 0, 0},   {0, 0, 1},   {-1, 0, 0}, {0, 0, -1}, {0, 1, 0},
                                   {0, -c, c}, {c, 0, c},   {0, c, c},   {-c, 0, c}, {c, -c, 0}, {c, c, 0},
                                   {-c, c, 0}, {-c, -c, 0}, {0, -c, -c}, {c, 0, -c}, {0, c, -c}, {-c, 0, -c}};

constexpr GLuint triangles[32][3] = {
    {0, 10, 6},  {2, 6, 7},    {6, 10, 7},  {10, 1, 7},  {1, 11, 7},  {8, 2, 7},    {11, 8, 7},  {5, 8, 11},
    {5, 12, 8},  {12, 9, 8},   {9, 2, 8},   {3, 9, 12},  {3, 13, 9},  {13, 6, 9},   {6, 2, 9},   {0, 6, 13},
    {4, 15, 14}, {15, 10, 14}, {10, 0, 14}, {10, 15, 1}, {4, 16, 15}, {16, 11, 15}, {11, 1, 15}, {5, 11, 16},
    {4, 17, 16}, {17, 12, 16}, {12, 5, 16}, {3, 12, 17}, {4, 14, 17}, {14, 13, 17}, {13, 3, 17}, {0, 13, 14}};

} // namespace

void DrawUnitSphere() {
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices);
    glNormalPointer(GL_FLOAT, 0, vertices);
    glDrawElements(GL_TRIANGLES, 96, GL_UNSIGNED_INT, triangles);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
}

void DrawPointMarker(float x, float y, float z, float size, const double* axisScale) {
    const MatrixModeScope modelView(GL_MODELVIEW);
    // The scale goes into the normals too; lighting wants them of unit length whatever a marker's size is.
    glPushAttrib(GL_ENABLE_BIT);
    glEnable(GL_NORMALIZE);
    glPushMatrix();
    glTranslatef(x, y, z);
    glScaled(static_cast<double>(size) / axisScale[0], static_cast<double>(size) / axisScale[1],
             static_cast<double>(size) / axisScale[2]);
    DrawUnitSphere();
    glPopMatrix();
    glPopAttrib();
}

} // namespace KivoDrawingTools
