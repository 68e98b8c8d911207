// Curves and measure points: taken away again one by one, shown in the flat plots, named one by one.
#pragma once

#include "KivoFunctionPlotter.h"

#include <string>
#include <vector>

namespace KivoDrawingTools {

/// Takes a curve away. Those after it move up by one index.
/// @return 0; -2 for an index that no curve has
KIVO_API int RemoveCurve(CKivoFunctionPlotter& plotter, int index);

/// Takes a measure group away, whose points are not read any more. Those after it move up by one index.
/// @return 0; -2 for an index that no group has; -1 when the plotter's context cannot be made current:
///         nothing changes then
KIVO_API int RemoveMeasureGroup(CKivoFunctionPlotter& plotter, unsigned int index);

/// Shows curves, measure points and the traced point in the flat plots, too, over the contours; with the
/// point's coordinates, and with the names of the groups where ShowMeasureGroupNames has them listed. It
/// belongs to the plotter and stays through new data, OnDestroy and OnCreate.
/// @param show  false, at first: the flat plots have contours alone
/// @return 0
KIVO_API int ShowPointsInFlatPlots(CKivoFunctionPlotter& plotter, bool show);
KIVO_API bool ArePointsInFlatPlots(const CKivoFunctionPlotter& plotter); ///< @return whether they are shown

/// Shows names beside the points of a measure group wherever the group is shown: right of the point, or on
/// another side where they would meet another text or the border; a name that finds no room is left out, and
/// so are those beyond the first 1,000 in the window, by groups and points. What hides a point in the 3-D
/// plot hides its name. They belong to the group, and stay through new data, OnDestroy and OnCreate.
/// @param index  of the group
/// @param names  one for each point, in their order; those beyond the points are not kept, and points beyond
///               the names, and those whose name is empty, have none. An empty list, as at first: no names
/// @return 0; -2 for an index that no group has; -1 when the plotter's context cannot be made current, or the
///         system cannot draw the names: nothing changes then
/// @throws std::bad_alloc  without memory for the names: nothing has changed then
KIVO_API int SetMeasurePointNames(CKivoFunctionPlotter& plotter, unsigned int index,
                                  const std::vector<std::string>& names);

/// Lists a group with other texts than its name where ShowMeasureGroupNames lists it, a row for each: the
/// points with their coordinates, for example. Texts are as long as a title at most, and stand one below the
/// other; its colour is beside the first. While a group that is shown has such texts the list has a pale
/// ground, begins below the title where they would meet, and rows that have no room above the plot's lower
/// end are left out. They belong to the group, and stay through new data, OnDestroy and OnCreate.
/// @param index  of the group
/// @param texts  an empty one is an empty row; an empty list, as at first: the name
/// @return as SetMeasurePointNames
/// @throws std::bad_alloc  without memory for the texts: nothing has changed then
KIVO_API int SetListedTexts(CKivoFunctionPlotter& plotter, unsigned int index,
                            const std::vector<std::string>& texts);

} // namespace KivoDrawingTools
