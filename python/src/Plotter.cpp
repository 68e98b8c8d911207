#include "Plotter.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace KivoPython {

namespace Kivo = KivoDrawingTools;

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

int Callable::Visit(visitproc visit, void* arg) const {
    Py_VISIT(m_function.ptr());
    return 0;
}

// ---- Plotters -------------------------------------------------------------------------------------------

Plotter::~Plotter() {
    const LockRelease release;
    m_home->Destroy(std::move(m_content));
}

// The plotter goes before its window and what it reads.
Plotter::Content::~Content() {
    plotter.reset();
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

} // namespace KivoPython
