// Data, frame lines, contours.
#include "Bindings.h"

#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>

namespace KivoPython {

namespace {

struct Grid {
    unsigned int columns;
    unsigned int rows;
    unsigned int components;
};

unsigned int Extent(const py::array& points, int axis, const char* function) {
    const py::ssize_t extent = points.shape(axis);
    if (static_cast<std::uint64_t>(extent) > std::numeric_limits<unsigned int>::max())
        throw py::value_error(std::string(function) + ": more points than a plot can have");
    return static_cast<unsigned int>(extent);
}

Grid GridOf(const py::array& points, const char* function) {
    if (points.ndim() != 3 || points.shape(2) < 3)
        throw py::value_error(std::string(function) + ": points has the shape " +
                              py::str(points.attr("shape")).cast<std::string>() +
                              "; expected (rows, columns, 3) with x, y, z");
    return {Extent(points, 1, function), Extent(points, 0, function), Extent(points, 2, function)};
}

void SetData(Plotter& self, const py::array_t<float, py::array::c_style | py::array::forcecast>& points) {
    const Grid grid = GridOf(points, "set_data");
    const auto count = static_cast<std::size_t>(points.size());
    const float* const values = points.data();
    const int result = self.Call([&](Class& plotter) {
        std::unique_ptr<float[]> copy(count ? new float[count] : nullptr);
        if (count) std::memcpy(copy.get(), values, count * sizeof(float));
        float* const handed = copy.release(); // the plotter frees it, whatever happens but this
        try {
            return plotter.SetData(handed, grid.columns, grid.rows, 1, grid.columns, grid.components);
        } catch (const std::length_error&) {
            delete[] handed;
            throw;
        }
    });
    self.ForgetUnread();
    Check(result, "set_data");
}

void SetDataReference(Plotter& self, const py::array& array) {
    const Grid grid = GridOf(array, "set_data_reference");
    if (!py::isinstance<Plotter::Points>(array) || !(array.flags() & py::detail::npy_api::NPY_ARRAY_ALIGNED_))
        throw py::value_error("set_data_reference: points is " + py::str(array.dtype()).cast<std::string>() +
                              " or not packed; expected a C-contiguous array of float32. set_data takes a "
                              "copy of any");
    const auto points = py::reinterpret_borrow<Plotter::Points>(array);
    self.Refer(points);
    float* const values = const_cast<float*>(points.data()); // which the plotter does not write to
    const int result = self.Call([&](Class& plotter) {
        return plotter.SetDataReference(values, grid.columns, grid.rows, 1, grid.columns, grid.components);
    });
    self.ForgetUnread();
    Check(result, "set_data_reference");
}

} // namespace

void BindSurface(Members& members) {
    members.Add("SetData", &SetData, py::arg("points").none(false))
        .Add("SetDataReference", &SetDataReference, py::arg("points").none(false))
        .Get("SetFrameLineStep", &Class::SetFrameLineStep, "column_step"_a, "row_step"_a)
        .Get("SetFrameLineColor", &Class::SetFrameLineColor, "color"_a)
        .Do("SetIsoContourCount", &Class::SetIsoContourCount, "count"_a);
}

} // namespace KivoPython
