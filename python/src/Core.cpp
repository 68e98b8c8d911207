// Lifetime, window hooks, frames and plot modes.
#include "Bindings.h"

namespace KivoPython {

namespace {

void BindLifetime(Members& members) {
    members
        .Add(
            "OnCreate",
            [](Plotter& self, const Window& window, bool accelerated) {
                Check(self.Create(window, accelerated), "on_create");
            },
            "window"_a.none(false), "accelerated"_a = true)
        .Add(
            "OnCreate",
            [](Plotter& self, const Window& window, int cx, int cy, bool accelerated) {
                Check(self.Create(window, cx, cy, accelerated), "on_create");
            },
            "window"_a.none(false), "cx"_a, "cy"_a, "accelerated"_a = true)
        .Add(
            "OnCreate",
            [](Plotter& self, const Window& window, int cx, int cy, int fontSize, bool accelerated) {
                Check(self.Create(window, cx, cy, fontSize, accelerated), "on_create");
            },
            "window"_a.none(false), "cx"_a, "cy"_a, "font_size"_a, "accelerated"_a = true)
        .Add("OnDestroy", [](Plotter& self) {
            const int result = self.Call([](Class& plotter) { return plotter.OnDestroy(); });
            self.ForgetUnread();
            Check(result, "on_destroy");
        });
}

void BindFrames(Members& members) {
    members.Get("OnDraw", &Class::OnDraw)
        .Get("OnSize", &Class::OnSize, "type"_a, "cx"_a, "cy"_a)
        .Add("SetFont",
             [](Plotter& self) {
                 Check(self.Call([](Class& plotter) { return plotter.SetFont(nullptr); }), "set_font");
             })
        .Get("Renderscene", &Class::Renderscene)
        .Do("SwitchToNormalPlot", &Class::SwitchToNormalPlot)
        .Do("SwitchToXYProjectPlot", &Class::SwitchToXYProjectPlot)
        .Do("SwitchToYZProjectPlot", &Class::SwitchToYZProjectPlot)
        .Do("SwitchToZXProjectPlot", &Class::SwitchToZXProjectPlot)
        .Get("GetCurrentPlotType", &Class::GetCurrentPlotType);
}

void BindSwitches(Members& members) {
    members.Do("SetInverseXAxis", &Class::SetInverseXAxis, "inverse"_a)
        .Do("SetInverseYAxis", &Class::SetInverseYAxis, "inverse"_a)
        .Do("SetInverseZAxis", &Class::SetInverseZAxis, "inverse"_a)
        .Get("SetAutoSwitchFramePlanes", &Class::SetAutoSwitchFramePlanes, "auto_switch"_a)
        .Get("SetBackgroundColor", py::overload_cast<float, float, float, float>(&Class::SetBackgroundColor),
             "r"_a, "g"_a, "b"_a, "a"_a)
        .Get("SetBackgroundColor", py::overload_cast<unsigned long>(&Class::SetBackgroundColor), "color"_a)
        .Get("ResetBackgroundColor", &Class::ResetBackgroundColor)
        .Get("ShowFrameLines", &Class::ShowFrameLines, "show"_a)
        .Get("IsShowFrameLines", &Class::IsShowFrameLines)
        .Do("ShowXIsoContours", &Class::ShowXIsoContours, "show"_a)
        .Do("ShowYIsoContours", &Class::ShowYIsoContours, "show"_a)
        .Do("ShowZIsoContours", &Class::ShowZIsoContours, "show"_a)
        .Get("IsShowXIsoContours", &Class::IsShowXIsoContours)
        .Get("IsShowYIsoContours", &Class::IsShowYIsoContours)
        .Get("IsShowZIsoContours", &Class::IsShowZIsoContours)
        .Get("ShowGridLines", &Class::ShowGridLines, "show"_a)
        .Get("IsShowGridLines", &Class::IsShowGridLines);
}

} // namespace

void BindCore(Members& members) {
    BindLifetime(members);
    BindFrames(members);
    BindSwitches(members);
}

} // namespace KivoPython
