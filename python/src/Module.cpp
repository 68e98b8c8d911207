// kivoplot._kivoplot: the class and its headers in Python. What is convenient stands on it, in Python.
#include "Bindings.h"

#include <Docstrings.h>

#include <KivoColorMap.h>
#include <KivoVersion.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <stdexcept>

namespace KivoPython {

const char* Doc(const std::string& name, std::size_t overload) {
    const auto* const first = std::find_if(std::begin(docstrings), std::end(docstrings),
                                           [&](const Docstring& entry) { return name == entry.name; });
    const auto left = static_cast<std::size_t>(std::end(docstrings) - first);
    if (left <= overload || name != first[overload].name)
        throw std::logic_error("no comment of " + name + " in the headers");
    return first[overload].text;
}

std::string PythonName(const std::string& name) {
    const auto isUpper = [&](std::size_t i) {
        return i < name.size() && std::isupper(static_cast<unsigned char>(name[i])) != 0;
    };
    std::string python;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool begins = isUpper(i) && (!isUpper(i - 1) || (i + 1 < name.size() && !isUpper(i + 1)));
        if (begins && i > 0 && name[i - 1] != '_') python += '_';
        python += static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
    }
    return python;
}

void ForbidNew(PyHeapTypeObject* type) {
    type->ht_type.tp_new = [](PyTypeObject* wanted, PyObject*, PyObject*) -> PyObject* {
        PyErr_Format(PyExc_TypeError, "%s objects are made by functions of kivoplot alone", wanted->tp_name);
        return nullptr;
    };
}

namespace {

template <typename T>
py::detail::value_and_holder HolderOf(PyObject* object) {
    return reinterpret_cast<py::detail::instance*>(object)->get_value_and_holder(
        py::detail::get_type_info(typeid(T)));
}

// An object without a plotter, which Python's __new__ would make, does not exist: __init__ finds it made.
template <typename T>
PyObject* New(PyTypeObject* type, PyObject*, PyObject*) {
    PyObject* const object = py::detail::make_new_instance(type);
    if (!object) return nullptr;
    try {
        const py::detail::value_and_holder holder = HolderOf<T>(object);
        holder.value_ptr() = new T;
        holder.type->init_instance(holder.inst, nullptr);
    } catch (const std::exception& error) {
        Py_DECREF(object);
        PyErr_SetString(PyExc_MemoryError, error.what());
        return nullptr;
    }
    return object;
}

// Null while the object is being made.
template <typename T>
T* ValueOf(PyObject* object) {
    const auto* const instance = reinterpret_cast<py::detail::instance*>(object);
    if (!instance->simple_layout && !instance->nonsimple.values_and_holders) return nullptr;
    const auto holder = HolderOf<T>(object);
    return holder.holder_constructed() ? holder.template value_ptr<T>() : nullptr;
}

template <typename T>
void SetUp(PyHeapTypeObject* heap) {
    PyTypeObject& type = heap->ht_type;
    type.tp_flags |= Py_TPFLAGS_HAVE_GC;
    type.tp_new = New<T>;
    type.tp_traverse = [](PyObject* self, visitproc visit, void* arg) {
        Py_VISIT(Py_TYPE(self));
        const T* const value = ValueOf<T>(self);
        return value ? value->Visit(visit, arg) : 0;
    };
    type.tp_clear = [](PyObject* self) {
        if (T* const value = ValueOf<T>(self)) value->Clear();
        return 0;
    };
}

} // namespace

} // namespace KivoPython

PYBIND11_MODULE(_kivoplot, module) {
    using namespace KivoPython;
    py::options options;
    module.doc() = "The library's class and the functions of its headers, in Python's style.";
    module.attr("__version__") = KIVO_VERSION;
    py::register_exception<Failure>(module, "Error", PyExc_RuntimeError);
    BindWindow(module);
    BindHost(module);
    PlotterType type(module, "FunctionPlotter", Doc("CKivoFunctionPlotter"),
                     py::custom_type_setup(SetUp<Plotter>));
    type.def(py::init<>());
    Members members(type);
    BindCore(members);
    BindView(members);
    BindSurface(members);
    BindColor(members);
    BindAnnotation(members);
    BindOverlays(members);
    BindBeyond(members);
    BindContours(members);
    BindPicture(members);
    py::class_<View, Plotter> view(module, "PlotView", Doc("CKivoPlotView"),
                                   py::custom_type_setup(SetUp<View>));
    view.def(py::init<>());
    BindPlotView(view);
    module.def(
        "color_map_names", [] { return Kivo::ColorMapNames(); }, Doc("ColorMapNames"));
}
