"""Arrays of the user's as the points of a grid: single precision, x, y and z behind each other."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, Optional

import numpy as np
import numpy.typing as npt

FLOAT_MAX = float(np.finfo(np.float32).max)
# Where numbers are so many times as large as their range, single precision has too few digits for their differences.
FAR_FROM_ZERO = 1000.0


@dataclass
class Grid:
    """Points of rows and columns, as differences to the origin of each axis."""

    points: npt.NDArray[np.float32]
    origin: tuple[float, float, float]


def describe(array: npt.NDArray[Any]) -> str:
    """What an array is, for errors."""
    return f'an array of {array.dtype} with the shape {array.shape}'


def numbers(name: str, values: npt.ArrayLike) -> npt.NDArray[Any]:
    """The values as an array of real numbers, masked ones as NaN; not copied where it is one."""
    try:
        array: npt.NDArray[Any] = values if isinstance(values, np.ma.MaskedArray) else np.asarray(values)
    except ValueError as error:  # rows of different lengths
        raise ValueError(f'{name}: expected an array of numbers: {error}') from None
    if array.dtype.kind not in 'fiub':
        raise TypeError(f'{name} is {describe(array)}; expected real numbers')
    if isinstance(array, np.ma.MaskedArray):
        kind = array.dtype if array.dtype.kind == 'f' else np.dtype(np.float64)
        array = np.where(np.ma.getmaskarray(array), np.nan, array.data.astype(kind))  # type: ignore[no-untyped-call]
    return array


def _range(name: str, array: npt.NDArray[Any]) -> tuple[float, float]:
    """The smallest and largest finite number."""
    low, high = float(array.min()), float(array.max())
    if not np.isfinite(low + high):
        finite = array[np.isfinite(array)]
        if finite.size == 0:
            raise ValueError(f'{name} is {describe(array)} without any finite number')
        low, high = float(finite.min()), float(finite.max())
    return low, high


def _origin(low: float, high: float) -> float:
    """0, or a round number near numbers that single precision cannot tell apart."""
    size, span = max(abs(low), abs(high)), high - low
    if span == 0.0 or size < FAR_FROM_ZERO * span:
        return 0.0
    unit = 10.0 ** np.floor(np.log10(span))
    origin = float(np.floor(low / unit) * unit)
    return origin if np.isfinite(origin) else 0.0


def _as_differences(name: str, array: npt.NDArray[Any], origin: Optional[float]) -> tuple[npt.NDArray[Any], float]:
    low, high = _range(name, array)
    if origin is None:
        origin = _origin(low, high)
    if max(abs(low - origin), abs(high - origin)) > FLOAT_MAX:
        raise ValueError(f'{name} has numbers beyond those of single precision: {low:g} to {high:g}')
    if origin == 0.0:
        return array, origin
    return np.subtract(array, origin, dtype=np.float64), origin


def _coordinates(name: str, values: Optional[npt.ArrayLike], shape: tuple[int, int], axis: int) -> npt.NDArray[Any]:
    """A vector along the axis, 1 for columns, 0 for rows, or a grid, as it is laid over the points."""
    if values is None:
        array: npt.NDArray[Any] = np.arange(shape[axis], dtype=np.float64)
    else:
        array = numbers(name, values)
    if array.ndim == 1 and array.shape[0] == shape[axis]:
        if not np.isfinite(array).all():
            raise ValueError(f'{name} is {describe(array)} with a number that is not finite')
        return array[None, :] if axis == 1 else array[:, None]
    if array.shape == shape:
        return array
    which = 'column' if axis == 1 else 'row'
    raise ValueError(f'{name} is {describe(array)}; expected ({shape[axis]},), a number for each {which} of z, '
                     f'or {shape} as z has')


def _checked(name: str, array: npt.NDArray[Any]) -> None:
    if array.ndim not in (2, 3) or (array.ndim == 3 and array.shape[2] != 3) or min(array.shape[:2]) < 2:
        raise ValueError(f'{name} is {describe(array)}; expected (rows, columns), or (rows, columns, 3) with x, y and z, '
                         'of at least two rows and columns')


def _with_first_number(points: npt.NDArray[np.float32]) -> npt.NDArray[np.float32]:
    """The plotter looks for the smallest and largest numbers from the first point on. Where that is a hole, a row comes
    before the others that is all holes but for its first point: nothing of it is seen."""
    if np.isfinite(points[0, 0]).all():
        return points
    finite = np.isfinite(points).all(axis=2)
    if not finite.any():
        raise ValueError('z has no point with three finite numbers')
    row = np.full((1, *points.shape[1:]), np.nan, dtype=np.float32)
    row[0, 0] = points[np.unravel_index(np.argmax(finite), finite.shape)]
    return np.concatenate([row, points])


def grid(z: npt.ArrayLike, x: Optional[npt.ArrayLike], y: Optional[npt.ArrayLike],
         origin: Optional[tuple[float, float, float]] = None) -> Grid:
    """The points of z = f(x, y); not copied where z has all of them, in single precision and without infinities.

    origin: as that of the grid below a second one; found where it is None."""
    heights = numbers('z', z)
    _checked('z', heights)
    if heights.ndim == 3:
        if x is not None or y is not None:
            raise ValueError(f'{"x" if x is not None else "y"}: z is {describe(heights)} and has x and y')
        return _grid_of_points(heights, origin)
    rows, columns = heights.shape
    points = np.empty((rows, columns, 3), dtype=np.float32)
    coordinates = (_coordinates('x', x, (rows, columns), 1), _coordinates('y', y, (rows, columns), 0), heights)
    found = _fill(points, coordinates, origin)
    return Grid(_with_first_number(points), found)


def _fill(points: npt.NDArray[np.float32], coordinates: tuple[npt.NDArray[Any], ...],
          origin: Optional[tuple[float, float, float]]) -> tuple[float, float, float]:
    """Writes the differences and returns what they are differences to."""
    origins = [0.0, 0.0, 0.0]
    for axis, name in enumerate('xyz'):
        differences, origins[axis] = _as_differences(name, coordinates[axis], origin[axis] if origin else None)
        points[..., axis] = differences
        if not np.isfinite(points[..., axis].min() + points[..., axis].max()):
            points[..., axis][~np.isfinite(points[..., axis])] = np.nan  # infinities are holes, too
    return origins[0], origins[1], origins[2]


def _grid_of_points(array: npt.NDArray[Any], origin: Optional[tuple[float, float, float]]) -> Grid:
    fits = (array.dtype == np.float32 and array.flags.c_contiguous and array.flags.aligned
            and origin in (None, (0.0, 0.0, 0.0)))
    if fits and not np.isinf(array).any() and np.isfinite(array[0, 0]).all():
        return Grid(array, (0.0, 0.0, 0.0))
    points = np.empty(array.shape, dtype=np.float32)
    found = _fill(points, (array[..., 0], array[..., 1], array[..., 2]), origin)
    return Grid(_with_first_number(points), found)


def points(name: str, values: npt.ArrayLike, origin: tuple[float, float, float]) -> npt.NDArray[np.float32]:
    """Points of a curve or a group, as differences to the origin."""
    array = numbers(name, values)
    if array.ndim != 2 or array.shape[0] < 1 or array.shape[1] != 3:
        raise ValueError(f'{name} is {describe(array)}; expected (points, 3) with x, y and z')
    if origin != (0.0, 0.0, 0.0):
        array = np.subtract(array, origin, dtype=np.float64)
    with np.errstate(over='ignore'):
        return np.ascontiguousarray(array, dtype=np.float32)
