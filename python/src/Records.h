// The headers' records, which are dataclasses in kivoplot/_records.py.
#pragma once

#include "Bindings.h"

#include <KivoLegend.h>
#include <KivoPicture.h>
#include <KivoStyle.h>
#include <KivoSurfaces.h>
#include <KivoView.h>

namespace KivoPython {

/// Each throws a TypeError that names the field for what is no such record, or has a value of another kind in
/// it.
Kivo::SKivoStyle ToStyle(const py::object& record);
Kivo::SKivoView ToView(const py::object& record);
Kivo::SKivoSurface ToSurface(const py::object& record);
Kivo::SKivoLegend ToLegend(const py::object& record);
Kivo::SKivoPictureOptions ToPictureOptions(const py::object& record);

py::object FromStyle(const Kivo::SKivoStyle& style);
py::object FromView(const Kivo::SKivoView& view);
py::object FromSurface(const Kivo::SKivoSurface& surface);
py::object FromLegend(const Kivo::SKivoLegend& legend);
/// A member of an enumeration of kivoplot/_records.py.
py::object FromNumber(const char* enumeration, int number);

} // namespace KivoPython
