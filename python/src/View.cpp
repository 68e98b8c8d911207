// Camera, mouse and trace.
#include "Bindings.h"

namespace KivoPython {

namespace {

std::optional<std::array<float, 3>> TracePoint(Plotter& self) {
    std::array<float, 3> point = {};
    if (!self.Call([&](Class& plotter) { return plotter.GetTracePoint(point.data()); })) return std::nullopt;
    return point;
}

bool TraceAt(Plotter& self, const Place& place) {
    return self.Call([&](Class& plotter) {
        return plotter.Trace(Kivo::POINT{place.first, place.second}) == 0;
    });
}

} // namespace

void BindView(Members& members) {
    members.Get("AutoAdjustAxisLengthRatio", &Class::AutoAdjustAxisLengthRatio)
        .Get("OnLButtonDown", &Class::OnLButtonDown, "flags"_a, "pt"_a)
        .Get("OnLButtonUp", &Class::OnLButtonUp, "flags"_a, "pt"_a)
        .Get("OnRButtonDown", &Class::OnRButtonDown, "flags"_a, "pt"_a)
        .Get("OnRButtonUp", &Class::OnRButtonUp, "flags"_a, "pt"_a)
        .Get("OnMouseMove", &Class::OnMouseMove, "flags"_a, "pt"_a)
        .Get("OnMouseWheel", &Class::OnMouseWheel, "flags"_a, "delta"_a, "pt"_a)
        .Get("Rotate", &Class::Rotate, "start"_a, "end"_a)
        .Get("Translate", &Class::Translate, "start"_a, "end"_a)
        .Get("Zoom", py::overload_cast<float>(&Class::Zoom), "factor"_a)
        .Do("Trace", py::overload_cast<bool>(&Class::Trace), py::arg("enable").noconvert())
        .Add("Trace", &TraceAt, "pt"_a)
        .Get("IsTracing", &Class::IsTracing)
        .Add("GetTracePoint", &TracePoint)
        .Add(
            "Trace_New",
            [](Plotter& self, const Place& place) {
                return self.Call([&](Class& plotter) {
                    return plotter.Trace_New(Kivo::POINT{place.first, place.second}) == 0;
                });
            },
            "pt"_a);
}

} // namespace KivoPython
