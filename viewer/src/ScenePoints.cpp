// PlotScene: curves and measure points.
#include "Failure.h"
#include "Language.h"
#include "PlotScene.h"

#include <KivoPoints.h>
#include <KivoWindow.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace KivoViewer {

namespace {

constexpr Color curveColors[] = {{255, 0, 0}, {0, 0, 0},     {255, 0, 255},
                                 {0, 96, 0},  {255, 128, 0}, {0, 0, 160}};
constexpr float curveWidth = 2.0f;
constexpr std::size_t mostPointNames = 5000; // each is a picture of its own

} // namespace

void PlotScene::AddPoints(PointSet::Kind kind, const PointFile& file) {
    if (kind == PointSet::Kind::curve)
        AddCurve(file);
    else
        AddMeasureGroup(file);
}

void PlotScene::AddCurve(const PointFile& file) {
    std::vector<float> points = Differences(file); // the plotter takes them as changeable, and copies them
    const int index = Plotter().AddCurveData(points.data(), static_cast<unsigned int>(file.Count()), 3);
    PointSet curve;
    curve.kind = PointSet::Kind::curve;
    curve.index = m_curves.size();
    curve.name = file.name;
    curve.path = file.path;
    curve.reading = file.reading;
    curve.color = curveColors[m_curves.size() % std::size(curveColors)];
    if (curve.color.Packed() == Color{0, 0, 0}.Packed()) curve.color = *Effective().ink;
    m_curves.push_back(curve);
    Plotter().SetCurveColor(index, curve.color.Packed());
    Plotter().SetCurveWidth(index, curveWidth);
}

void PlotScene::AddMeasureGroup(const PointFile& file) {
    m_groups.push_back({file, Differences(file)});
    Plotter().AddMeasurePoints(static_cast<unsigned int>(file.Count()), 3, m_groups.back().differences.data(),
                               file.name.c_str());
    if (m_settings.namesPoints) ApplyPointNames();
    ApplyPointList();
}

// Of a group that is one of several in a file, the points have its name in common.
void PlotScene::ApplyPointNames() {
    std::size_t left = mostPointNames;
    unsigned int index = 0;
    for (const MeasurePoints& group : m_groups) {
        std::vector<std::string> names;
        if (m_settings.namesPoints) names = group.file.labels;
        if (m_settings.namesPoints && names.empty() && !group.file.group.empty())
            names.assign(group.file.Count(), group.file.group);
        names.resize(std::min(names.size(), left));
        left -= names.size();
        if (SetMeasurePointNames(Plotter(), index++, names) != 0)
            throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
    }
}

std::vector<PointSet> PlotScene::PointSets() {
    std::vector<PointSet> sets;
    for (const MeasurePoints& group : m_groups)
        sets.push_back(MeasureGroup(sets.size(), group.file));
    sets.insert(sets.end(), m_curves.begin(), m_curves.end());
    return sets;
}

PointSet PlotScene::MeasureGroup(std::size_t index, const PointFile& file) {
    const auto number = static_cast<unsigned int>(index);
    PointSet group;
    group.index = index;
    group.path = file.path;
    group.reading = file.reading;
    group.group = file.group;
    Plotter().GetMeasureGroupName(number, &group.name);
    group.color = UnpackColor(Plotter().GetMeasureGroupColor(number));
    group.isShown = Plotter().IsShowMeasureGroup(number);
    return group;
}

void PlotScene::ChangePoints(const PointSet& set) {
    if (set.kind == PointSet::Kind::measureGroup) return ChangeMeasureGroup(set);
    m_curves[set.index] = set;
    const int index = static_cast<int>(set.index);
    Plotter().SetCurveVisibility(index, set.isShown);
    Plotter().SetCurveColor(index, set.color.Packed());
}

void PlotScene::ChangeMeasureGroup(const PointSet& group) {
    const auto number = static_cast<unsigned int>(group.index);
    const PointSet before = MeasureGroup(group.index, {});
    Plotter().ShowMeasureGroup(number, group.isShown);
    if (group.name != before.name) Plotter().SetMeasureGroupName(number, group.name.c_str());
    // The colours of the plotter's own palette lie between those of a display.
    if (group.color.Packed() != before.color.Packed())
        Plotter().SetMeasureGroupColor(number, group.color.Packed());
    ApplyPointList();
}

void PlotScene::RemovePoints(PointSet::Kind kind, std::size_t index) {
    const auto offset = static_cast<std::ptrdiff_t>(index);
    if (kind == PointSet::Kind::curve) {
        if (RemoveCurve(Plotter(), static_cast<int>(index)) != 0) return;
        m_curves.erase(m_curves.begin() + offset);
        for (std::size_t i = 0; i < m_curves.size(); ++i)
            m_curves[i].index = i;
    } else if (RemoveMeasureGroup(Plotter(), static_cast<unsigned int>(index)) == 0) {
        m_groups.erase(std::next(m_groups.begin(), offset));
        ApplyPointList();
    }
}

void PlotScene::RemoveAllPoints() {
    while (!m_curves.empty())
        RemovePoints(PointSet::Kind::curve, m_curves.size() - 1);
    while (!m_groups.empty())
        RemovePoints(PointSet::Kind::measureGroup, m_groups.size() - 1);
}

void PlotScene::TraceAt(int x, int y) {
    if (m_hasSurface) Plotter().Trace(KivoDrawingTools::POINT{x, y});
}

} // namespace KivoViewer
