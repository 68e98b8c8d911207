// Curves and measure groups.
#include "Bindings.h"

#include <limits>

namespace KivoPython {

namespace {

using AnyPoints = py::array_t<float, py::array::c_style | py::array::forcecast>;

struct Counts {
    unsigned int points;
    unsigned int components;
};

Counts CountsOf(const py::array& points, const char* function) {
    if (points.ndim() != 2 || points.shape(0) < 1 || points.shape(1) < 1)
        throw py::value_error(std::string(function) + ": points has the shape " +
                              py::str(points.attr("shape")).cast<std::string>() +
                              "; expected (points, 3) with x, y, z");
    constexpr py::ssize_t most = std::numeric_limits<unsigned int>::max();
    if (points.shape(0) > most || points.shape(1) > most)
        throw py::value_error(std::string(function) + ": more points than a plot can have");
    return {static_cast<unsigned int>(points.shape(0)), static_cast<unsigned int>(points.shape(1))};
}

int AddCurve(Plotter& self, const AnyPoints& points) {
    const Counts counts = CountsOf(points, "add_curve_data");
    float* const values = const_cast<float*>(points.data()); // copied, not written to
    const int index = self.Call(
        [&](Class& plotter) { return plotter.AddCurveData(values, counts.points, counts.components); });
    if (index < 0) Check(index, "add_curve_data");
    return index;
}

using AddGroup = int (Class::*)(unsigned int, unsigned int, float*, const char*);

auto Group(const char* function, AddGroup member) {
    return [function, member](Plotter& self, const AnyPoints& points, const std::string& name) {
        const Counts counts = CountsOf(points, function);
        self.ReferForEver(py::reinterpret_borrow<Plotter::Points>(points));
        float* const values = const_cast<float*>(points.data()); // not written to
        Check(self.Call([&](Class& plotter) {
            return (plotter.*member)(counts.points, counts.components, values, name.c_str());
        }),
              function);
    };
}

std::string GroupName(Plotter& self, unsigned int index) {
    std::string name;
    Check(self.Call([&](Class& plotter) { return plotter.GetMeasureGroupName(index, &name); }),
          "get_measure_group_name");
    return name;
}

void BindGroups(Members& members) {
    members.Get("GetNumMeasureGroups", &Class::GetNumMeasureGroups)
        .Get("GetMeasureGroupSize", &Class::GetMeasureGroupSize, "index"_a)
        .Do("ShowMeasureGroup", &Class::ShowMeasureGroup, "index"_a, "show"_a)
        .Get("IsShowMeasureGroup", &Class::IsShowMeasureGroup, "index"_a)
        .Do("ShowAllMeasureGroups", &Class::ShowAllMeasureGroups, "show"_a)
        .Get("GetMeasureGroupColor", &Class::GetMeasureGroupColor, "index"_a)
        .Do("SetMeasureGroupColor", &Class::SetMeasureGroupColor, "index"_a, "color"_a)
        .Add("GetMeasureGroupName", &GroupName, "index"_a)
        .Do("SetMeasureGroupName", &Class::SetMeasureGroupName, "index"_a, "name"_a)
        .Get("GetMeasureGroupIndexByName", &Class::GetMeasureGroupIndexByName, "name"_a);
}

} // namespace

void BindOverlays(Members& members) {
    members.Add("AddCurveData", &AddCurve, py::arg("points").none(false))
        .Do("SetCurveColor", &Class::SetCurveColor, "index"_a, "color"_a)
        .Do("SetCurveVisibility", &Class::SetCurveVisibility, "index"_a, "visible"_a)
        .Do("SetCurveWidth", &Class::SetCurveWidth, "index"_a, "width"_a)
        .Get("GetPointRadiusPixelSize", &Class::GetPointRadiusPixelSize)
        .Do("SetPointRadiusPixelSize", &Class::SetPointRadiusPixelSize, "pixels"_a)
        .Add("AddMeasurePoints", Group("add_measure_points", &Class::AddMeasurePoints),
             py::arg("points").none(false), "name"_a)
        .Add("AddReferenceMeasurePoints",
             Group("add_reference_measure_points", &Class::AddReferenceMeasurePoints),
             py::arg("points").none(false), "name"_a);
    BindGroups(members);
}

} // namespace KivoPython
