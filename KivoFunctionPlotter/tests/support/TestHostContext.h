// OpenGL as a host has it beside the plotter: a context and a surface of its own, that the library does not
// know.
#pragma once

#include <memory>

namespace KivoTest {

/// A context of EGL, on Windows of WGL, with a surface of 8 x 8 pixels.
class TestHostContext {
public:
    TestHostContext();
    ~TestHostContext();
    TestHostContext(const TestHostContext&) = delete;
    TestHostContext& operator=(const TestHostContext&) = delete;

    bool MakeCurrent();
    /// Whether it is current with its own surface.
    bool IsCurrent() const;
    /// No context of anybody's is current in this thread afterwards.
    static void Unbind();
    static bool IsNoneCurrent();

private:
    struct Handles;
    std::unique_ptr<Handles> m_handles;
};

} // namespace KivoTest
