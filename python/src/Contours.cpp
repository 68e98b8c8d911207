// Contours at chosen levels and their values, points in flat plots and their names, and what is cut at the
// axes.
#include "Bindings.h"

#include <KivoAxis.h>
#include <KivoContours.h>
#include <KivoPoints.h>
#include <KivoSurfaces.h>

namespace KivoPython {

namespace {

// A function of the headers beyond the class, whose result is 0 or an error.
template <typename... Arguments>
auto Told(const char* name, int (*function)(Class&, Arguments...)) {
    return [name, function](Plotter& self, Arguments... arguments) {
        Check(self.Call([&](Class& plotter) { return function(plotter, arguments...); }), name);
    };
}

template <typename Result, typename... Arguments>
auto Asked(Result (*function)(const Class&, Arguments...)) {
    return [function](Plotter& self, Arguments... arguments) {
        return self.Call([&](const Class& plotter) { return function(plotter, arguments...); });
    };
}

} // namespace

void BindContours(Members& members) {
    members
        .Add("SetContourInterval", Told("set_contour_interval", &Kivo::SetContourInterval), "axis"_a,
             "interval"_a, "base"_a = 0.0)
        .Add("FillContours", Told("fill_contours", &Kivo::FillContours), "fill"_a)
        .Add("AreContoursFilled", Asked(&Kivo::AreContoursFilled))
        .Add("LabelContours", Told("label_contours", &Kivo::LabelContours), "label"_a)
        .Add("AreContoursLabeled", Asked(&Kivo::AreContoursLabeled))
        .Add("RemoveCurve", Told("remove_curve", &Kivo::RemoveCurve), "index"_a)
        .Add("RemoveMeasureGroup", Told("remove_measure_group", &Kivo::RemoveMeasureGroup), "index"_a)
        .Add("ShowPointsInFlatPlots", Told("show_points_in_flat_plots", &Kivo::ShowPointsInFlatPlots),
             "show"_a)
        .Add("ArePointsInFlatPlots", Asked(&Kivo::ArePointsInFlatPlots))
        .Add("SetMeasurePointNames", Told("set_measure_point_names", &Kivo::SetMeasurePointNames), "index"_a,
             "names"_a)
        .Add("SetListedTexts", Told("set_listed_texts", &Kivo::SetListedTexts), "index"_a, "texts"_a)
        .Add("CutToAxis", Told("cut_to_axis", &Kivo::CutToAxis), "axis"_a, "cut"_a)
        .Add("IsCutToAxis", Asked(&Kivo::IsCutToAxis), "axis"_a)
        .Add("ReadOutNumber", Asked(&Kivo::ReadOutNumber), "axis"_a, "number"_a);
}

} // namespace KivoPython
