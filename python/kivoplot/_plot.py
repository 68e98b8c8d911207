"""Plots of arrays: what takes one line for each wish."""

from __future__ import annotations

import numbers as abstract
import os
from collections.abc import Callable, Sequence
from typing import Any, Generic, Optional, TypeVar, Union, overload

import numpy as np
import numpy.typing as npt

from . import _arrays, _colors, _files
from ._colors import Color
from ._kivoplot import Error, PlotView, color_map_names, to_pixels
from ._records import Legend, LegendNumbers, PictureOptions, Surface, View

T = TypeVar('T')
Range = tuple[float, float]
LabelFormat = Callable[[float, float], str]

AXES = 'xyz'
USUAL_DPI = 96.0
MOST_PIXELS = 16384
MOST_FRAME_LINES = 25  # in each direction, so that the colours stay visible
MODES = ('3d', 'xy', 'yz', 'xz')
LEGEND_NUMBERS = {'set': LegendNumbers.AS_SET, 'fitted': LegendNumbers.FITTED, 'round': LegendNumbers.ROUND}
LIGHT_GROUND, DARK_INK = 0xE9FDFF, 0x000000
DARK_GROUND, LIGHT_INK = 0x24201E, 0xDEDEDE
CURVE_COLORS = ('#ff0000', '#000000', '#ff00ff', '#006000', '#ff8000', '#0000a0')


# ---- Kinds of values, each from what the user gives, or an error that names the setting -------------------------------

def _kind(name: str, value: object, expected: str) -> TypeError:
    return TypeError(f'{name}: expected {expected}, found {type(value).__name__} {value!r:.80}')


def _flag(name: str, value: Any) -> bool:
    if not isinstance(value, (bool, np.bool_)):
        raise _kind(name, value, 'True or False')
    return bool(value)


def _text(name: str, value: Any) -> str:
    if not isinstance(value, str):
        raise _kind(name, value, 'a str')
    return value


def _number(name: str, value: Any) -> float:
    if not isinstance(value, abstract.Real) or isinstance(value, bool):
        raise _kind(name, value, 'a number')
    number = float(value)
    if not np.isfinite(number):
        raise ValueError(f'{name}: expected a finite number, found {value!r}')
    return number


def _not_negative(name: str, value: Any) -> float:
    number = _number(name, value)
    if number < 0.0:
        raise ValueError(f'{name}: expected 0 or more, found {value!r}')
    return number


def _count(least: int, most: int) -> Callable[[str, Any], int]:
    def parse(name: str, value: Any) -> int:
        if not isinstance(value, abstract.Integral) or isinstance(value, bool):
            raise _kind(name, value, f'a whole number from {least} to {most}')
        if not least <= int(value) <= most:
            raise ValueError(f'{name}: expected {least} to {most}, found {value!r:.80}')
        return int(value)
    return parse


def _choice(choices: Sequence[str]) -> Callable[[str, Any], str]:
    def parse(name: str, value: Any) -> str:
        if _text(name, value) not in choices:
            raise ValueError(f'{name}: expected {", ".join(choices)}, found {value!r:.80}')
        return str(value)
    return parse


def _axes(name: str, value: Any) -> str:
    if not set(_text(name, value)) <= set(AXES):
        raise ValueError(f'{name}: expected axes such as "z" or "xyz", found {value!r:.80}')
    return ''.join(axis for axis in AXES if axis in value)


def _range(name: str, value: Any) -> Range:
    if isinstance(value, str) or not isinstance(value, (Sequence, np.ndarray)):
        raise _kind(name, value, 'two numbers')
    if len(value) != 2:
        raise ValueError(f'{name}: expected two numbers, found {len(value)}')
    low, high = (_number(name, number) for number in value)
    if low == high:
        raise ValueError(f'{name}: expected two different numbers, found {low:g} twice')
    return low, high


