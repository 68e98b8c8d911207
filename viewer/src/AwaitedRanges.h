// Ends of ranges that are typed one after the other.
#pragma once

#include "PlotSettings.h"

#include <optional>

namespace KivoViewer {

class PlotScene;

/// Keeps the end of a range that does not rise yet, such as a new beginning above the present end: it counts
/// when the other end comes, and is forgotten when the axis changes in another way.
class AwaitedRanges {
public:
    /// Takes settings in which an end of an axis was set.
    /// @return whether they can be shown; else the end waits
    bool Take(int axis, const PlotSettings& wanted, const PlotScene& scene);
    /// Sets the ends that wait, for another one to be set beside them.
    void AddTo(int axis, PlotSettings& wanted) const;
    /// The same for all axes, for showing them, and forgets what waits in vain.
    void ShowIn(PlotSettings& shown);

private:
    struct Ends {
        std::optional<double> min;
        std::optional<double> max;
    };
    struct Range {
        Ends wanted;
        Ends shown; ///< when it was wanted
    };

    std::optional<Range> m_ranges[3];
};

} // namespace KivoViewer
