// KivoPicture.h: pictures as arrays.
#include "Records.h"

#include <limits>
#include <tuple>

namespace KivoPython {

namespace {

using Pixels = py::array_t<std::uint8_t>;

std::pair<int, int> Measure(Plotter& self, const Kivo::SKivoPictureOptions& options, const char* function) {
    int width = 0;
    int height = 0;
    Check(self.Call([&](const Class& plotter) { return MeasurePicture(plotter, options, width, height); }),
          function);
    return {width, height};
}

void Draw(Plotter& self, const Kivo::SKivoPictureOptions& options, Pixels& pixels, Kivo::KivoPixelOrder order,
          const char* function) {
    std::uint8_t* const first = pixels.mutable_data();
    const auto rowBytes = static_cast<std::size_t>(pixels.strides(0));
    Check(self.Call([&](Class& plotter) { return DrawPicture(plotter, options, first, rowBytes, order); }),
          function);
}

// The array has the size that the picture is drawn in, whatever another thread makes of the window meanwhile.
Pixels Capture(Plotter& self, Kivo::SKivoPictureOptions options) {
    std::tie(options.width, options.height) = Measure(self, options, "capture_picture");
    Pixels pixels({options.height, options.width, 4});
    Draw(self, options, pixels, Kivo::KivoPixelOrder::rgba, "capture_picture");
    return pixels;
}

Pixels CaptureWindow(Plotter& self) {
    std::vector<unsigned char> rgba;
    int width = 0;
    int height = 0;
    Check(self.Call([&](Class& plotter) { return CapturePicture(plotter, rgba, width, height); }),
          "capture_picture");
    return Pixels({height, width, 4}, rgba.data());
}

Pixels CaptureSize(Plotter& self, int width, int height) {
    std::vector<unsigned char> rgba;
    Check(self.Call([&](Class& plotter) { return CapturePicture(plotter, width, height, rgba); }),
          "capture_picture");
    return Pixels({height, width, 4}, rgba.data());
}

void DrawInto(Plotter& self, const py::object& record, const py::array& array, int order) {
    Kivo::SKivoPictureOptions options = ToPictureOptions(record);
    std::tie(options.width, options.height) = Measure(self, options, "draw_picture");
    const bool fits = py::isinstance<Pixels>(array) && array.ndim() == 3 &&
                      array.shape(0) == options.height && array.shape(1) == options.width &&
                      array.shape(2) == 4 && array.strides(2) == 1 && array.strides(1) == 4 &&
                      array.strides(0) >= 4 * array.shape(1);
    if (!fits)
        throw py::value_error("draw_picture: pixels is an array of " +
                              py::str(array.dtype()).cast<std::string>() + " with the shape " +
                              py::str(array.attr("shape")).cast<std::string>() + "; expected uint8 and (" +
                              std::to_string(options.height) + ", " + std::to_string(options.width) +
                              ", 4), packed in each row");
    if (order != 0 && order != 1) throw py::value_error("draw_picture: order is no kivoplot.PixelOrder");
    if (!array.writeable()) throw py::value_error("draw_picture: pixels is read-only");
    auto pixels = py::reinterpret_borrow<Pixels>(array);
    Draw(self, options, pixels, static_cast<Kivo::KivoPixelOrder>(order), "draw_picture");
}

} // namespace

void BindPicture(Members& members) {
    members.Add("CapturePicture", &CaptureWindow)
        .Add("CapturePicture", &CaptureSize, "wanted_width"_a, "wanted_height"_a)
        .Add(
            "CapturePicture",
            [](Plotter& self, const py::object& options) { return Capture(self, ToPictureOptions(options)); },
            "options"_a)
        .Add(
            "MeasurePicture",
            [](Plotter& self, const py::object& options) {
                return Measure(self, ToPictureOptions(options), "measure_picture");
            },
            "options"_a)
        .Add("DrawPicture", &DrawInto, "options"_a, py::arg("pixels").none(false), "order"_a = 0)
        .Add(
            "TakeView",
            [](Plotter& self, Plotter& shown) {
                if (!self.SharesHome(shown.GetHome()))
                    throw py::value_error("take_view: the plotters were made in different threads");
                Check(self.Call([&](Class& plotter) {
                    return shown.Nested([&](const Class& other) { return TakeView(plotter, other); });
                }),
                      "take_view");
            },
            py::arg("shown").none(false));
}

} // namespace KivoPython
