// What the plotter calls: OpenGL, GLU and the operations of the window system, in order, with their arguments
// and the state under which something is drawn.
//
// A program that links this support has its calls redirected by the linker (--wrap) to the wrappers in
// RecordedGl.cpp, RecordedOperations.cpp and GuardedEgl.cpp, which note the call and forward it. What a
// wrapped function calls in turn is its own business and not noted.
#pragma once

#include "window_system/WindowSystem.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace KivoTest {

/// An argument of a call; says how it is written down.
struct Argument {
    enum class Kind { number, enumerant, primitive, mask, pointer, floats, doubles, text };
    Kind kind;
    double number = 0.0;
    const void* pointer = nullptr;
    std::size_t count = 0; ///< of the elements that a pointer leads to
};

Argument Num(double value);             ///< a number
Argument Enum(unsigned int value);      ///< a constant of OpenGL, such as GL_LIGHTING
Argument Primitive(unsigned int value); ///< what glBegin takes, such as GL_QUADS
Argument Mask(unsigned int value);      ///< attribute groups or buffers
Argument Ptr(const void* value);        ///< an address or a handle
/// Floats or doubles that are copied.
Argument Array(const float* values, std::size_t count);
Argument Array(const double* values, std::size_t count); ///< as above
/// Characters, which appear in quotation marks.
Argument Text(const char* characters, std::size_t count);

/// One call.
struct RecordedCall {
    /// An argument, with copies of what it leads to.
    struct Value {
        Argument argument;
        std::vector<double> elements; ///< of arrays
        std::string text;
    };

    std::string name;
    bool isOperation; ///< of the window system
    bool hasContext;  ///< whether an OpenGL context was current
    std::vector<Value> values;

    /// All numbers among the arguments, those of arrays one by one.
    std::vector<double> Numbers() const;
    /// The n-th address among the arguments.
    const void* Pointer(std::size_t n) const;
};

/// A point handed over between glBegin and glEnd.
struct RecordedVertex {
    std::array<double, 3> position;
    std::array<float, 4> color;
    std::array<float, 2> texcoord;
};

/// The state that decides how something is drawn, read from OpenGL when the drawing begins.
struct DrawState {
    bool lighting, depthTest, blend, texture, alphaTest, polygonOffset, normalize;
    bool vertexArray, normalArray, colorArray, texcoordArray;
    bool colorMask; ///< whether colours are written
    int boundTexture;
    int blendSource, blendTarget;
    int depthFunc;
    int matrixMode;
    float lineWidth;
    float offsetFactor, offsetUnits;
    std::array<double, 2> depthRange;
    std::array<int, 4> viewport;
    std::array<double, 16> modelView, projection;
    std::array<float, 4> color;
};

/// What one glBegin to glEnd, glDrawElements or glDrawArrays draws.
struct RecordedDraw {
    std::size_t call; ///< index of the call that begins it
    unsigned int primitive;
    DrawState state;
    std::vector<RecordedVertex> vertices; ///< of glBegin to glEnd
    int count = 0;                        ///< of the array calls; vertices.size() else
    const void* indices = nullptr;        ///< of glDrawElements
    const void* vertexArray = nullptr;    ///< the array pointers set at the time
    const void* colorArray = nullptr;
    const void* normalArray = nullptr;
    const void* texcoordArray = nullptr;
};

/// Notes calls for as long as it lives; one at a time.
class CallRecorder {
public:
    CallRecorder();
    ~CallRecorder();
    CallRecorder(const CallRecorder&) = delete;
    CallRecorder& operator=(const CallRecorder&) = delete;

    /// Gives an address a name for the texts.
    void Name(const void* address, const std::string& name) { m_names[address] = name; }
    /// Ends the noting; the calls remain.
    void Stop();

    const std::vector<RecordedCall>& Calls() const { return m_calls; }
    const std::vector<RecordedDraw>& Draws() const { return m_draws; }
    /// A call in the form glTranslatef(1, 0.5, 0): numbers with six digits, constants by their names,
    /// addresses by the names that the test has given them, else "null" or "address".
    std::string TextOf(const RecordedCall& call) const;
    /// The texts of all calls but those that only ask, such as glGetIntegerv.
    std::vector<std::string> Texts() const;
    /// The texts of the calls of these names.
    std::vector<std::string> TextsOf(std::initializer_list<const char*> names) const;
    /// The texts of the window-system operations alone.
    std::vector<std::string> OperationTexts() const;
    /// Number of calls with this name.
    int Count(const std::string& name) const;

    // For the wrappers.

    static CallRecorder* Active(); ///< null while nothing is to be noted, inside a wrapped function too
    void Add(const char* name, std::initializer_list<Argument> arguments, bool isOperation);
    void BeginDraw(unsigned int primitive, int count, const void* indices);
    void AddVertex(double x, double y, double z);
    void SetColor(const float* rgba);
    void SetTexcoord(float s, float t);

private:
    std::string TextOf(const RecordedCall::Value& value) const;

    std::vector<RecordedCall> m_calls;
    std::vector<RecordedDraw> m_draws;
    std::map<const void*, std::string> m_names;
    std::array<float, 4> m_color = {};
    std::array<float, 2> m_texcoord = {};
    bool m_isRunning = true;
};

/// Notes a call of OpenGL where one is to be noted.
void NoteGlCall(const char* name, std::initializer_list<Argument> arguments);

/// Marks that the thread is inside a wrapped function, whose own calls are not noted.
class InsideWrapped {
public:
    InsideWrapped();
    ~InsideWrapped();
    InsideWrapped(const InsideWrapped&) = delete;
    InsideWrapped& operator=(const InsideWrapped&) = delete;
    static bool IsInside();
};

/// The text that a call with these arguments gets, where no address is among them.
std::string CallText(const std::string& name, std::initializer_list<Argument> arguments);

} // namespace KivoTest
