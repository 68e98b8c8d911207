#include "CallRecorder.h"

#include "AllocationFaults.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace KivoTest {

namespace {

CallRecorder* running = nullptr;
thread_local int depth = 0;

const std::map<unsigned int, const char*>& ConstantNames() {
#define KIVO_CONSTANT(name)                                                                                  \
    { name, #name }
    static const std::map<unsigned int, const char*> names = {
        KIVO_CONSTANT(GL_ALPHA_TEST),
        KIVO_CONSTANT(GL_ALWAYS),
        KIVO_CONSTANT(GL_AMBIENT),
        KIVO_CONSTANT(GL_AMBIENT_AND_DIFFUSE),
        KIVO_CONSTANT(GL_BACK),
        KIVO_CONSTANT(GL_BLEND),
        KIVO_CONSTANT(GL_CLIENT_PIXEL_STORE_BIT),
        KIVO_CONSTANT(GL_COLOR_ARRAY),
        KIVO_CONSTANT(GL_COLOR_MATERIAL),
        KIVO_CONSTANT(GL_DEPTH_TEST),
        KIVO_CONSTANT(GL_DIFFUSE),
        KIVO_CONSTANT(GL_FLOAT),
        KIVO_CONSTANT(GL_FRONT_AND_BACK),
        KIVO_CONSTANT(GL_GREATER),
        KIVO_CONSTANT(GL_LIGHT0),
        KIVO_CONSTANT(GL_LIGHT1),
        KIVO_CONSTANT(GL_LIGHTING),
        KIVO_CONSTANT(GL_LIGHT_MODEL_LOCAL_VIEWER),
        KIVO_CONSTANT(GL_LIGHT_MODEL_TWO_SIDE),
        KIVO_CONSTANT(GL_LINEAR),
        KIVO_CONSTANT(GL_MATRIX_MODE),
        KIVO_CONSTANT(GL_MODELVIEW),
        KIVO_CONSTANT(GL_MODELVIEW_MATRIX),
        KIVO_CONSTANT(GL_NEAREST),
        KIVO_CONSTANT(GL_NORMALIZE),
        KIVO_CONSTANT(GL_NORMAL_ARRAY),
        KIVO_CONSTANT(GL_ONE_MINUS_SRC_ALPHA),
        KIVO_CONSTANT(GL_POLYGON_OFFSET_FILL),
        KIVO_CONSTANT(GL_POSITION),
        KIVO_CONSTANT(GL_PROJECTION),
        KIVO_CONSTANT(GL_PROJECTION_MATRIX),
        KIVO_CONSTANT(GL_READ_BUFFER),
        KIVO_CONSTANT(GL_REPEAT),
        KIVO_CONSTANT(GL_RGBA),
        KIVO_CONSTANT(GL_RGBA8),
        KIVO_CONSTANT(GL_SHININESS),
        KIVO_CONSTANT(GL_SMOOTH),
        KIVO_CONSTANT(GL_SPECULAR),
        KIVO_CONSTANT(GL_SRC_ALPHA),
        KIVO_CONSTANT(GL_TEXTURE),
        KIVO_CONSTANT(GL_TEXTURE_2D),
        KIVO_CONSTANT(GL_TEXTURE_COORD_ARRAY),
        KIVO_CONSTANT(GL_TEXTURE_MAG_FILTER),
        KIVO_CONSTANT(GL_TEXTURE_MIN_FILTER),
        KIVO_CONSTANT(GL_TEXTURE_WRAP_S),
        KIVO_CONSTANT(GL_TEXTURE_WRAP_T),
        KIVO_CONSTANT(GL_UNSIGNED_BYTE),
        KIVO_CONSTANT(GL_UNSIGNED_INT),
        KIVO_CONSTANT(GL_VERTEX_ARRAY),
        KIVO_CONSTANT(GL_VIEWPORT),
    };
    return names;
}

const std::map<unsigned int, const char*>& PrimitiveNames() {
    static const std::map<unsigned int, const char*> names = {
        KIVO_CONSTANT(GL_LINES), KIVO_CONSTANT(GL_LINE_LOOP), KIVO_CONSTANT(GL_TRIANGLES),
        KIVO_CONSTANT(GL_QUADS)};
    return names;
}

// Attribute groups and buffers share their values; the list bit is the only one without a buffer's name here.
const std::map<unsigned int, const char*>& MaskNames() {
    static const std::map<unsigned int, const char*> names = {
        KIVO_CONSTANT(GL_DEPTH_BUFFER_BIT), KIVO_CONSTANT(GL_VIEWPORT_BIT), KIVO_CONSTANT(GL_ENABLE_BIT),
        KIVO_CONSTANT(GL_COLOR_BUFFER_BIT), KIVO_CONSTANT(GL_LIST_BIT)};
#undef KIVO_CONSTANT
    return names;
}

// Without the sign of zero and of what is no number, which says nothing.
std::string NumberText(double number) {
    if (std::isnan(number)) return "nan";
    const bool isWhole = std::fabs(number) < 1e15 && std::floor(number) == number;
    char text[40];
    std::snprintf(text, sizeof text, isWhole ? "%.0f" : "%.6g", number == 0.0 ? 0.0 : number);
    return text;
}

std::string NameIn(const std::map<unsigned int, const char*>& names, unsigned int value) {
    const auto found = names.find(value);
    return found != names.end() ? found->second : NumberText(value);
}

std::string MaskText(unsigned int mask) {
    std::string text;
    for (const auto& [bit, name] : MaskNames())
        if ((mask & bit) != 0) {
            text += (text.empty() ? "" : " | ") + std::string(name);
            mask &= ~bit;
        }
    if (mask != 0 || text.empty()) text += (text.empty() ? "" : " | ") + NumberText(mask);
    return text;
}

RecordedCall::Value Copy(const Argument& argument) {
    RecordedCall::Value value = {argument, {}, {}};
    for (std::size_t i = 0; i < argument.count; ++i) {
        if (argument.kind == Argument::Kind::floats)
            value.elements.push_back(static_cast<double>(static_cast<const float*>(argument.pointer)[i]));
        else if (argument.kind == Argument::Kind::doubles)
            value.elements.push_back(static_cast<const double*>(argument.pointer)[i]);
        else
            value.text += static_cast<const char*>(argument.pointer)[i];
    }
    return value;
}

std::string ArrayText(const std::vector<double>& values) {
    std::string text = "{";
    for (const double value : values)
        text += (text.size() > 1 ? ", " : "") + NumberText(value);
    return text + "}";
}

template <typename Value, std::size_t count>
std::array<Value, count> Read(void (*read)(GLenum, Value*), GLenum name) {
    std::array<Value, count> values = {};
    read(name, values.data());
    return values;
}

int Integer(GLenum name) {
    return Read<GLint, 1>(glGetIntegerv, name)[0];
}

float Float(GLenum name) {
    return Read<GLfloat, 1>(glGetFloatv, name)[0];
}

DrawState CurrentState() {
    DrawState s = {};
    s.lighting = glIsEnabled(GL_LIGHTING);
    s.depthTest = glIsEnabled(GL_DEPTH_TEST);
    s.blend = glIsEnabled(GL_BLEND);
    s.texture = glIsEnabled(GL_TEXTURE_2D);
    s.alphaTest = glIsEnabled(GL_ALPHA_TEST);
    s.polygonOffset = glIsEnabled(GL_POLYGON_OFFSET_FILL);
    s.normalize = glIsEnabled(GL_NORMALIZE);
    s.vertexArray = glIsEnabled(GL_VERTEX_ARRAY);
    s.normalArray = glIsEnabled(GL_NORMAL_ARRAY);
    s.colorArray = glIsEnabled(GL_COLOR_ARRAY);
    s.texcoordArray = glIsEnabled(GL_TEXTURE_COORD_ARRAY);
    s.colorMask = Read<GLint, 4>(glGetIntegerv, GL_COLOR_WRITEMASK)[0] != 0;
    s.boundTexture = Integer(GL_TEXTURE_BINDING_2D);
    s.blendSource = Integer(GL_BLEND_SRC);
    s.blendTarget = Integer(GL_BLEND_DST);
    s.depthFunc = Integer(GL_DEPTH_FUNC);
    s.matrixMode = Integer(GL_MATRIX_MODE);
    s.lineWidth = Float(GL_LINE_WIDTH);
    s.offsetFactor = Float(GL_POLYGON_OFFSET_FACTOR);
    s.offsetUnits = Float(GL_POLYGON_OFFSET_UNITS);
    s.depthRange = Read<GLdouble, 2>(glGetDoublev, GL_DEPTH_RANGE);
    s.viewport = Read<GLint, 4>(glGetIntegerv, GL_VIEWPORT);
    s.modelView = Read<GLdouble, 16>(glGetDoublev, GL_MODELVIEW_MATRIX);
    s.projection = Read<GLdouble, 16>(glGetDoublev, GL_PROJECTION_MATRIX);
    s.color = Read<GLfloat, 4>(glGetFloatv, GL_CURRENT_COLOR);
    return s;
}

const void* ArrayPointer(GLenum name) {
    void* pointer = nullptr;
    glGetPointerv(name, &pointer);
    return pointer;
}

bool IsQuestion(const std::string& name) {
    return name.rfind("glGet", 0) == 0 || name == "glIsEnabled" || name.rfind("glu", 0) == 0 ||
           name == "GetACP" || name == "IsDBCSLeadByte";
}

} // namespace

// ---- Arguments

Argument Num(double value) {
    return {Argument::Kind::number, value, nullptr, 0};
}

Argument Enum(unsigned int value) {
    return {Argument::Kind::enumerant, static_cast<double>(value), nullptr, 0};
}

Argument Primitive(unsigned int value) {
    return {Argument::Kind::primitive, static_cast<double>(value), nullptr, 0};
}

Argument Mask(unsigned int value) {
    return {Argument::Kind::mask, static_cast<double>(value), nullptr, 0};
}

Argument Ptr(const void* value) {
    return {Argument::Kind::pointer, 0.0, value, 0};
}

Argument Array(const float* values, std::size_t count) {
    return {Argument::Kind::floats, 0.0, values, count};
}

Argument Array(const double* values, std::size_t count) {
    return {Argument::Kind::doubles, 0.0, values, count};
}

Argument Text(const char* characters, std::size_t count) {
    return {Argument::Kind::text, 0.0, characters, count};
}

// ---- The recorder

CallRecorder::CallRecorder() {
    if (running) throw std::logic_error("two call recorders at a time");
    running = this;
}

CallRecorder::~CallRecorder() {
    Stop();
}

void CallRecorder::Stop() {
    if (m_isRunning) running = nullptr;
    m_isRunning = false;
}

CallRecorder* CallRecorder::Active() {
    return depth == 0 ? running : nullptr;
}

void CallRecorder::Add(const char* name, std::initializer_list<Argument> arguments, bool isOperation) {
    const InsideWrapped inside;
    const WithoutAllocationFaults reliable;
    RecordedCall call = {name, isOperation, KivoDrawingTools::wglGetCurrentContext() != nullptr, {}};
    for (const Argument& argument : arguments)
        call.values.push_back(Copy(argument));
    m_calls.push_back(std::move(call));
}

void CallRecorder::BeginDraw(unsigned int primitive, int count, const void* indices) {
    const InsideWrapped inside;
    const WithoutAllocationFaults reliable;
    RecordedDraw draw = {};
    draw.call = m_calls.size() - 1;
    draw.primitive = primitive;
    draw.state = CurrentState();
    draw.count = count;
    draw.indices = indices;
    draw.vertexArray = ArrayPointer(GL_VERTEX_ARRAY_POINTER);
    draw.colorArray = ArrayPointer(GL_COLOR_ARRAY_POINTER);
    draw.normalArray = ArrayPointer(GL_NORMAL_ARRAY_POINTER);
    draw.texcoordArray = ArrayPointer(GL_TEXTURE_COORD_ARRAY_POINTER);
    m_color = draw.state.color;
    m_draws.push_back(std::move(draw));
}

void CallRecorder::AddVertex(double x, double y, double z) {
    const WithoutAllocationFaults reliable;
    if (m_draws.empty()) throw std::logic_error("a vertex outside glBegin");
    RecordedDraw& draw = m_draws.back();
    draw.vertices.push_back({{x, y, z}, m_color, m_texcoord});
    draw.count = static_cast<int>(draw.vertices.size());
}

void CallRecorder::SetColor(const float* rgba) {
    std::copy(rgba, rgba + 4, m_color.begin());
}

void CallRecorder::SetTexcoord(float s, float t) {
    m_texcoord = {s, t};
}

// ---- What was noted

std::vector<double> RecordedCall::Numbers() const {
    std::vector<double> numbers;
    for (const Value& value : values) {
        const Argument::Kind kind = value.argument.kind;
        numbers.insert(numbers.end(), value.elements.begin(), value.elements.end());
        if (value.elements.empty() && kind != Argument::Kind::pointer && kind != Argument::Kind::text)
            numbers.push_back(value.argument.number);
    }
    return numbers;
}

const void* RecordedCall::Pointer(std::size_t n) const {
    for (const Value& value : values)
        if (value.argument.kind == Argument::Kind::pointer && n-- == 0) return value.argument.pointer;
    throw std::out_of_range("a call with fewer addresses");
}

std::string CallRecorder::TextOf(const RecordedCall::Value& value) const {
    const auto constant = [&] { return static_cast<unsigned int>(value.argument.number); };
    switch (value.argument.kind) {
    case Argument::Kind::enumerant:
        return NameIn(ConstantNames(), constant());
    case Argument::Kind::primitive:
        return NameIn(PrimitiveNames(), constant());
    case Argument::Kind::mask:
        return MaskText(constant());
    case Argument::Kind::pointer: {
        const auto found = m_names.find(value.argument.pointer);
        if (found != m_names.end()) return found->second;
        return value.argument.pointer ? "address" : "null";
    }
    case Argument::Kind::floats:
    case Argument::Kind::doubles:
        return ArrayText(value.elements);
    case Argument::Kind::text:
        return '"' + value.text + '"';
    default:
        return NumberText(value.argument.number);
    }
}

std::string CallRecorder::TextOf(const RecordedCall& call) const {
    std::string text;
    for (const RecordedCall::Value& value : call.values)
        text += (text.empty() ? "" : ", ") + TextOf(value);
    return call.name + "(" + text + ")";
}

std::vector<std::string> CallRecorder::Texts() const {
    std::vector<std::string> texts;
    for (const RecordedCall& call : m_calls)
        if (!IsQuestion(call.name)) texts.push_back(TextOf(call));
    return texts;
}

std::vector<std::string> CallRecorder::TextsOf(std::initializer_list<const char*> names) const {
    std::vector<std::string> texts;
    for (const RecordedCall& call : m_calls)
        if (std::find(names.begin(), names.end(), call.name) != names.end()) texts.push_back(TextOf(call));
    return texts;
}

std::vector<std::string> CallRecorder::OperationTexts() const {
    std::vector<std::string> texts;
    for (const RecordedCall& call : m_calls)
        if (call.isOperation) texts.push_back(TextOf(call));
    return texts;
}

int CallRecorder::Count(const std::string& name) const {
    return static_cast<int>(std::count_if(m_calls.begin(), m_calls.end(),
                                          [&](const RecordedCall& call) { return call.name == name; }));
}

std::string CallText(const std::string& name, std::initializer_list<Argument> arguments) {
    std::string text;
    for (const Argument& argument : arguments) {
        const RecordedCall::Value value = Copy(argument);
        const bool isArray =
            argument.kind == Argument::Kind::floats || argument.kind == Argument::Kind::doubles;
        text += text.empty() ? "" : ", ";
        text += isArray ? ArrayText(value.elements) : NumberText(argument.number);
    }
    return name + "(" + text + ")";
}

// ---- Inside wrapped functions

InsideWrapped::InsideWrapped() {
    ++depth;
}

InsideWrapped::~InsideWrapped() {
    --depth;
}

bool InsideWrapped::IsInside() {
    return depth > 0;
}

void NoteGlCall(const char* name, std::initializer_list<Argument> arguments) {
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->Add(name, arguments, false);
}

} // namespace KivoTest
