// The calls of OpenGL and GLU that the plotter makes, noted and forwarded. The linker leads calls of a
// function f to __wrap_f, and __real_f to the function itself. The build reads the names from this file's
// RECORD lines.
#include "AllocationFaults.h"
#include "CallRecorder.h"
#include "ResourceLedger.h"

#include <GL/gl.h>
#include <GL/glu.h>

namespace {

using KivoTest::Array;
using KivoTest::CallRecorder;
using KivoTest::Enum;
using KivoTest::InsideWrapped;
using KivoTest::Mask;
using KivoTest::NoteGlCall;
using KivoTest::Num;
using KivoTest::Primitive;
using KivoTest::Ptr;
using KivoTest::WithoutAllocationFaults;

struct InsideDriver {
    InsideWrapped inside;
    WithoutAllocationFaults reliable;
};

const void* CurrentOwner() {
    return KivoDrawingTools::wglGetCurrentContext();
}

std::size_t MaterialCount(GLenum name) {
    return name == GL_SHININESS ? 1 : 4;
}

void NoteColor(float r, float g, float b, float a) {
    const float rgba[] = {r, g, b, a};
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->SetColor(rgba);
}

void NoteTexcoord(float s, float t) {
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->SetTexcoord(s, t);
}

void NoteVertex(double x, double y, double z) {
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->AddVertex(x, y, z);
}

void NoteDraw(GLenum primitive, int count, const void* indices) {
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->BeginDraw(primitive, count, indices);
}

} // namespace

// The wrappers are visible because libraries that call the same functions are redirected on paper too.
// RECORD_AND(extra, result, name, parameters, arguments, noted arguments...): extra is done after noting.
#define RECORD_AND(extra, result, name, parameters, arguments, ...)                                          \
    extern "C" result __real_##name parameters;                                                              \
    extern "C" [[gnu::visibility("default")]] result __wrap_##name parameters;                               \
    extern "C" result __wrap_##name parameters {                                                             \
        NoteGlCall(#name, {__VA_ARGS__});                                                                    \
        extra;                                                                                               \
        const InsideDriver inside;                                                                           \
        return __real_##name arguments;                                                                      \
    }
#define RECORD(result, name, parameters, arguments, ...)                                                     \
    RECORD_AND(, result, name, parameters, arguments, __VA_ARGS__)

// ---- Vertices

RECORD_AND(NoteDraw(mode, 0, nullptr), void, glBegin, (GLenum mode), (mode), Primitive(mode))
RECORD(void, glEnd, (), (), )
RECORD_AND(NoteVertex(x, y, z), void, glVertex3d, (GLdouble x, GLdouble y, GLdouble z), (x, y, z), Num(x),
           Num(y), Num(z))
RECORD_AND(NoteVertex(x, y, z), void, glVertex3f, (GLfloat x, GLfloat y, GLfloat z), (x, y, z), Num(x),
           Num(y), Num(z))
RECORD_AND(NoteVertex(v[0], v[1], v[2]), void, glVertex3fv, (const GLfloat* v), (v), Array(v, 3))
RECORD_AND(NoteColor(v[0], v[1], v[2], v[3]), void, glColor4fv, (const GLfloat* v), (v), Array(v, 4))
RECORD_AND(NoteColor(r, g, b, a), void, glColor4f, (GLfloat r, GLfloat g, GLfloat b, GLfloat a), (r, g, b, a),
           Num(r), Num(g), Num(b), Num(a))
RECORD_AND(NoteTexcoord(s, t), void, glTexCoord2f, (GLfloat s, GLfloat t), (s, t), Num(s), Num(t))
RECORD(void, glRasterPos3f, (GLfloat x, GLfloat y, GLfloat z), (x, y, z), Num(x), Num(y), Num(z))

// ---- Vertex arrays

RECORD(void, glEnableClientState, (GLenum array), (array), Enum(array))
RECORD(void, glDisableClientState, (GLenum array), (array), Enum(array))
RECORD(void, glVertexPointer, (GLint size, GLenum type, GLsizei stride, const GLvoid* array),
       (size, type, stride, array), Num(size), Enum(type), Num(stride), Ptr(array))
