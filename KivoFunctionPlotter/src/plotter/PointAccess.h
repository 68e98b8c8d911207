// What KivoPoints.h does with a plotter's curves and groups.
#pragma once

#include "computing/AxisLabelLayout.h"
#include "KivoPoints.h"

namespace KivoDrawingTools {

struct PointAccess {
    static int RemoveCurve(CKivoFunctionPlotter& plotter, int index);
    static int RemoveGroup(CKivoFunctionPlotter& plotter, unsigned int index);

    static void ShowFlat(CKivoFunctionPlotter& plotter, bool show) { plotter.m_arePointsFlat = show; }
    static bool AreFlat(const CKivoFunctionPlotter& plotter) { return plotter.m_arePointsFlat; }

    static int SetNames(CKivoFunctionPlotter& plotter, unsigned int index,
                        const std::vector<std::string>& names);
    static int SetListed(CKivoFunctionPlotter& plotter, unsigned int index,
                         const std::vector<std::string>& texts);
    /// Lists the names of groups in frames, which wants images of them.
    static int ListGroups(CKivoFunctionPlotter& plotter, bool list);
    /// For a context that is new, and current: makes the images of names that went with another one, or that
    /// there was none for. A name that cannot be drawn is left out.
    static void MakeMissingImages(CKivoFunctionPlotter& plotter) noexcept;
    /// Adds where a frame has names, and the points that they belong to.
    static void AddPlaces(const CKivoFunctionPlotter& plotter, std::vector<PlacedImage>* places);
    /// The images of names that a frame may draw in the present view, in the order of groups and points; of a
    /// thousand at most all that its groups show, so that they stay the same while it moves.
    static void CollectDrawnNames(const CKivoFunctionPlotter& plotter,
                                  std::vector<const SKivoTexImage*>* names);
    /// Draws the names of points, on a pale ground, unlit. Where depth is tested, what hides a point hides
    /// its name.
    static void DrawNames(const CKivoFunctionPlotter& plotter) noexcept;

private:
    struct NamedPoint;
    struct PlacedName;
    struct NewTexts;
    static int MakeTexts(CKivoFunctionPlotter& plotter, const std::vector<std::string>& texts,
                         std::size_t count, NewTexts& made);
    static std::vector<NamedPoint> NamedPoints(const CKivoFunctionPlotter& plotter);
    static std::vector<PlacedName> PlaceNames(const CKivoFunctionPlotter& plotter,
                                              const std::vector<NamedPoint>& points);
    static std::vector<PlacedImage> Markers(const CKivoFunctionPlotter& plotter,
                                            const std::vector<NamedPoint>& points);
    static void DrawGround(const CKivoFunctionPlotter& plotter, const PlacedName& name);
};

} // namespace KivoDrawingTools
