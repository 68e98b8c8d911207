// What the numbers of an axis stand for.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace KivoDrawingTools {

/// The origin that the data of an axis are differences to, and a host's words for their numbers. Box and
/// legend share it; it never changes, so that a label that is being made keeps its words when the host sets
/// others.
struct AxisNumbers {
    using Format = std::function<std::string(double value, double step)>;

    double origin;
    std::shared_ptr<const Format> format; ///< null: the plot's own words

    /// The host's words for an absolute number: one line, of bounded length, empty where the format throws
    /// anything but std::bad_alloc. None without a format, for what is no finite number, and while the thread
    /// is asking a format already, so that one that changes a plot is not asked for ever.
    std::optional<std::string> Words(double value, double step) const;
};

} // namespace KivoDrawingTools
