// The plotter as Python has it: with the window, the arrays and the functions that it refers to.
#pragma once

#include "Home.h"

#include <KivoFunctionPlotter.h>
#include <KivoPlotView.h>
#include <KivoWindow.h>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace KivoPython {

namespace py = pybind11;
namespace Kivo = KivoDrawingTools;
using Class = Kivo::CKivoFunctionPlotter;

/// Releases Python's lock for its scope. Where the interpreter has ended meanwhile, the thread ends where it
/// would take the lock again: that is an unwinding, which pybind11's own scope does not let pass.
class LockRelease {
public:
    LockRelease() : m_state(PyEval_SaveThread()) {}
    ~LockRelease() noexcept(false) { PyEval_RestoreThread(m_state); }
    LockRelease(const LockRelease&) = delete;
    LockRelease& operator=(const LockRelease&) = delete;

private:
    PyThreadState* m_state;
};

/// A window handle, given back with the last of those that use it.
class WindowHandle {
public:
    explicit WindowHandle(KivoDrawingTools::HWND window) : m_window(window) {}
    ~WindowHandle() { Release(); }
    WindowHandle(const WindowHandle&) = delete;
    WindowHandle& operator=(const WindowHandle&) = delete;

    KivoDrawingTools::HWND Get() const { return m_window; }
    int Release();

private:
    KivoDrawingTools::HWND m_window;
};

/// kivoplot.Window.
class Window {
public:
    /// Takes what makes the window, and calls it. Throws a Failure where there is none.
    template <typename Make>
    explicit Window(Make make);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    const std::shared_ptr<Home>& GetHome() const { return m_home; }
    const std::shared_ptr<WindowHandle>& Handle() const;

    /// Calls with the handle, with its home locked and Python's lock released.
    template <typename Use>
    auto Call(Use use) {
        const LockRelease release;
        const HomeLock lock(m_home);
        return use(Handle()->Get());
    }
    int Release();

private:
    struct Content : Resident {
        std::shared_ptr<WindowHandle> handle;
    };

    static void Require(KivoDrawingTools::HWND window);

    std::shared_ptr<Home> m_home = Home::OfThisThread();
    std::unique_ptr<Content> m_content = std::make_unique<Content>();
};

/// Reaches what the plotter keeps for derived classes.
class OpenPlotter : public KivoDrawingTools::CKivoFunctionPlotter {
public:
    const float* Points() const { return m_points; }
    /// What leaves the context current would keep other threads from using the plot.
    void LeaveContext() {
        BeginGLOperation();
        EndGLOperation();
    }
};

/// A function of the user's, as the plotter holds it: Python's lock is taken to call it and to forget it.
class Callable {
public:
    explicit Callable(py::object function) : m_function(std::move(function)) {}
    ~Callable();
    Callable(const Callable&) = delete;
    Callable& operator=(const Callable&) = delete;

    /// Its text; empty where it has none, which is reported as unraisable.
    std::string Ask(double value, double step) const;
    /// Calls it with what a function makes, with Python's lock taken. Errors are reported as unraisable.
    void Tell(const std::function<py::tuple()>& arguments) const;
    int Visit(visitproc visit, void* arg) const;
    void Clear() { m_function = py::object(); }

private:
    py::object m_function;
};

/// kivoplot.FunctionPlotter.
class Plotter {
public:
    using Points = py::array_t<float, py::array::c_style>;

    Plotter();
    virtual ~Plotter();
    Plotter(const Plotter&) = delete;
    Plotter& operator=(const Plotter&) = delete;

    /// Calls with the plotter, with its home locked and Python's lock released.
    template <typename Use>
    auto Call(Use use) {
        const LockRelease release;
        const HomeLock lock(m_home);
        return use(*m_content->plotter);
    }
    /// The same within another plotter's call.
    template <typename Use>
    auto Nested(Use use) {
        return use(*m_content->plotter);
    }
    const std::shared_ptr<Home>& GetHome() const { return m_home; }
    bool SharesHome(const std::shared_ptr<Home>& home) const { return home == m_home; }

    /// OnCreate with the arguments that follow the window.
    template <typename... Arguments>
    int Create(const Window& window, Arguments... arguments);
    /// Has the plotter read an array as long as it does.
    void Refer(const Points& points) { m_content->dataArrays.push_back(Held(points)); }
    /// Lets go of arrays that the plotter does not read any more.
    void ForgetUnread();
    /// Has the plotter read an array for as long as it lives.
    void ReferForEver(const Points& points) { m_content->groupArrays.push_back(Held(points)); }
    /// What the plotter holds of a function.
    std::shared_ptr<Callable> Hold(py::object function);

    /// SetRedrawRequest with a function, or none.
    void RequestRedraw(const py::object& request);

    // For the collection of garbage: functions may refer to the plotter.
    int Visit(visitproc visit, void* arg) const;
    void Clear();

protected:
    /// An array, and what keeps NumPy from giving it other memory: it refuses that to an array with a weak
    /// reference.
    struct HeldArray {
        py::object array;
        py::list guards;
        const float* points;
    };

    struct Content : Resident {
        ~Content() override;

        std::shared_ptr<WindowHandle> window;
        std::vector<HeldArray> dataArrays;
        std::vector<HeldArray> groupArrays;
        std::shared_ptr<Callable> redrawRequest;
        std::unique_ptr<OpenPlotter> own;
        std::unique_ptr<Kivo::CKivoPlotView> view; // in place of an own one
        OpenPlotter* plotter = nullptr;
    };

    static HeldArray Held(const Points& points);

    std::shared_ptr<Home> m_home = Home::OfThisThread();
    std::vector<std::weak_ptr<Callable>> m_callables;

protected:
    std::unique_ptr<Content> m_content = std::make_unique<Content>();
};

/// kivoplot.PlotView: a plotter with what a hand does to it.
class View : public Plotter {
public:
    View();

    /// Calls with the view, as Call does with the plotter.
    template <typename Use>
    auto CallView(Use use) {
        return Call([&](Class&) { return use(*m_content->view); });
    }
    /// Whom to tell what; null for nobody.
    struct Listeners {
        std::shared_ptr<Callable> redraw;
        std::shared_ptr<Callable> wake;
        std::shared_ptr<Callable> traced;
        std::shared_ptr<Callable> viewChanged;
        std::shared_ptr<Callable> failed;
    };
    void Listen(Listeners listeners);

private:
    std::shared_ptr<Listeners> m_listeners = std::make_shared<Listeners>();
};

/// A call that the library could not do: kivoplot.Error.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws what stands for a result that is not 0: ValueError for -3, IndexError for -2, kivoplot.Error for
/// others.
void Check(int result, const std::string& function);

template <typename Make>
Window::Window(Make make) {
    const LockRelease release;
    const HomeLock lock(m_home);
    const KivoDrawingTools::HWND window = make();
    Require(window);
    m_content->handle = std::make_shared<WindowHandle>(window);
}

template <typename... Arguments>
int Plotter::Create(const Window& window, Arguments... arguments) {
    if (!SharesHome(window.GetHome()))
        throw py::value_error("on_create: the window and the plotter were made in different threads");
    const auto handle = window.Handle();
    const int result = Call([&](OpenPlotter& plotter) {
        const int made = plotter.OnCreate(handle->Get(), arguments...);
        m_content->window = handle; // after the one before has been released
        return made;
    });
    ForgetUnread();
    return result;
}

} // namespace KivoPython
