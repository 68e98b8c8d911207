#include "Records.h"

#include <algorithm>
#include <iterator>

namespace KivoPython {

namespace {

py::object TypeOf(const char* record) {
    return py::module_::import("kivoplot._records").attr(record);
}

/// Reads the fields of a record.
class Reader {
public:
    Reader(const py::object& record, const char* type) : m_record(record), m_type(type) {
        if (!py::isinstance(record, TypeOf(type)))
            throw py::type_error("expected a kivoplot." + m_type + ", found a " + TypeName(record));
    }

    template <typename T>
    void Take(const char* field, T& value) const {
        const py::object found = m_record.attr(field);
        try {
            value = py::cast<T>(found);
        } catch (const py::cast_error&) {
            throw py::type_error(m_type + "." + field + " cannot be a " + TypeName(found) + ": " +
                                 py::repr(found).cast<std::string>());
        }
    }
    /// So many numbers.
    template <typename T, std::size_t count>
    void Take(const char* field, T (&values)[count]) const {
        std::array<T, count> taken;
        Take(field, taken);
        std::copy(taken.begin(), taken.end(), values);
    }

private:
    static std::string TypeName(const py::object& object) {
        return py::str(py::type::of(object).attr("__name__")).cast<std::string>();
    }

    const py::object& m_record;
    std::string m_type;
};

template <typename T, std::size_t count>
py::tuple Tuple(const T (&values)[count]) {
    py::tuple tuple(count);
    for (std::size_t i = 0; i < count; ++i)
        tuple[i] = values[i];
    return tuple;
}

} // namespace

Kivo::SKivoStyle ToStyle(const py::object& record) {
    const Reader reader(record, "Style");
    Kivo::SKivoStyle style;
    reader.Take("pixel_scale", style.pixelScale);
    reader.Take("ink_color", style.inkColor);
    reader.Take("text_face", style.textFace);
    reader.Take("bold_text", style.boldText);
    return style;
}

py::object FromStyle(const Kivo::SKivoStyle& style) {
    return TypeOf("Style")("pixel_scale"_a = style.pixelScale, "ink_color"_a = style.inkColor,
                           "text_face"_a = style.textFace, "bold_text"_a = style.boldText);
}

Kivo::SKivoView ToView(const py::object& record) {
    const Reader reader(record, "View");
    Kivo::SKivoView view;
    reader.Take("plot_type", view.plotType);
    reader.Take("rotation", view.rotation);
    reader.Take("pan_x", view.panX);
    reader.Take("pan_y", view.panY);
    reader.Take("zoom", view.zoom);
    reader.Take("inverse", view.inverse);
    reader.Take("mirrored", view.mirrored);
    return view;
}

py::object FromView(const Kivo::SKivoView& view) {
    return TypeOf("View")("plot_type"_a = view.plotType, "rotation"_a = Tuple(view.rotation),
                          "pan_x"_a = view.panX, "pan_y"_a = view.panY, "zoom"_a = view.zoom,
                          "inverse"_a = Tuple(view.inverse), "mirrored"_a = view.mirrored);
}

Kivo::SKivoSurface ToSurface(const py::object& record) {
    const Reader reader(record, "Surface");
    Kivo::SKivoSurface surface;
    reader.Take("is_visible", surface.isVisible);
    reader.Take("opacity", surface.opacity);
    reader.Take("is_colored_by_z", surface.isColoredByZ);
    reader.Take("color", surface.color);
    reader.Take("frame_line_step", surface.frameLineStep);
    return surface;
}

py::object FromSurface(const Kivo::SKivoSurface& surface) {
    return TypeOf("Surface")("is_visible"_a = surface.isVisible, "opacity"_a = surface.opacity,
                             "is_colored_by_z"_a = surface.isColoredByZ, "color"_a = surface.color,
                             "frame_line_step"_a = Tuple(surface.frameLineStep));
}

Kivo::SKivoLegend ToLegend(const py::object& record) {
    const Reader reader(record, "Legend");
    Kivo::SKivoLegend legend;
    int numbers = 0;
    reader.Take("is_shown", legend.isShown);
    reader.Take("title", legend.title);
    reader.Take("numbers", numbers);
    legend.numbers = static_cast<Kivo::KivoLegendNumbers>(numbers);
    return legend;
}

py::object FromLegend(const Kivo::SKivoLegend& legend) {
    return TypeOf("Legend")("is_shown"_a = legend.isShown, "title"_a = legend.title,
                            "numbers"_a = FromNumber("LegendNumbers", static_cast<int>(legend.numbers)));
}

Kivo::SKivoPictureOptions ToPictureOptions(const py::object& record) {
    const Reader reader(record, "PictureOptions");
    Kivo::SKivoPictureOptions options;
    reader.Take("width", options.width);
    reader.Take("height", options.height);
    reader.Take("scale", options.scale);
    reader.Take("smoothing", options.smoothing);
    reader.Take("transparent", options.transparent);
    reader.Take("moving", options.moving);
    return options;
}

py::object FromNumber(const char* enumeration, int number) {
    return TypeOf(enumeration)(number);
}

} // namespace KivoPython
