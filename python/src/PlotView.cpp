// KivoPlotView.h: the core of controls.
#include "Bindings.h"

#include <memory>
#include <utility>
#include <vector>

namespace KivoPython {

namespace {

Kivo::KivoMouseButton Button(const std::string& name) {
    if (name == "left") return Kivo::KivoMouseButton::left;
    if (name == "middle") return Kivo::KivoMouseButton::middle;
    if (name == "right") return Kivo::KivoMouseButton::right;
    throw py::value_error("button: expected left, middle or right, found " + name);
}

Kivo::KivoViewKey Key(const std::string& name) {
    using Kivo::KivoViewKey;
    constexpr std::pair<const char*, KivoViewKey> keys[] = {
        {"left", KivoViewKey::left}, {"right", KivoViewKey::right}, {"up", KivoViewKey::up},
        {"down", KivoViewKey::down}, {"plus", KivoViewKey::plus},   {"minus", KivoViewKey::minus},
        {"home", KivoViewKey::home}, {"3d", KivoViewKey::normal},   {"xy", KivoViewKey::xy},
        {"yz", KivoViewKey::yz},     {"xz", KivoViewKey::xz}};
    for (const auto& [known, key] : keys)
        if (name == known) return key;
    throw py::value_error("key: expected left, right, up, down, plus, minus, home, 3d, xy, yz or xz, found " +
                          name);
}

Kivo::POINT Point(const Place& place) {
    return {place.first, place.second};
}

// Rows of blue, green, red and 255; None where nothing could be drawn.
py::object Draw(View& self) {
    struct Frame {
        std::vector<unsigned char> bytes;
        int width = 0;
        int height = 0;
    };
    auto frame = std::make_unique<Frame>(self.CallView([](Kivo::CKivoPlotView& view) {
        const Kivo::SKivoPlotImage image = view.Draw();
        Frame drawn;
        if (!image.pixels) return drawn;
        const std::size_t row = std::size_t{4} * static_cast<unsigned int>(image.width);
        for (int y = 0; y < image.height; ++y) {
            const unsigned char* const start = image.pixels + image.rowBytes * static_cast<unsigned int>(y);
            drawn.bytes.insert(drawn.bytes.end(), start, start + row);
        }
        drawn.width = image.width;
        drawn.height = image.height;
        return drawn;
    }));
    if (frame->bytes.empty()) return py::none();
    const unsigned char* const bytes = frame->bytes.data();
    const std::vector<py::ssize_t> shape = {frame->height, frame->width, 4};
    const py::capsule owner(frame.release(), [](void* owned) { delete static_cast<Frame*>(owned); });
    return py::array_t<std::uint8_t>(shape, bytes, owner);
}

void SetEvents(View& self, const py::object& redraw, const py::object& wake, const py::object& traced,
               const py::object& viewChanged, const py::object& failed) {
    const auto held = [&](const py::object& function) -> std::shared_ptr<Callable> {
        if (function.is_none()) return nullptr;
        if (!PyCallable_Check(function.ptr())) throw py::type_error("set_events: expected functions");
        return self.Hold(function);
    };
    self.Listen({held(redraw), held(wake), held(traced), held(viewChanged), held(failed)});
}

void BindHand(py::class_<View, Plotter>& type) {
    type.def(
            "press",
            [](View& self, const std::string& button, unsigned int flags, const Place& place) {
                const Kivo::KivoMouseButton which = Button(button);
                self.CallView([&](Kivo::CKivoPlotView& view) { view.Press(which, flags, Point(place)); });
            },
            Doc("Press"), "button"_a, "flags"_a, "place"_a)
        .def(
            "move",
            [](View& self, unsigned int flags, const Place& place) {
                self.CallView([&](Kivo::CKivoPlotView& view) { view.Move(flags, Point(place)); });
            },
            Doc("Move"), "flags"_a, "place"_a)
        .def(
            "release",
            [](View& self, const std::string& button) {
                const Kivo::KivoMouseButton which = Button(button);
                return self.CallView([&](Kivo::CKivoPlotView& view) { return view.Release(which); });
            },
            Doc("Release"), "button"_a)
        .def(
            "cancel", [](View& self) { self.CallView([](Kivo::CKivoPlotView& view) { view.Cancel(); }); },
            Doc("Cancel"))
        .def(
            "wheel",
            [](View& self, int delta, const Place& place) {
                self.CallView([&](Kivo::CKivoPlotView& view) { view.Wheel(delta, Point(place)); });
            },
            Doc("Wheel"), "delta"_a, "place"_a)
        .def(
            "pinch",
            [](View& self, double factor, const Place& place) {
                self.CallView([&](Kivo::CKivoPlotView& view) { view.Pinch(factor, Point(place)); });
            },
            Doc("Pinch"), "factor"_a, "place"_a)
        .def(
            "press_key",
            [](View& self, const std::string& key, unsigned int flags) {
                const Kivo::KivoViewKey which = Key(key);
                return self.CallView([&](Kivo::CKivoPlotView& view) { return view.PressKey(which, flags); });
            },
            Doc("PressKey"), "key"_a, "flags"_a = 0);
}

void BindSettings(py::class_<View, Plotter>& type) {
    type.def(
            "set_size",
            [](View& self, int width, int height, double density) {
                Check(self.CallView(
                          [&](Kivo::CKivoPlotView& view) { return view.SetSize(width, height, density); }),
                      "set_size");
            },
            Doc("SetSize"), "width"_a, "height"_a, "density"_a = 1.0)
        .def(
            "set_smoothing",
            [](View& self, int factor) {
                Check(self.CallView([&](Kivo::CKivoPlotView& view) { return view.SetSmoothing(factor); }),
                      "set_smoothing");
            },
            Doc("SetSmoothing"), "factor"_a)
        .def(
            "reduce_while_moving",
            [](View& self, bool reduce) {
                self.CallView([&](Kivo::CKivoPlotView& view) { view.ReduceWhileMoving(reduce); });
            },
            Doc("ReduceWhileMoving"), "reduce"_a)
        .def(
            "keep_upright",
            [](View& self, bool upright) {
                self.CallView([&](Kivo::CKivoPlotView& view) { view.KeepUpright(upright); });
            },
            Doc("KeepUpright"), "upright"_a)
        .def(
            "failure",
            [](View& self) {
                return self.CallView([](Kivo::CKivoPlotView& view) { return view.Failure(); });
            },
            "Why nothing is drawn, in one sentence; empty where it is.");
}

} // namespace

void BindPlotView(py::class_<View, Plotter>& type) {
    BindHand(type);
    BindSettings(type);
    type.def(
            "set_events", &SetEvents,
            "Whom the view tells what: redraw() that a frame is due, wake(milliseconds) when wake() is to be "
            "called, below 0 not at all, traced(point or None), view_changed() and failed(). Each takes the "
            "place of the one before; None: nobody.",
            "redraw"_a = py::none(), "wake"_a = py::none(), "traced"_a = py::none(),
            "view_changed"_a = py::none(), "failed"_a = py::none())
        .def(
            "update", [](View& self) { self.CallView([](Kivo::CKivoPlotView& view) { view.Update(); }); },
            Doc("Update"))
        .def(
            "draw", &Draw,
            "The present frame, drawn if one is due, as an array of height x width x 4 with blue, green, red "
            "and 255; None where nothing could be drawn.")
        .def(
            "is_frame_due",
            [](View& self) {
                return self.CallView([](Kivo::CKivoPlotView& view) { return view.IsFrameDue(); });
            },
            Doc("IsFrameDue"))
        .def(
            "wake", [](View& self) { self.CallView([](Kivo::CKivoPlotView& view) { view.Wake(); }); },
            Doc("Wake"));
}

} // namespace KivoPython