RECORD(void, glColorPointer, (GLint size, GLenum type, GLsizei stride, const GLvoid* array),
       (size, type, stride, array), Num(size), Enum(type), Num(stride), Ptr(array))
RECORD(void, glTexCoordPointer, (GLint size, GLenum type, GLsizei stride, const GLvoid* array),
       (size, type, stride, array), Num(size), Enum(type), Num(stride), Ptr(array))
RECORD(void, glNormalPointer, (GLenum type, GLsizei stride, const GLvoid* array), (type, stride, array),
       Enum(type), Num(stride), Ptr(array))
RECORD_AND(NoteDraw(mode, count, nullptr), void, glDrawArrays, (GLenum mode, GLint first, GLsizei count),
           (mode, first, count), Primitive(mode), Num(first), Num(count))
RECORD_AND(NoteDraw(mode, count, indices), void, glDrawElements,
           (GLenum mode, GLsizei count, GLenum type, const GLvoid* indices), (mode, count, type, indices),
           Primitive(mode), Num(count), Enum(type), Ptr(indices))

// ---- Matrices and viewport

RECORD(void, glMatrixMode, (GLenum mode), (mode), Enum(mode))
RECORD(void, glLoadIdentity, (), (), )
RECORD(void, glPushMatrix, (), (), )
RECORD(void, glPopMatrix, (), (), )
RECORD(void, glMultMatrixd, (const GLdouble* m), (m), Array(m, 16))
RECORD(void, glTranslated, (GLdouble x, GLdouble y, GLdouble z), (x, y, z), Num(x), Num(y), Num(z))
RECORD(void, glTranslatef, (GLfloat x, GLfloat y, GLfloat z), (x, y, z), Num(x), Num(y), Num(z))
RECORD(void, glScaled, (GLdouble x, GLdouble y, GLdouble z), (x, y, z), Num(x), Num(y), Num(z))
RECORD(void, glRotatef, (GLfloat angle, GLfloat x, GLfloat y, GLfloat z), (angle, x, y, z), Num(angle),
       Num(x), Num(y), Num(z))
RECORD(void, glOrtho, (GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f),
       (l, r, b, t, n, f), Num(l), Num(r), Num(b), Num(t), Num(n), Num(f))
RECORD(void, glViewport, (GLint x, GLint y, GLsizei width, GLsizei height), (x, y, width, height), Num(x),
       Num(y), Num(width), Num(height))
RECORD(void, glClipPlane, (GLenum plane, const GLdouble* equation), (plane, equation), Enum(plane),
       Array(equation, 4))
RECORD(void, glDepthRange, (GLdouble nearest, GLdouble farthest), (nearest, farthest), Num(nearest),
       Num(farthest))

// ---- State

RECORD(void, glEnable, (GLenum cap), (cap), Enum(cap))
RECORD(void, glDisable, (GLenum cap), (cap), Enum(cap))
RECORD(void, glPushAttrib, (GLbitfield mask), (mask), Mask(mask))
RECORD(void, glPopAttrib, (), (), )
RECORD(void, glPushClientAttrib, (GLbitfield mask), (mask), Num(mask))
RECORD(void, glPopClientAttrib, (), (), )
RECORD(void, glBlendFunc, (GLenum source, GLenum target), (source, target), Enum(source), Enum(target))
RECORD(void, glAlphaFunc, (GLenum func, GLclampf ref), (func, ref), Enum(func), Num(ref))
RECORD(void, glDepthFunc, (GLenum func), (func), Enum(func))
RECORD(void, glDepthMask, (GLboolean flag), (flag), Num(flag))
RECORD(void, glColorMask, (GLboolean r, GLboolean g, GLboolean b, GLboolean a), (r, g, b, a), Num(r), Num(g),
       Num(b), Num(a))
