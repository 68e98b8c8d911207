// Loaded into a program with GLFW before everything else: it is told of three steps of the wheel where there
// was one, in one event.
#include <dlfcn.h>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace {

GLFWscrollfun hostsCallback = nullptr;

void CallHost(GLFWwindow* window, double x, double y) {
    hostsCallback(window, 3 * x, 3 * y);
}

} // namespace

extern "C" __attribute__((visibility("default"))) GLFWscrollfun
glfwSetScrollCallback(GLFWwindow* window, GLFWscrollfun callback) {
    using Function = decltype(&glfwSetScrollCallback);
    const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glfwSetScrollCallback"));
    hostsCallback = callback;
    return original(window, callback ? CallHost : nullptr);
}
