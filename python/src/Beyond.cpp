// The headers beyond the class: axis, colour map, legend, motion, style, surfaces, view. Contours.cpp has the
// rest.
#include "Records.h"

#include <KivoAxis.h>
#include <KivoColorMap.h>
#include <KivoMotion.h>

#include <limits>
#include <string>
#include <tuple>
#include <vector>

namespace KivoPython {

namespace {

using AnyFloats = py::array_t<float, py::array::c_style | py::array::forcecast>;

std::string ShapeText(const py::array& array) {
    return py::str(array.attr("shape")).cast<std::string>();
}

void SetFormat(Plotter& self, int axis, const py::object& format) {
    std::function<std::string(double, double)> words;
    if (!format.is_none()) {
        if (!PyCallable_Check(format.ptr()))
            throw py::type_error("set_axis_label_format: format is no function of value and step");
        words = [held = self.Hold(format)](double value, double step) { return held->Ask(value, step); };
    }
    Check(self.Call([&](Class& plotter) { return SetAxisLabelFormat(plotter, axis, std::move(words)); }),
          "set_axis_label_format");
}

void SetColorTable(Plotter& self, int axis, const std::optional<AnyFloats>& rgba) {
    unsigned int count = 0;
    if (rgba) {
        if (rgba->ndim() != 2 || rgba->shape(1) != 4 || rgba->shape(0) > 65536)
            throw py::value_error("set_color_map: rgba has the shape " + ShapeText(*rgba) +
                                  "; expected (2 to 65536, 4)");
        count = static_cast<unsigned int>(rgba->shape(0));
    }
    const float* const colors = count ? rgba->data() : nullptr;
    Check(self.Call([&](Class& plotter) { return SetColorMap(plotter, axis, colors, count); }),
          "set_color_map");
}

int AddGrid(Plotter& self, const AnyFloats& points, const py::object& record) {
    if (points.ndim() != 3 || points.shape(2) < 3)
        throw py::value_error("add_surface: points has the shape " + ShapeText(points) +
                              "; expected (rows, columns, 3) with x, y, z");
    for (int axis = 0; axis < 3; ++axis)
        if (points.shape(axis) > std::numeric_limits<int>::max())
            throw py::value_error("add_surface: more points than a plot can have");
    const Kivo::SKivoSurface surface = record.is_none() ? Kivo::SKivoSurface() : ToSurface(record);
    const auto columns = static_cast<unsigned int>(points.shape(1));
    const auto rows = static_cast<unsigned int>(points.shape(0));
    const auto components = static_cast<unsigned int>(points.shape(2));
    const float* const values = points.data();
    const int number = self.Call([&](Class& plotter) {
        return AddSurface(plotter, values, columns, rows, 1, columns, components, surface);
    });
    if (number < 0) Check(number, "add_surface");
    return number;
}

void BindAxis(Members& members) {
    members
        .Add(
            "SetAxisOrigin",
            [](Plotter& self, int axis, double origin) {
                Check(self.Call([&](Class& plotter) { return SetAxisOrigin(plotter, axis, origin); }),
                      "set_axis_origin");
            },
            "axis"_a, "origin"_a)
        .Add(
            "GetAxisOrigin",
            [](Plotter& self, int axis) {
                return self.Call([&](const Class& plotter) { return GetAxisOrigin(plotter, axis); });
            },
            "axis"_a)
        .Add("SetAxisLabelFormat", &SetFormat, "axis"_a, "format"_a);
}

void BindColorMap(Members& members) {
    members.Add("SetColorMap", &SetColorTable, "axis"_a, "rgba"_a)
        .Add(
            "SetColorMap",
            [](Plotter& self, int axis, const std::string& name) {
                Check(self.Call([&](Class& plotter) { return SetColorMap(plotter, axis, name.c_str()); }),
                      "set_color_map");
            },
            "axis"_a, "name"_a)
        .Add(
            "SetColorRange",
            [](Plotter& self, int axis, float min, float max) {
                Check(self.Call([&](Class& plotter) { return SetColorRange(plotter, axis, min, max); }),
                      "set_color_range");
            },
            "axis"_a, "min"_a, "max"_a);
}

void BindLegend(Members& members) {
    members
        .Add(
            "GetLegend",
            [](Plotter& self, int axis) {
                return FromLegend(self.Call([&](const Class& plotter) { return GetLegend(plotter, axis); }));
            },
            "axis"_a)
        .Add(
            "SetLegend",
            [](Plotter& self, int axis, const py::object& record) {
                const Kivo::SKivoLegend legend = ToLegend(record);
                Check(self.Call([&](Class& plotter) { return SetLegend(plotter, axis, legend); }),
                      "set_legend");
            },
            "axis"_a, "legend"_a)
        .Add(
            "ShowMeasureGroupNames",
            [](Plotter& self, bool show) {
                Check(self.Call([&](Class& plotter) { return ShowMeasureGroupNames(plotter, show); }),
                      "show_measure_group_names");
            },
            "show"_a)
        .Add("IsShowMeasureGroupNames",
             [](Plotter& self) {
                 return self.Call([](const Class& plotter) { return IsShowMeasureGroupNames(plotter); });
             })
        .Add(
            "FitReadOutDigits",
            [](Plotter& self, bool fit) {
                Check(self.Call([&](Class& plotter) { return FitReadOutDigits(plotter, fit); }),
                      "fit_read_out_digits");
            },
            "fit"_a)
        .Add("IsFitReadOutDigits", [](Plotter& self) {
            return self.Call([](const Class& plotter) { return IsFitReadOutDigits(plotter); });
        });
}

void BindMotion(Members& members) {
    members
        .Add(
            "SetMotionDetail",
            [](Plotter& self, unsigned int points) {
                Check(self.Call([&](Class& plotter) { return SetMotionDetail(plotter, points); }),
                      "set_motion_detail");
            },
            "points_per_side"_a)
        .Add(
            "CullSmallTriangles",
            [](Plotter& self, bool cull) {
                Check(self.Call([&](Class& plotter) { return CullSmallTriangles(plotter, cull); }),
                      "cull_small_triangles");
            },
            "cull"_a)
        .Add("IsDetailReduced",
             [](Plotter& self) {
                 return self.Call([](const Class& plotter) { return IsDetailReduced(plotter); });
             })
        .Add(
            "MotionDetailFor",
            [](Plotter& self, double milliseconds) {
                return self.Call([&](Class& plotter) { return MotionDetailFor(plotter, milliseconds); });
            },
            "milliseconds"_a);
}

void BindRedraw(Members& members) {
    members
        .Add(
            "RenderMovedScene",
            [](Plotter& self) { return self.Call([](Class& plotter) { return RenderMovedScene(plotter); }); })
        .Add("SetRedrawRequest", &Plotter::RequestRedraw, "request"_a);
}

void BindStyle(Members& members) {
    members
        .Add("GetStyle",
             [](Plotter& self) {
                 return FromStyle(self.Call([](const Class& plotter) { return GetStyle(plotter); }));
             })
        .Add(
            "SetStyle",
            [](Plotter& self, const py::object& record) {
                const Kivo::SKivoStyle style = ToStyle(record);
                Check(self.Call([&](Class& plotter) { return SetStyle(plotter, style); }), "set_style");
            },
            "style"_a)
        .Add("OnDensityChanged", [](Plotter& self) {
            Check(self.Call([](Class& plotter) { return OnDensityChanged(plotter); }), "on_density_changed");
        });
}

void BindSurfaces(Members& members) {
    members.Add("AddSurface", &AddGrid, py::arg("points").none(false), "surface"_a = py::none())
        .Add(
            "RemoveSurface",
            [](Plotter& self, int surface) {
                Check(self.Call([&](Class& plotter) { return RemoveSurface(plotter, surface); }),
                      "remove_surface");
            },
            "surface"_a)
        .Add("GetSurfaceCount",
             [](Plotter& self) {
                 return self.Call([](const Class& plotter) { return GetSurfaceCount(plotter); });
             })
        .Add(
            "GetSurface",
            [](Plotter& self, int surface) {
                Kivo::SKivoSurface values;
                Check(self.Call([&](const Class& plotter) { return GetSurface(plotter, surface, &values); }),
                      "get_surface");
                return FromSurface(values);
            },
            "surface"_a)
        .Add(
            "SetSurface",
            [](Plotter& self, int surface, const py::object& record) {
                const Kivo::SKivoSurface values = ToSurface(record);
                Check(self.Call([&](Class& plotter) { return SetSurface(plotter, surface, values); }),
                      "set_surface");
            },
            "surface"_a, "values"_a)
        .Add(
            "FitAxesToSurfaces",
            [](Plotter& self, bool all) {
                Check(self.Call([&](Class& plotter) { return FitAxesToSurfaces(plotter, all); }),
                      "fit_axes_to_surfaces");
            },
            "all"_a)
        .Add(
            "KeepFrameLineStep",
            [](Plotter& self, unsigned int columnStep, unsigned int rowStep) {
                Check(self.Call(
                          [&](Class& plotter) { return KeepFrameLineStep(plotter, columnStep, rowStep); }),
                      "keep_frame_line_step");
            },
            "column_step"_a, "row_step"_a)
        .Add("AxesFitSurfaces",
             [](Plotter& self) {
                 return self.Call([](const Class& plotter) { return AxesFitSurfaces(plotter); });
             })
        .Add("TracedSurface", [](Plotter& self) {
            return self.Call([](const Class& plotter) { return TracedSurface(plotter); });
        });
}

std::tuple<double, double, bool> Angles(Plotter& self) {
    double azimuth = 0.0;
    double elevation = 0.0;
    const int result =
        self.Call([&](const Class& plotter) { return GetViewAngles(plotter, azimuth, elevation); });
    return {azimuth, elevation, result == 0};
}

void BindViews(Members& members) {
    members
        .Add("GetView",
             [](Plotter& self) {
                 return FromView(self.Call([](const Class& plotter) { return GetView(plotter); }));
             })
        .Add(
            "SetView",
            [](Plotter& self, const py::object& record) {
                const Kivo::SKivoView view = ToView(record);
                Check(self.Call([&](Class& plotter) { return SetView(plotter, view); }), "set_view");
            },
            "view"_a)
        .Add("ResetView",
             [](Plotter& self) {
                 Check(self.Call([](Class& plotter) { return ResetView(plotter); }), "reset_view");
             })
        .Add(
            "SetViewAngles",
            [](Plotter& self, double azimuth, double elevation) {
                Check(self.Call([&](Class& plotter) { return SetViewAngles(plotter, azimuth, elevation); }),
                      "set_view_angles");
            },
            "azimuth"_a, "elevation"_a)
        .Add("GetViewAngles", &Angles);
}

void BindSteps(Members& members) {
    members
        .Add(
            "TurnView",
            [](Plotter& self, double right, double down) {
                Check(self.Call([&](Class& plotter) { return TurnView(plotter, right, down); }), "turn_view");
            },
            "right"_a, "down"_a)
        .Add(
            "ShiftView",
            [](Plotter& self, const Place& start, const Place& end) {
                Check(self.Call([&](Class& plotter) {
                    return ShiftView(plotter, {start.first, start.second}, {end.first, end.second});
                }),
                      "shift_view");
            },
            "start"_a, "end"_a)
        .Add(
            "ZoomView",
            [](Plotter& self, double factor, const Place& place) {
                Check(self.Call([&](Class& plotter) {
                    return ZoomView(plotter, factor, {place.first, place.second});
                }),
                      "zoom_view");
            },
            "factor"_a, "place"_a);
}

} // namespace

void BindBeyond(Members& members) {
    BindAxis(members);
    BindColorMap(members);
    BindLegend(members);
    BindMotion(members);
    BindRedraw(members);
    BindStyle(members);
    BindSurfaces(members);
    BindViews(members);
    BindSteps(members);
}

} // namespace KivoPython