RECORD(void, glLineWidth, (GLfloat width), (width), Num(width))
RECORD(void, glPolygonOffset, (GLfloat factor, GLfloat units), (factor, units), Num(factor), Num(units))
RECORD(void, glShadeModel, (GLenum mode), (mode), Enum(mode))
RECORD(void, glPixelStorei, (GLenum name, GLint value), (name, value), Enum(name), Num(value))

// ---- Light and material

RECORD(void, glLightModelf, (GLenum name, GLfloat value), (name, value), Enum(name), Num(value))
RECORD(void, glLightModeli, (GLenum name, GLint value), (name, value), Enum(name), Num(value))
RECORD(void, glLightfv, (GLenum light, GLenum name, const GLfloat* values), (light, name, values),
       Enum(light), Enum(name), Array(values, 4))
RECORD(void, glMaterialf, (GLenum face, GLenum name, GLfloat value), (face, name, value), Enum(face),
       Enum(name), Num(value))
RECORD(void, glMaterialfv, (GLenum face, GLenum name, const GLfloat* values), (face, name, values),
       Enum(face), Enum(name), Array(values, MaterialCount(name)))
RECORD(void, glColorMaterial, (GLenum face, GLenum mode), (face, mode), Enum(face), Enum(mode))

// ---- Clearing and reading

RECORD(void, glClear, (GLbitfield mask), (mask), Mask(mask))
RECORD(void, glClearColor, (GLclampf r, GLclampf g, GLclampf b, GLclampf a), (r, g, b, a), Num(r), Num(g),
       Num(b), Num(a))
RECORD(void, glClearDepth, (GLclampd depth), (depth), Num(depth))
RECORD(void, glDrawPixels, (GLsizei width, GLsizei height, GLenum format, GLenum type, const GLvoid* pixels),
       (width, height, format, type, pixels), Num(width), Num(height), Enum(format), Enum(type), Ptr(pixels))
RECORD(void, glPixelZoom, (GLfloat x, GLfloat y), (x, y), Num(x), Num(y))
RECORD(void, glReadBuffer, (GLenum buffer), (buffer), Enum(buffer))
RECORD(void, glReadPixels,
       (GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type, GLvoid* pixels),
       (x, y, width, height, format, type, pixels), Num(x), Num(y), Num(width), Num(height), Enum(format),
       Enum(type), Ptr(pixels))

// ---- Textures

RECORD(void, glBindTexture, (GLenum target, GLuint texture), (target, texture), Enum(target), Num(texture))
RECORD(void, glTexParameteri, (GLenum target, GLenum name, GLint value), (target, name, value), Enum(target),
       Enum(name), Enum(static_cast<GLenum>(value)))
RECORD(void, glTexGeni, (GLenum coordinate, GLenum name, GLint value), (coordinate, name, value),
       Enum(coordinate), Enum(name), Enum(static_cast<GLenum>(value)))
RECORD(void, glTexGenfv, (GLenum coordinate, GLenum name, const GLfloat* values), (coordinate, name, values),
       Enum(coordinate), Enum(name), Array(values, 4))
RECORD(void, glTexImage2D,
       (GLenum target, GLint level, GLint stored, GLsizei width, GLsizei height, GLint border, GLenum format,
        GLenum type, const GLvoid* pixels),
       (target, level, stored, width, height, border, format, type, pixels), Enum(target), Num(level),
       Enum(static_cast<GLenum>(stored)), Num(width), Num(height), Num(border), Enum(format), Enum(type),
       Ptr(pixels))
RECORD(void, glTexSubImage2D,
       (GLenum target, GLint level, GLint x, GLint y, GLsizei width, GLsizei height, GLenum format,
        GLenum type, const GLvoid* pixels),
       (target, level, x, y, width, height, format, type, pixels), Enum(target), Num(level), Num(x), Num(y),
       Num(width), Num(height), Enum(format), Enum(type), Ptr(pixels))

// ---- Display lists

RECORD(void, glListBase, (GLuint base), (base), Num(base))
RECORD(void, glNewList, (GLuint list, GLenum mode), (list, mode), Num(list), Enum(mode))
RECORD(void, glEndList, (), (), )
RECORD(void, glCallLists, (GLsizei count, GLenum type, const GLvoid* lists), (count, type, lists), Num(count),
       Enum(type), Ptr(lists))
