// KivoWindow.h: windows to plot in.
#include "Bindings.h"

#include <optional>

namespace KivoPython {

namespace {

std::unique_ptr<Window> Attach(unsigned long window, const std::optional<std::string>& display) {
    return std::make_unique<Window>(
        [&] { return Kivo::AttachX11Window(window, display ? display->c_str() : nullptr); });
}

std::unique_ptr<Window> Offscreen(int width, int height, int dpi) {
    return std::make_unique<Window>([&] { return Kivo::CreateOffscreenWindow(width, height, dpi); });
}

// What is refused here is refused without words of the library's.
void Require(int result, const char* what) {
    if (result != 0) throw py::value_error(what);
}

} // namespace

void BindWindow(py::module_& module) {
    py::class_<Window>(module, "Window",
                       "A window that a plotter draws into, made by attach_x11_window or "
                       "create_offscreen_window. It is given back when nothing refers to it any more.",
                       py::custom_type_setup(ForbidNew))
        .def(
            "resize",
            [](Window& self, int width, int height) {
                Require(self.Call([&](Kivo::HWND window) {
                    return Kivo::ResizeOffscreenWindow(window, width, height);
                }),
                        "resize: no window that create_offscreen_window made, or a size beyond 1 to 16384");
            },
            Doc("ResizeOffscreenWindow"), "width"_a, "height"_a)
        .def_property(
            "dpi", [](Window& self) { return self.Call(Kivo::GetWindowDpi); },
            [](Window& self, int dpi) {
                Require(self.Call([&](Kivo::HWND window) { return Kivo::SetOffscreenDpi(window, dpi); }),
                        "dpi: no window that create_offscreen_window made, or dots beyond 1 to 1200");
            },
            Doc("GetWindowDpi"))
        .def_property(
            "smoothing", [](Window& self) { return self.Call(Kivo::GetWindowSmoothing); },
            [](Window& self, int factor) {
                Require(
                    self.Call([&](Kivo::HWND window) { return Kivo::SetWindowSmoothing(window, factor); }),
                    "smoothing: expected 1 to 4, and a window that has not been released");
            },
            Doc("SetWindowSmoothing"))
        .def(
            "release", [](Window& self) { Require(self.Release(), "release: the window has been released"); },
            Doc("ReleaseWindow"));
    module.def("attach_x11_window", &Attach, Doc("AttachX11Window"), "window"_a,
               "display_name"_a = py::none());
    module.def("create_offscreen_window", &Offscreen, Doc("CreateOffscreenWindow"), "width"_a, "height"_a,
               "dpi"_a = 96);
    module.def(
        "last_window_error", [] { return std::string(Kivo::LastWindowError()); }, Doc("LastWindowError"));
}

} // namespace KivoPython
