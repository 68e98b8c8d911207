// Drawing arrays that are longer than one call of OpenGL takes: its counts are signed and have 32 bits.
#pragma once

#include "computing/DrawingStop.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstddef>

namespace KivoDrawingTools {

/// Elements in one call: the most that leave both triangles and lines whole.
constexpr std::size_t mostElements = 2147483646;
/// Elements between two questions whether to go on, a multiple of 6: some milliseconds in software.
constexpr std::size_t elementsAtATime = 6 * 32768;

/// Draws triangles or lines by their indices, in as many calls as it takes; a count of 0 takes one.
/// @param limit  elements in one call, a multiple of 6
inline void DrawIndexed(GLenum primitive, const unsigned int* indices, std::size_t count,
                        std::size_t limit = mostElements) {
    std::size_t start = 0;
    do {
        const std::size_t part = std::min(count - start, limit);
        glDrawElements(primitive, static_cast<GLsizei>(part), GL_UNSIGNED_INT, indices + start);
        start += part;
    } while (start < count);
}

/// The same, asking between parts whether to leave the rest.
/// @param stop  null: nobody is asked
inline void DrawIndexed(GLenum primitive, const unsigned int* indices, std::size_t count, DrawingStop* stop) {
    if (!stop) return DrawIndexed(primitive, indices, count);
    for (std::size_t start = 0; start < count && !stop->IsWanted(); start += elementsAtATime)
        DrawIndexed(primitive, indices + start, std::min(count - start, elementsAtATime));
}

/// Draws lines between points of three floats, a pair for each, in the same way; the vertex array is on.
inline void DrawLines(const float* points, std::size_t count, std::size_t limit = mostElements) {
    std::size_t start = 0;
    do {
        const std::size_t part = std::min(count - start, limit);
        glVertexPointer(3, GL_FLOAT, 0, points + 3 * start);
        glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(part));
        start += part;
    } while (start < count);
}

/// The same, asking between parts whether to leave the rest.
/// @param stop  null: nobody is asked
inline void DrawLines(const float* points, std::size_t count, DrawingStop* stop) {
    if (!stop) return DrawLines(points, count);
    for (std::size_t start = 0; start < count && !stop->IsWanted(); start += elementsAtATime)
        DrawLines(points + 3 * start, std::min(count - start, elementsAtATime));
}

/// Calls the display lists that bytes name, in the same way.
inline void CallLists(const char* names, std::size_t count, std::size_t limit = mostElements) {
    std::size_t start = 0;
    do {
        const std::size_t part = std::min(count - start, limit);
        glCallLists(static_cast<GLsizei>(part), GL_UNSIGNED_BYTE, names + start);
        start += part;
    } while (start < count);
}

/// A count that a field keeps, as a whole.
/// @param kept   the field, which may be too narrow for it
/// @param whole  what was counted when the field was set
/// @return whole where the field still holds its lower bits; else what has been put there, or 0 below that
template <typename Field>
std::size_t WholeCount(Field kept, std::size_t whole) {
    if (static_cast<Field>(whole) == kept) return whole;
    return kept > 0 ? static_cast<std::size_t>(kept) : 0;
}

} // namespace KivoDrawingTools
