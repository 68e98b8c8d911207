#include "Plotter.h"

#include <KivoMotion.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace KivoPython {

void Check(int result, const std::string& function) {
    if (result == 0) return;
    const std::string hint = "; help(kivoplot.FunctionPlotter." + function + ") says what it takes";
    if (result == -3) throw py::value_error(function + ": a value is refused" + hint);
    if (result == -2) throw py::index_error(function + ": there is none of this number" + hint);
    const std::string reason = Kivo::LastWindowError();
    throw Failure(function + " failed" +
                  (reason.empty() ? ": the plotter has no usable window" : ": " + reason));
}

// ---- Windows --------------------------------------------------------------------------------------------

int WindowHandle::Release() {
    return Kivo::ReleaseWindow(std::exchange(m_window, nullptr));
}

Window::~Window() {
    if (!m_content) return;
    const LockRelease release;
    m_home->Destroy(std::move(m_content));
}

void Window::Require(Kivo::HWND window) {
    if (!window) throw Failure(Kivo::LastWindowError());
}

const std::shared_ptr<WindowHandle>& Window::Handle() const {
    return m_content->handle;
}

int Window::Release() {
    const LockRelease release;
    const HomeLock lock(m_home);
    return m_content->handle->Release();
}

// ---- Functions of the user's ----------------------------------------------------------------------------

Callable::~Callable() {
    const py::gil_scoped_acquire acquire;
    m_function = py::object();
}

std::string Callable::Ask(double value, double step) const {
    if (_Py_IsFinalizing()) return {};
    const py::gil_scoped_acquire acquire;
    if (!m_function) return {};
    const py::object function = m_function; // it may be replaced meanwhile
    try {
        return py::cast<std::string>(function(value, step));
    } catch (py::error_already_set& error) {
        error.discard_as_unraisable(function);
    } catch (const py::cast_error&) {
        PyErr_SetString(PyExc_TypeError, "a label format returns a str");
        PyErr_WriteUnraisable(function.ptr());
    }
    return {};
}

void Callable::Tell(const std::function<py::tuple()>& arguments) const {
    if (_Py_IsFinalizing()) return;
    const py::gil_scoped_acquire acquire;
    if (!m_function) return;
    const py::object function = m_function;
    try {
        function(*arguments());
    } catch (py::error_already_set& error) {
        error.discard_as_unraisable(function);
    }
}

int Callable::Visit(visitproc visit, void* arg) const {
    Py_VISIT(m_function.ptr());
    return 0;
}

// ---- Plotters -------------------------------------------------------------------------------------------

Plotter::Plotter() {
    m_content->own = std::make_unique<OpenPlotter>();
    m_content->plotter = m_content->own.get();
}

Plotter::~Plotter() {
    const LockRelease release;
    m_home->Destroy(std::move(m_content));
}

// The plotter goes before its window and what it reads.
Plotter::Content::~Content() {
    view.reset();
    own.reset();
    window.reset();
    const py::gil_scoped_acquire acquire;
    dataArrays.clear();
    groupArrays.clear();
}

Plotter::HeldArray Plotter::Held(const Points& points) {
    py::list guards;
    for (py::object array = points; py::isinstance<py::array>(array); array = array.attr("base"))
        guards.append(py::weakref(py::handle(array)));
    return {points, guards, points.data()};
}

void Plotter::ForgetUnread() {
    const float* const read = Call([](OpenPlotter& plotter) { return plotter.Points(); });
    auto& arrays = m_content->dataArrays;
    const auto unread = std::stable_partition(arrays.begin(), arrays.end(),
                                              [read](const HeldArray& held) { return held.points == read; });
    // To forget an array may run whatever the user has tied to its end.
    const std::vector<HeldArray> forgotten(std::make_move_iterator(unread),
                                           std::make_move_iterator(arrays.end()));
    arrays.erase(unread, arrays.end());
}

std::shared_ptr<Callable> Plotter::Hold(py::object function) {
    auto callable = std::make_shared<Callable>(std::move(function));
    m_callables.erase(std::remove_if(m_callables.begin(), m_callables.end(),
                                     [](const auto& held) { return held.expired(); }),
                      m_callables.end());
    m_callables.push_back(callable);
    return callable;
}

void Plotter::RequestRedraw(const py::object& request) {
    if (m_content->view) throw py::value_error("set_redraw_request: a PlotView has its own");
    if (!request.is_none() && !PyCallable_Check(request.ptr()))
        throw py::type_error("set_redraw_request: request is no function");
    std::shared_ptr<Callable> wanted = request.is_none() ? nullptr : Hold(request);
    const auto tell = [](void* context) {
        static_cast<Callable*>(context)->Tell([] { return py::tuple(); });
    };
    Call([&](OpenPlotter& plotter) {
        SetRedrawRequest(plotter, wanted ? +tell : nullptr, wanted.get());
        m_content->redrawRequest.swap(wanted);
    });
}

int Plotter::Visit(visitproc visit, void* arg) const {
    for (const auto& held : m_callables) {
        const std::shared_ptr<Callable> callable = held.lock();
        if (const int result = callable ? callable->Visit(visit, arg) : 0) return result;
    }
    return 0;
}

void Plotter::Clear() {
    for (const auto& held : std::exchange(m_callables, {}))
        if (const std::shared_ptr<Callable> callable = held.lock()) callable->Clear();
}

// ---- Views ----------------------------------------------------------------------------------------------

View::View() {
    const auto tell = [listeners = m_listeners](std::shared_ptr<Callable> Listeners::*which, auto arguments) {
        if (const std::shared_ptr<Callable> listener = (*listeners).*which) listener->Tell(arguments);
    };
    const auto nothing = [] { return py::tuple(); };
    Kivo::SKivoPlotViewEvents events;
    events.redraw = [=] { tell(&Listeners::redraw, nothing); };
    events.wake = [=](int milliseconds) {
        tell(&Listeners::wake, [=] { return py::make_tuple(milliseconds); });
    };
    events.traced = [=](const float* point) {
        tell(&Listeners::traced, [=]() -> py::tuple {
            if (!point) return py::make_tuple(py::none());
            return py::make_tuple(py::make_tuple(point[0], point[1], point[2]));
        });
    };
    events.viewChanged = [=] { tell(&Listeners::viewChanged, nothing); };
    events.failed = [=] { tell(&Listeners::failed, nothing); };
    const LockRelease release;
    const HomeLock lock(GetHome());
    auto plotter = std::make_unique<OpenPlotter>();
    m_content->plotter = plotter.get();
    m_content->view = std::make_unique<Kivo::CKivoPlotView>(std::move(events), std::move(plotter));
    m_content->own.reset();
}

void View::Listen(Listeners listeners) {
    const Listeners before = std::exchange(*m_listeners, std::move(listeners));
}

} // namespace KivoPython
