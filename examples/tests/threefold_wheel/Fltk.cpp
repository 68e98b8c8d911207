// Loaded into a program with FLTK before everything else: it is told of three steps of the wheel where there
// was one, in one event.
#include <FL/Fl.H>

namespace {

int Dispatch(int event, Fl_Window* window) {
    if (event == FL_MOUSEWHEEL) Fl::e_dy *= 3;
    return Fl::handle_(event, window);
}

const struct DispatchFromTheStart {
    DispatchFromTheStart() { Fl::event_dispatch(Dispatch); }
} dispatchFromTheStart;

} // namespace
