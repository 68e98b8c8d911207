// Titles, bitmap text, axis settings.
#include "Bindings.h"

namespace KivoPython {

namespace {

using Title = const char* (Class::*)() const;

// The plotter's own pointer is good until the title changes, which another thread may do.
auto Text(Title member) {
    return [member](Plotter& self) {
        return self.Call([&](const Class& plotter) { return std::string((plotter.*member)()); });
    };
}

void BindTitles(Members& members) {
    members.Add("GetPlotTitle", Text(&Class::GetPlotTitle))
        .Add("GetXAxisTitle", Text(&Class::GetXAxisTitle))
        .Add("GetYAxisTitle", Text(&Class::GetYAxisTitle))
        .Add("GetZAxisTitle", Text(&Class::GetZAxisTitle))
        .Get("SetPlotTitle", &Class::SetPlotTitle, "title"_a)
        .Get("SetXAxisTitle", &Class::SetXAxisTitle, "title"_a)
        .Get("SetYAxisTitle", &Class::SetYAxisTitle, "title"_a)
        .Get("SetZAxisTitle", &Class::SetZAxisTitle, "title"_a);
}

void BindRanges(Members& members) {
    members.Get("GetXAxisMin", &Class::GetXAxisMin)
        .Get("GetYAxisMin", &Class::GetYAxisMin)
        .Get("GetZAxisMin", &Class::GetZAxisMin)
        .Get("GetXAxisMax", &Class::GetXAxisMax)
        .Get("GetYAxisMax", &Class::GetYAxisMax)
        .Get("GetZAxisMax", &Class::GetZAxisMax)
        .Do("SetXAxisMin", &Class::SetXAxisMin, "value"_a)
        .Do("SetYAxisMin", &Class::SetYAxisMin, "value"_a)
        .Do("SetZAxisMin", &Class::SetZAxisMin, "value"_a)
        .Do("SetXAxisMax", &Class::SetXAxisMax, "value"_a)
        .Do("SetYAxisMax", &Class::SetYAxisMax, "value"_a)
        .Do("SetZAxisMax", &Class::SetZAxisMax, "value"_a);
}

void BindTicks(Members& members) {
    members.Get("GetXAxisTickMarkNumber", &Class::GetXAxisTickMarkNumber)
        .Get("GetYAxisTickMarkNumber", &Class::GetYAxisTickMarkNumber)
        .Get("GetZAxisTickMarkNumber", &Class::GetZAxisTickMarkNumber)
        .Do("SetXAxisTickMarkNumber", &Class::SetXAxisTickMarkNumber, "count"_a)
        .Do("SetYAxisTickMarkNumber", &Class::SetYAxisTickMarkNumber, "count"_a)
        .Do("SetZAxisTickMarkNumber", &Class::SetZAxisTickMarkNumber, "count"_a)
        .Get("GetXAxisFloatingPointPrecision", &Class::GetXAxisFloatingPointPrecision)
        .Get("GetYAxisFloatingPointPrecision", &Class::GetYAxisFloatingPointPrecision)
        .Get("GetZAxisFloatingPointPrecision", &Class::GetZAxisFloatingPointPrecision)
        .Do("SetXAxisFloatingPointPrecision", &Class::SetXAxisFloatingPointPrecision, "precision"_a)
        .Do("SetYAxisFloatingPointPrecision", &Class::SetYAxisFloatingPointPrecision, "precision"_a)
        .Do("SetZAxisFloatingPointPrecision", &Class::SetZAxisFloatingPointPrecision, "precision"_a);
}

} // namespace

void BindAnnotation(Members& members) {
    BindTitles(members);
    BindRanges(members);
    BindTicks(members);
}

} // namespace KivoPython
