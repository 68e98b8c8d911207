// KivoHost.h and KivoPlatform.h: what hosts of windows need.
#include "Bindings.h"

#include <KivoHost.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

namespace KivoPython {

namespace {

/// CKeepContext as a context manager, which Python may forget to leave, or leave elsewhere.
class Kept {
public:
    Kept() = default;
    ~Kept() {
        if (m_thread != std::this_thread::get_id()) (void)m_kept.release(); // ends in its thread or never
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    void Enter() {
        if (m_kept) throw std::runtime_error("keep_context: the context is being kept");
        m_kept = std::make_unique<Kivo::CKeepContext>();
        m_thread = std::this_thread::get_id();
    }
    void Exit() {
        if (m_kept && m_thread != std::this_thread::get_id())
            throw std::runtime_error("keep_context: left in another thread than entered");
        m_kept.reset();
    }

private:
    std::unique_ptr<Kivo::CKeepContext> m_kept;
    std::thread::id m_thread;
};

} // namespace

void BindHost(py::module_& module) {
    module.def("key_state", &Kivo::KeyState, Doc("KeyState"), "left"_a = false, "middle"_a = false,
               "right"_a = false, "shift"_a = false, "control"_a = false);
    module.def("to_pixels", py::overload_cast<double, double>(&Kivo::ToPixels), Doc("ToPixels"), "length"_a,
               "scale"_a);
    module.def(
        "to_pixels",
        [](double x, double y, double scale) {
            const Kivo::POINT place = Kivo::ToPixels(x, y, scale);
            return Place{place.x, place.y};
        },
        Doc("ToPixels", 1), "x"_a, "y"_a, "scale"_a);
    module.def(
        "wheel_steps",
        [](int remainder, int delta) {
            const int steps = Kivo::WheelSteps(remainder, delta);
            return std::pair{steps, remainder};
        },
        Doc("WheelSteps"), "remainder"_a, "delta"_a);
    py::class_<Kept>(module, "KeptContext", "What keep_context returns.", py::custom_type_setup(ForbidNew))
        .def("__enter__", &Kept::Enter)
        .def("__exit__", [](Kept& self, const py::args&) { self.Exit(); });
    module.def(
        "keep_context", [] { return std::make_unique<Kept>(); }, Doc("CKeepContext"));
    module.attr("MK_LBUTTON") = Kivo::MK_LBUTTON;
    module.attr("MK_RBUTTON") = Kivo::MK_RBUTTON;
    module.attr("MK_SHIFT") = Kivo::MK_SHIFT;
    module.attr("MK_CONTROL") = Kivo::MK_CONTROL;
    module.attr("MK_MBUTTON") = Kivo::MK_MBUTTON;
}

} // namespace KivoPython
