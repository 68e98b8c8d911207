// What the sources of the module share: members of the library's class, and functions of its headers, as
// Python's.
#pragma once

#include "Plotter.h"

#include <KivoTypes.h>

#include <pybind11/stl.h>

#include <array>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

namespace KivoPython {

using namespace py::literals;
using PlotterType = py::class_<Plotter>;
using Place = std::pair<std::int32_t, std::int32_t>;
using Rgba = std::array<float, 4>;

/// The comment of a member or function in the headers, as a docstring.
/// @param name      in C++
/// @param overload  which of those of the name, in the order of the headers
const char* Doc(const std::string& name, std::size_t overload = 0);

/// A C++ name in Python's style.
std::string PythonName(const std::string& name);

// ---- Arguments: how Python hands them over, and how they are passed on ----------------------------------

template <typename T>
struct ArgumentOf {
    using Taken = T;
    static T Pass(const Taken& value) { return value; }
};
template <>
struct ArgumentOf<const char*> { // not None, which pybind11 makes a null pointer
    using Taken = std::string;
    static const char* Pass(const Taken& value) { return value.c_str(); }
};
template <>
struct ArgumentOf<const float*> { // a colour: that of points is handled where it is needed
    using Taken = Rgba;
    static const float* Pass(const Taken& value) { return value.data(); }
};
template <>
struct ArgumentOf<Kivo::POINT> {
    using Taken = Place;
    static Kivo::POINT Pass(const Taken& value) { return {value.first, value.second}; }
};

/// The member as it is: what it returns is a value.
template <typename Result, typename... Arguments>
auto Value(Result (Class::*member)(Arguments...)) {
    return [member](Plotter& self, const typename ArgumentOf<Arguments>::Taken&... arguments) {
        return self.Call(
            [&](Class& plotter) { return (plotter.*member)(ArgumentOf<Arguments>::Pass(arguments)...); });
    };
}
template <typename Result, typename... Arguments>
auto Value(Result (Class::*member)(Arguments...) const) {
    return [member](Plotter& self, const typename ArgumentOf<Arguments>::Taken&... arguments) {
        return self.Call([&](const Class& plotter) {
            return (plotter.*member)(ArgumentOf<Arguments>::Pass(arguments)...);
        });
    };
}

/// Members of the class as methods, each with its comment.
class Members {
public:
    explicit Members(PlotterType& type) : m_type(type) {}

    /// What it returns is a value.
    template <typename Member, typename... Extra>
    Members& Get(const char* name, Member member, const Extra&... extra) {
        m_type.def(PythonName(name).c_str(), Value(member), Doc(name, Count(name)), extra...);
        return *this;
    }
    /// What it returns is 0, or why it could not be done.
    template <typename... Arguments, typename... Extra>
    Members& Do(const char* name, int (Class::*member)(Arguments...), const Extra&... extra) {
        const auto call = Value(member);
        m_type.def(
            PythonName(name).c_str(),
            [call, name](Plotter& self, const typename ArgumentOf<Arguments>::Taken&... arguments) {
                Check(call(self, arguments...), PythonName(name));
            },
            Doc(name, Count(name)), extra...);
        return *this;
    }
    /// Anything else that takes the plotter first.
    template <typename Function, typename... Extra>
    Members& Add(const char* name, Function function, const Extra&... extra) {
        m_type.def(PythonName(name).c_str(), function, Doc(name, Count(name)), extra...);
        return *this;
    }

private:
    /// How often the last name has come: overloads stand together.
    std::size_t Count(const std::string& name) {
        m_count = name == m_last ? m_count + 1 : 0;
        m_last = name;
        return m_count;
    }

    PlotterType& m_type;
    std::string m_last;
    std::size_t m_count = 0;
};

void BindCore(Members& members);
void BindView(Members& members);
void BindSurface(Members& members);
void BindColor(Members& members);
void BindAnnotation(Members& members);
void BindOverlays(Members& members);
void BindContours(Members& members);                // contours, points and cuts beyond the class
void BindBeyond(Members& members);                  // the headers beyond the class
void BindPicture(Members& members);                 // KivoPicture.h
void BindPlotView(py::class_<View, Plotter>& type); // KivoPlotView.h
void BindWindow(py::module_& module);
void BindHost(py::module_& module);

/// Has a type made by functions of the module alone.
void ForbidNew(PyHeapTypeObject* type);

} // namespace KivoPython