def _table(name: str, value: Any) -> Union[str, npt.NDArray[np.float32]]:
    """The name of a table, or one of three or four numbers a colour, from 0 to 1."""
    if isinstance(value, str):
        return _choice(['gradient', *color_map_names()])(name, value)
    if isinstance(value, (list, tuple)) and value and all(isinstance(color, (str, tuple, list)) for color in value):
        packed = [_colors.packed(name, color[:3] if not isinstance(color, str) else color) for color in value]
        array: npt.NDArray[Any] = np.array([[(color >> shift & 255) / 255 for shift in (0, 8, 16)] for color in packed])
    else:
        array = _arrays.numbers(name, value)
    if array.ndim != 2 or array.shape[1] not in (3, 4) or not 2 <= array.shape[0] <= 65536:
        raise ValueError(f'{name} is {_arrays.describe(array)}; expected a name, or (2 to 65536, 3) with red, green and blue')
    if not ((array >= 0) & (array <= 1)).all():
        raise ValueError(f'{name}: expected colours from 0 to 1, found {np.nanmin(array):g} to {np.nanmax(array):g}')
    rgba = np.ones((array.shape[0], 4), dtype=np.float32)
    rgba[:, :array.shape[1]] = array
    return rgba


def _function(name: str, value: Any) -> LabelFormat:
    if not callable(value):
        raise _kind(name, value, 'a function of a value and the step to the next')
    function: LabelFormat = value
    return function


def _mode(name: str, value: Any) -> str:
    if isinstance(value, abstract.Integral) and not isinstance(value, bool):
        return MODES[_count(0, 3)(name, value)]
    return _choice(MODES)(name, value)


class Setting(Generic[T]):
    """A property and keyword argument. What is None follows from the data."""

    def __init__(self, parse: Callable[[str, Any], T], group: str, doc: str, default: Optional[T] = None) -> None:
        self._parse, self.group, self.__doc__, self.default = parse, group, doc, default

    def __set_name__(self, owner: type, name: str) -> None:
        self._name = name
        settings = owner.__dict__.get('_settings_table')
        if settings is not None:
            settings[name] = self

    @overload
    def __get__(self, plot: None, owner: type) -> 'Setting[T]': ...
    @overload
    def __get__(self, plot: 'Plot', owner: type) -> Optional[T]: ...

    def __get__(self, plot: Optional['Plot'], owner: type) -> Union['Setting[T]', Optional[T]]:
        if plot is None:
            return self
        value: Optional[T] = plot._settings.get(self._name, self.default)
        return value

    def __set__(self, plot: 'Plot', value: Optional[T]) -> None:
        plot._change({self._name: value})

    def take(self, value: Any) -> Optional[T]:
        return None if value is None else self._parse(self._name, value)


def _color(name: str, value: Any) -> Color:
    _colors.packed(name, value)
    color: Color = value
    return color