RECORD(void, glBitmap,
       (GLsizei width, GLsizei height, GLfloat originX, GLfloat originY, GLfloat moveX, GLfloat moveY,
        const GLubyte* bits),
       (width, height, originX, originY, moveX, moveY, bits), Num(width), Num(height), Num(originX),
       Num(originY), Num(moveX), Num(moveY), Ptr(bits))

// ---- Questions

RECORD(void, glGetDoublev, (GLenum name, GLdouble* values), (name, values), Enum(name), Ptr(values))
RECORD(void, glGetFloatv, (GLenum name, GLfloat* values), (name, values), Enum(name), Ptr(values))
RECORD(void, glGetIntegerv, (GLenum name, GLint* values), (name, values), Enum(name), Ptr(values))
RECORD(GLboolean, glIsEnabled, (GLenum cap), (cap), Enum(cap))
RECORD(GLenum, glGetError, (), (), )
RECORD(const GLubyte*, glGetString, (GLenum name), (name), Enum(name))
RECORD(GLint, gluProject,
       (GLdouble x, GLdouble y, GLdouble z, const GLdouble* modelView, const GLdouble* projection,
        const GLint* viewport, GLdouble* outX, GLdouble* outY, GLdouble* outZ),
       (x, y, z, modelView, projection, viewport, outX, outY, outZ), Num(x), Num(y), Num(z))
RECORD(GLint, gluUnProject,
       (GLdouble x, GLdouble y, GLdouble z, const GLdouble* modelView, const GLdouble* projection,
        const GLint* viewport, GLdouble* outX, GLdouble* outY, GLdouble* outZ),
       (x, y, z, modelView, projection, viewport, outX, outY, outZ), Num(x), Num(y), Num(z))

// ---- What the window-system layer alone calls: drivers may allocate in it

RECORD(void, glFinish, (), (), )
RECORD(void, glPixelTransferf, (GLenum name, GLfloat value), (name, value), Enum(name), Num(value))
RECORD(void, glPixelTransferi, (GLenum name, GLint value), (name, value), Enum(name), Num(value))

// ---- What makes and deletes. The third word is the name on these lines too, for the build.

#define RECORD_OWN(result, name, parameters)                                                                 \
    extern "C" result __real_##name parameters;                                                              \
    extern "C" [[gnu::visibility("default")]] result __wrap_##name parameters;                               \
    extern "C" result __wrap_##name parameters

RECORD_OWN(void, glGenTextures, (GLsizei count, GLuint* names)) {
    NoteGlCall("glGenTextures", {Num(count)});
    const InsideDriver inside;
    __real_glGenTextures(count, names);
    for (GLsizei i = 0; i < count; ++i)
        if (names[i] != 0) KivoTest::Take("texture", CurrentOwner(), names[i]);
}

RECORD_OWN(void, glDeleteTextures, (GLsizei count, const GLuint* names)) {
    NoteGlCall("glDeleteTextures", {Num(count), Num(names[0])});
    const InsideDriver inside;
    for (GLsizei i = 0; i < count; ++i)
        KivoTest::GiveBack("texture", CurrentOwner(), names[i]);
    __real_glDeleteTextures(count, names);
}

RECORD_OWN(GLuint, glGenLists, (GLsizei range)) {
    NoteGlCall("glGenLists", {Num(range)});
    const InsideDriver inside;
    const GLuint first = __real_glGenLists(range);
    for (GLsizei i = 0; i < range && first != 0; ++i)
        KivoTest::Take("display list", CurrentOwner(), first + static_cast<GLuint>(i));
    return first;
}

RECORD_OWN(void, glDeleteLists, (GLuint first, GLsizei range)) {
    NoteGlCall("glDeleteLists", {Num(first), Num(range)});
    const InsideDriver inside;
    for (GLsizei i = 0; i < range; ++i)
        KivoTest::GiveBack("display list", CurrentOwner(), first + static_cast<GLuint>(i));
    __real_glDeleteLists(first, range);
}