class Plot:
    """A surface z = f(x, y), what lies over it, and how it looks: plot() makes one.

    Every setting is a property and a keyword argument of plot(). None takes back what was set."""

    _settings_table: dict[str, Setting[Any]] = {}

    title = Setting(_text, 'titles', 'The title above the plot.')
    x_title = Setting(_text, 'titles', 'The title of the X axis.')
    y_title = Setting(_text, 'titles', 'The title of the Y axis.')
    z_title = Setting(_text, 'titles', 'The title of the Z axis.')
    x_min = Setting(_number, 'axes', 'First tick value of the X axis.')
    y_min = Setting(_number, 'axes', 'First tick value of the Y axis.')
    z_min = Setting(_number, 'axes', 'First tick value of the Z axis.')
    x_max = Setting(_number, 'axes', 'Last tick value of the X axis.')
    y_max = Setting(_number, 'axes', 'Last tick value of the Y axis.')
    z_max = Setting(_number, 'axes', 'Last tick value of the Z axis.')
    x_ticks = Setting(_count(2, 200), 'axes', 'Number of ticks of the X axis.')
    y_ticks = Setting(_count(2, 200), 'axes', 'Number of ticks of the Y axis.')
    z_ticks = Setting(_count(2, 200), 'axes', 'Number of ticks of the Z axis.')
    x_precision = Setting(_count(0, 9), 'axes', 'Decimals of the labels of the X axis.')
    y_precision = Setting(_count(0, 9), 'axes', 'Decimals of the labels of the Y axis.')
    z_precision = Setting(_count(0, 9), 'axes', 'Decimals of the labels of the Z axis.')
    x_labels = Setting(_function, 'labels', 'The words for numbers of the X axis: a function of value and step.')
    y_labels = Setting(_function, 'labels', 'The words for numbers of the Y axis: a function of value and step.')
    z_labels = Setting(_function, 'labels', 'The words for numbers of the Z axis: a function of value and step.')
    inverse_x = Setting(_flag, 'view', 'Whether the 3-D plot mirrors the X axis.', False)
    inverse_y = Setting(_flag, 'view', 'Whether the 3-D plot mirrors the Y axis.', False)
    inverse_z = Setting(_flag, 'view', 'Whether the 3-D plot mirrors the Z axis.', False)
    contours = Setting(_axes, 'switches', 'Axes of which the 3-D plot has contours, such as "z" or "xyz".', '')
    contour_count = Setting(_count(1, 500), 'contour_count', 'Number of contour levels of each axis.', 20)
    contour_interval = Setting(_not_negative, 'contour_levels', 'Distance of the contour levels of equal z; 0 for as many as contour_count.', 0.0)
    contour_base = Setting(_number, 'contour_levels', 'One of the contour levels, where they have an interval.', 0.0)
    fill_contours = Setting(_flag, 'switches', 'Whether the flat plot of XY has a colour between two contours.', False)
    label_contours = Setting(_flag, 'switches', 'Whether values stand at the contours of the flat plot of XY.', False)
    grid_lines = Setting(_flag, 'switches', 'Whether lines run from the ticks across the back planes.', True)
    frame_lines = Setting(_flag, 'switches', 'Whether there are lines on the surface.', True)
    x_line_step = Setting(_count(1, 100000), 'line_steps', 'Columns from one frame line to the next.')
    y_line_step = Setting(_count(1, 100000), 'line_steps', 'Rows from one frame line to the next.')
    frame_line_color: Setting[Color] = Setting(_color, 'switches', 'Colour of the lines on the surface.', '#000000')
    switch_planes = Setting(_flag, 'switches', 'Whether the grid always stands behind the surface.', True)
    background: Setting[Color] = Setting(_color, 'colors', 'Colour behind the plot.')
    ink: Setting[Color] = Setting(_color, 'colors', 'Colour of texts and of the lines of the axes.')
    gradient_start: Setting[Color] = Setting(_color, 'gradients', 'Colour of the smallest value.', '#0000ff')
    gradient_end: Setting[Color] = Setting(_color, 'gradients', 'Colour of the largest value.', '#ff0000')
    colors = Setting(_table, 'gradients', 'Colours from low to high: a name of color_map_names(), or a table.')
    color_range = Setting(_range, 'gradients', 'Values of Z with the first and the last colour.')
    legend = Setting(_flag, 'legend', 'Whether the colour legend is shown.', True)
    legend_title = Setting(_text, 'legend', 'What the colours mean, above their bar.')
    legend_numbers = Setting(_choice(list(LEGEND_NUMBERS)), 'legend', 'Numbers beside the bar: set, fitted or round.', 'set')
    legend_precision = Setting(_count(0, 9), 'legend', 'Decimals of the numbers beside the bar, where they are set.', 3)
    group_names = Setting(_flag, 'switches', 'Whether names of measure groups are listed.', False)
    fit_digits = Setting(_flag, 'switches', 'Whether the traced point has the digits that its axes need.', False)
    fit_surfaces = Setting(_flag, 'fit', 'Whether the box is as large as all surfaces, not as the first.', False)
    point_size = Setting(_count(1, 100), 'switches', 'Radius of measure points in pixels.', 4)
    mode = Setting(_mode, 'view', 'The plot: 3d, or one of the flat ones xy, yz and xz.', '3d')
    azimuth = Setting(_number, 'viewpoint', 'From which side the 3-D plot is seen, in degrees; 45 at first.')
    elevation = Setting(_number, 'viewpoint', 'From how high the 3-D plot is seen, -90 to 90 degrees.')
    zoom = Setting(_number, 'viewpoint', 'How many times as large the plot is shown, 0.01 to 1000.')

    def __init__(self, z: npt.ArrayLike, x: Optional[npt.ArrayLike] = None, y: Optional[npt.ArrayLike] = None, *,
                 size: tuple[int, int] = (1200, 800), **settings: Any) -> None:
        self._size = _size(size)
        self._settings: dict[str, Any] = {}
        self._settings = self._taken(settings)
        self._grid = _arrays.grid(z, x, y)
        self._curve_count = 0
        self._widget: Optional[object] = None
        self.density = 1.0  #: pixels in a unit of the widget that shows it
        self._shown_size: Optional[tuple[int, int]] = None  # of the widget that shows it
        #: The plotter below, with all that the class can do, and what a hand does to it.
        self.plotter = PlotView()
        if self.plotter.failure():
            raise Error(self.plotter.failure())
        self.plotter.set_size(*self._size)
        self._lay_out(self._size)
        self._show_grid()

    # ---- Data ---------------------------------------------------------------------------------------------------------

    def set_data(self, z: npt.ArrayLike, x: Optional[npt.ArrayLike] = None, y: Optional[npt.ArrayLike] = None) -> None:
        """Shows other data in the present view, with the present settings. Curves and further surfaces go."""
        grid = _arrays.grid(z, x, y)
        view = self.plotter.get_view()
        self._grid = grid
        self._show_grid()
        self.plotter.set_view(view)
        self.plotter.update()

    def add_surface(self, z: npt.ArrayLike, x: Optional[npt.ArrayLike] = None, y: Optional[npt.ArrayLike] = None, *,
                    color: Optional[Color] = None, opacity: float = 1.0, frame_lines: bool = False) -> int:
        """Lays another surface over the first, in the colours of z or one of its own. Returns its number."""
        opacity = _number('opacity', opacity)
        if not 0.0 <= opacity <= 1.0:
            raise ValueError(f'opacity: expected 0 to 1, found {opacity:g}')
        grid = _arrays.grid(z, x, y, self._grid.origin)
        looks = Surface(opacity=opacity, is_colored_by_z=color is None)
        if color is not None:
            looks.color = _colors.packed('color', color)
        if _flag('frame_lines', frame_lines):
            looks.frame_line_step = (_line_step(grid.points.shape[1]), _line_step(grid.points.shape[0]))
        number = self.plotter.add_surface(grid.points, looks)
        self.plotter.update()
        return number

    def add_curve(self, points: npt.ArrayLike, *, color: Optional[Color] = None, width: float = 2.0) -> int:
        """Joins points by a line. Returns the curve's number."""
        floats = _arrays.points('points', points, self._grid.origin)
        chosen = _colors.packed('color', color if color is not None else CURVE_COLORS[self._curve_count % len(CURVE_COLORS)])
        if _number('width', width) <= 0.0:
            raise ValueError(f'width: expected more than 0, found {width:g}')
        if color is None and chosen == DARK_INK:
            chosen = self._grounds()[1]
        index = self.plotter.add_curve_data(floats)
        self.plotter.set_curve_color(index, chosen)
        self.plotter.set_curve_width(index, width)
        self._curve_count += 1
        self.plotter.update()
        return index

    def add_points(self, points: npt.ArrayLike, *, name: str = '', color: Optional[Color] = None) -> int:
        """Shows points as a group with a name. Returns the group's number. Groups stay when other data come."""
        floats = _arrays.points('points', points, self._grid.origin)
        packed = None if color is None else _colors.packed('color', color)
        self.plotter.add_measure_points(floats, _text('name', name))
        index = self.plotter.get_num_measure_groups() - 1
        if packed is not None:
            self.plotter.set_measure_group_color(index, packed)
        self.plotter.update()
        return index

    def trace_at(self, x: int, y: int) -> Optional[tuple[float, float, float]]:
        """Marks the point of the surface at a place of the picture, in pixels at 96 dpi from the upper left corner, and
        returns it."""
        place = _count(-MOST_PIXELS, MOST_PIXELS)('x', x), _count(-MOST_PIXELS, MOST_PIXELS)('y', y)
        self._lay_out(self._size)
        point = self.plotter.get_trace_point() if self.plotter.trace(place) else None
        if self._shown_size is not None:
            self._lay_out(self._shown_size)
        self.plotter.update()
        return None if point is None else self.absolute((point[0], point[1], point[2]))

    # ---- Settings -----------------------------------------------------------------------------------------------------

    def set(self, **settings: Any) -> None:
        """Changes several settings at once."""
        self._change(settings)

    @property
    def view(self) -> View:
        """How the plot is looked at: may be kept, and given to others."""
        return self.plotter.get_view()

    @view.setter
    def view(self, view: View) -> None:
        self.plotter.set_view(view)
        self.plotter.update()

    @property
    def size(self) -> tuple[int, int]:
        """Width and height in pixels at 96 dpi. The view stays when they change."""
        return self._size

    @size.setter
    def size(self, size: tuple[int, int]) -> None:
        self._size = _size(size)
        if self._shown_size is None:
            self.plotter.set_size(*self._size)
            self._lay_out(self._size)

    def _lay_out(self, size: tuple[int, int]) -> None:
        view = self.plotter.get_view()
        self.plotter.on_size(0, *size)
        self.plotter.set_view(view)

    def _taken(self, settings: dict[str, Any]) -> dict[str, Any]:
        """All settings with these; nothing has changed where one is wrong."""
        taken = dict(self._settings)
        for name, value in settings.items():
            setting = self._settings_table.get(name)
            if setting is None:
                raise TypeError(f'{name} is no setting; expected {", ".join(self._settings_table)}')
            value = setting.take(value)
            if value is None:
                taken.pop(name, None)
            else:
                taken[name] = value
        elevation, zoom = taken.get('elevation'), taken.get('zoom')
        if elevation is not None and not -90 <= elevation <= 90:
            raise ValueError(f'elevation: expected -90 to 90, found {elevation:g}')
        if zoom is not None and not 0.01 <= zoom <= 1000:
            raise ValueError(f'zoom: expected 0.01 to 1000, found {zoom:g}')
        return taken

    def _change(self, settings: dict[str, Any]) -> None:
        before = self._settings
        self._settings = self._taken(settings)
        groups = dict.fromkeys(self._settings_table[name].group for name in settings)
        try:
            for group in groups:
                getattr(self, f'_apply_{group}')()
        except ValueError:
            self._settings = before
            for group in groups:
                getattr(self, f'_apply_{group}')()
            raise
        self.plotter.update()

    def _show_grid(self) -> None:
        plotter = self.plotter
        for axis, origin in enumerate(self._grid.origin):
            plotter.set_axis_origin(axis, origin)
        plotter.cull_small_triangles(True)
        plotter.set_data_reference(self._grid.points)
        plotter.reset_view()
        self._curve_count = 0
        self._automatic = {f'{axis}_{what}': getattr(plotter, f'get_{axis}_axis_{member}')() for axis in AXES
                           for what, member in (('min', 'min'), ('max', 'max'), ('ticks', 'tick_mark_number'),
                                                ('precision', 'floating_point_precision'))}
        for group in ('fit', 'labels', 'colors', 'titles', 'switches', 'line_steps', 'contour_count', 'contour_levels',
                      'gradients', 'legend'):
            getattr(self, f'_apply_{group}')()
        plotter.auto_adjust_axis_length_ratio()
        self._apply_view()
        self._apply_axes()
        self._apply_viewpoint()

    def _grounds(self) -> tuple[int, int]:
        """Background and ink: what is not set is what can be read with the other."""
        ground = None if self.background is None else _colors.packed('background', self.background)
        ink = None if self.ink is None else _colors.packed('ink', self.ink)
        if ground is not None:
            is_dark = _colors.is_dark(ground)
        else:
            is_dark = ink is not None and not _colors.is_dark(ink)
        return (ground if ground is not None else DARK_GROUND if is_dark else LIGHT_GROUND,
                ink if ink is not None else LIGHT_INK if is_dark else DARK_INK)

    def _apply_colors(self) -> None:
        ground, ink = self._grounds()
        style = self.plotter.get_style()
        style.ink_color = ink
        self.plotter.set_style(style)
        self.plotter.set_background_color(ground)

    def _apply_titles(self) -> None:
        self.plotter.set_plot_title(self.title or '')
        for axis in AXES:
            getattr(self.plotter, f'set_{axis}_axis_title')(getattr(self, f'{axis}_title') or '')

    def _apply_switches(self) -> None:
        plotter = self.plotter
        plotter.show_grid_lines(bool(self.grid_lines))
        plotter.show_frame_lines(bool(self.frame_lines))
        plotter.set_auto_switch_frame_planes(bool(self.switch_planes))
        for axis in AXES:
            getattr(plotter, f'show_{axis}_iso_contours')(axis in (self.contours or ''))
        plotter.fill_contours(bool(self.fill_contours))
        plotter.label_contours(bool(self.label_contours))
        plotter.set_frame_line_color(_colors.packed('frame_line_color', self.frame_line_color or '#000000'))
        plotter.set_point_radius_pixel_size(self.point_size or 4)
        plotter.show_measure_group_names(bool(self.group_names))
        plotter.fit_read_out_digits(bool(self.fit_digits))

    def _apply_line_steps(self) -> None:
        rows, columns = self._grid.points.shape[:2]
        self.plotter.set_frame_line_step(self.x_line_step or _line_step(columns), self.y_line_step or _line_step(rows))

    def _apply_contour_count(self) -> None:
        self.plotter.set_iso_contour_count(self.contour_count or 20)

    def _apply_contour_levels(self) -> None:
        self.plotter.set_contour_interval(2, self.contour_interval or 0.0, (self.contour_base or 0.0) - self._grid.origin[2])

    def _apply_gradients(self) -> None:
        start = _colors.packed('gradient_start', self.gradient_start or '#0000ff')
        end = _colors.packed('gradient_end', self.gradient_end or '#ff0000')
        colors = None if isinstance(self.colors, str) and self.colors == 'gradient' else self.colors
        for axis, name in enumerate(AXES):
            getattr(self.plotter, f'set_{name}_gradient_color')(start, end)
            self.plotter.set_color_map(axis, colors)
        low, high = self.color_range or (0.0, 0.0)
        origin = self._grid.origin[2] if self.color_range else 0.0
        self.plotter.set_color_range(2, low - origin, high - origin)

    def _apply_legend(self) -> None:
        numbers = LEGEND_NUMBERS[self.legend_numbers or 'set']
        self.plotter.set_gradient_color_rule_floating_point_precision(3 if self.legend_precision is None else self.legend_precision)
        for axis in range(3):
            title = self.legend_title if axis == 2 else None
            self.plotter.set_legend(axis, Legend(bool(self.legend), title or '', numbers))

    def _apply_labels(self) -> None:
        for axis, name in enumerate(AXES):
            self.plotter.set_axis_label_format(axis, getattr(self, f'{name}_labels'))

    def _apply_fit(self) -> None:
        self.plotter.fit_axes_to_surfaces(bool(self.fit_surfaces))

    def _apply_axes(self) -> None:
        limits = {}
        for axis, name in enumerate(AXES):
            for end in ('min', 'max'):
                value = getattr(self, f'{name}_{end}')
                key = f'{name}_{end}'
                limits[key] = self._automatic[key] if value is None else value - self._grid.origin[axis]
            if not limits[f'{name}_min'] < limits[f'{name}_max']:
                wrong = f'{name}_min' if getattr(self, f'{name}_min') is not None else f'{name}_max'
                raise ValueError(f'{wrong}: the {name.upper()} axis must rise')
        view = None
        for key, value in limits.items():
            getter, setter = (getattr(self.plotter, f'{do}_{key[0]}_axis_{key[2:]}') for do in ('get', 'set'))
            if getter() != np.float32(value):
                view = view or self.plotter.get_view()
                setter(value)
        for name in AXES:
            for what, member in (('ticks', 'tick_mark_number'), ('precision', 'floating_point_precision')):
                value = getattr(self, f'{name}_{what}')
                wanted = self._automatic[f'{name}_{what}'] if value is None else value
                getter, setter = (getattr(self.plotter, f'{do}_{name}_axis_{member}') for do in ('get', 'set'))
                if getter() != wanted:
                    setter(wanted)
        if view is not None:
            self.plotter.auto_adjust_axis_length_ratio()
            self._switch()
            self.plotter.set_view(view)

    def _switch(self) -> None:
        switches = (self.plotter.switch_to_normal_plot, self.plotter.switch_to_xy_project_plot,
                    self.plotter.switch_to_yz_project_plot, self.plotter.switch_to_zx_project_plot)
        switches[MODES.index(self.mode or '3d')]()

    def _apply_view(self) -> None:
        if (self.mode or '3d') == '3d':
            for name in AXES:
                getattr(self.plotter, f'set_inverse_{name}_axis')(bool(getattr(self, f'inverse_{name}')))
        self._switch()

    def _apply_viewpoint(self) -> None:
        plotter = self.plotter
        if (self.mode or '3d') == '3d' and (self.azimuth is not None or self.elevation is not None):
            azimuth, elevation, _ = plotter.get_view_angles()
            plotter.set_view_angles(azimuth if self.azimuth is None else self.azimuth,
                                    elevation if self.elevation is None else self.elevation)
        view = plotter.get_view()
        if self.zoom is not None:
            view.zoom = self.zoom
        plotter.set_view(view)

    # ---- For widgets --------------------------------------------------------------------------------------------------

    def follow(self, width: int, height: int, density: float) -> None:
        """Has the size of a widget that shows the plot, in the toolkit's units of so many pixels."""
        self.density = density
        self._shown_size = to_pixels(width, density), to_pixels(height, density)
        self.plotter.set_size(*self._shown_size, min(max(density, 0.125), 8.0))

    def be_shown(self, **events: Any) -> Callable[..., None]:
        """Tells a widget what set_events of the plotter does, in place of one before. Returns what is to be called when the
        widget is gone."""
        widget = self._widget = object()
        self.plotter.set_events(**events)

        def forget(*_: Any) -> None:
            if self._widget is widget:  # not another one by now
                self.plotter.set_events()
                self.density, self._shown_size = 1.0, None
                self.plotter.set_size(*self._size)
        return forget

    def place(self, x: float, y: float) -> tuple[int, int]:
        """The pixel of a place in the widget."""
        return to_pixels(x, y, self.density)

    def absolute(self, point: Optional[tuple[float, float, float]]) -> Optional[tuple[float, float, float]]:
        """A point of the plotter's in the numbers of the arrays."""
        if point is None:
            return None
        origin = self._grid.origin
        return point[0] + origin[0], point[1] + origin[1], point[2] + origin[2]

    # ---- Pictures -----------------------------------------------------------------------------------------------------

    def image(self, *, dpi: float = USUAL_DPI, smoothing: int = 2, transparent: bool = False) -> npt.NDArray[np.uint8]:
        """The picture as an array of height x width x 4: red, green, blue, alpha.

        dpi: dots per inch; with 96 it has the plot's size in pixels, with others more or less of them.
        smoothing: how many times as fine it is drawn and averaged, 1 to 4.
        transparent: whether the background is left out."""
        scale = _number('dpi', dpi) / USUAL_DPI
        width, height = (round(side * scale) for side in self._size)
        if scale <= 0.0 or min(width, height) < 1 or max(width, height) > MOST_PIXELS:
            raise ValueError(f'dpi: a picture of {width} x {height} pixels; expected 1 to {MOST_PIXELS} a side')
        options = PictureOptions(width, height, scale, _count(1, 4)('smoothing', smoothing), _flag('transparent', transparent))
        style = self.plotter.get_style()
        if scale <= 8.0:
            return self.plotter.capture_picture(options)
        # The library multiplies by two scales, no more than 8 times each.
        options.scale, style.pixel_scale = scale / 8.0, 8.0
        self.plotter.set_style(style)
        try:
            return self.plotter.capture_picture(options)
        finally:
            style.pixel_scale = 1.0
            self.plotter.set_style(style)

    def save(self, path: Union[str, 'os.PathLike[str]'], *, dpi: float = USUAL_DPI, smoothing: int = 2,
             transparent: bool = False) -> None:
        """Writes the picture into a file: .png, and by Pillow .jpg, .pdf, .tiff and .webp."""
        kind = _files.format_of(path, transparent)
        _files.save(path, self.image(dpi=dpi, smoothing=smoothing, transparent=transparent), kind, float(dpi))

    def show(self, *, block: Optional[bool] = None) -> Any:
        """Shows the plot in a window, of PyQt6, PySide6 or tkinter, whichever is there.

        block: whether to wait until it is closed; without, it waits unless the toolkit runs already, or Python
        is used by hand. Returns the window's widget."""
        from ._show import show
        return show(self, block)

    def _repr_png_(self) -> bytes:
        return _files.png(self.image(), USUAL_DPI)

    def __repr__(self) -> str:
        rows, columns = self._grid.points.shape[:2]
        return f'<kivoplot.Plot of {columns} x {rows} points>'


def _size(size: Any) -> tuple[int, int]:
    if isinstance(size, str) or not isinstance(size, (Sequence, np.ndarray)):
        raise _kind('size', size, 'width and height')
    if len(size) != 2:
        raise ValueError(f'size: expected width and height, found {len(size)} numbers')
    width, height = (_count(1, MOST_PIXELS)('size', side) for side in size)
    return width, height


def _line_step(points: int) -> int:
    return (points + MOST_FRAME_LINES - 1) // MOST_FRAME_LINES


def plot(z: npt.ArrayLike, x: Optional[npt.ArrayLike] = None, y: Optional[npt.ArrayLike] = None, *,
         size: tuple[int, int] = (1200, 800), **settings: Any) -> Plot:
    """Makes a plot of z = f(x, y).

    z: an array of rows x columns, or of rows x columns x 3 with x, y and z. What is no number, or masked, is a hole.
       An array of the second kind in single precision, packed, is not copied: it must keep its values.
    x: a number for each column, or an array as z; 0, 1, 2, ... without.
    y: a number for each row, or an array as z; 0, 1, 2, ... without.
    size: width and height in pixels at 96 dpi.
    settings: any property of Plot."""
    return Plot(z, x, y, size=size, **settings)
