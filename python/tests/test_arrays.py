"""Arrays of every kind: the same numbers give the same picture, and what cannot be is named."""

import numpy as np
import pytest

import kivoplot as kp
from kivoplot import _arrays

SIZE = (200, 150)


def picture(*arguments, **settings):
    return kp.plot(*arguments, size=SIZE, **settings).image(smoothing=1)


def read_only(array):
    array = array.copy()
    array.flags.writeable = False
    return array


LAYOUTS = {
    'double': lambda z: z.astype(np.float64),
    'half as Fortran has it': lambda z: np.asfortranarray(z),
    'every second': lambda z: np.repeat(np.repeat(z, 2, axis=0), 2, axis=1)[::2, ::2],
    'backwards': lambda z: z[::-1, ::-1].copy()[::-1, ::-1],
    'read-only': read_only,
    'big-endian': lambda z: z.astype('>f4'),
    'big-endian double': lambda z: z.astype('>f8'),
    'a list': lambda z: z.tolist(),
    'masked, nothing hidden': lambda z: np.ma.masked_invalid(z),
    'unaligned': lambda z: np.frombuffer(b'x' + z.tobytes(), dtype=np.uint8)[1:].view(np.float32).reshape(z.shape),
    'long double': lambda z: z.astype(np.longdouble),
}


@pytest.mark.parametrize('layout', LAYOUTS)
def test_layouts(hill, layout):
    z, x, y = hill
    assert np.array_equal(picture(LAYOUTS[layout](z), x, y), picture(z, x, y))


# Points that fit are not copied; the others must be.
@pytest.mark.parametrize('layout', LAYOUTS)
def test_layouts_of_points(hill, layout):
    z, x, y = hill
    points = np.dstack([*np.meshgrid(x, y), z]).astype(np.float32)
    assert np.array_equal(picture(LAYOUTS[layout](points)), picture(points.astype(np.float64)))


@pytest.mark.parametrize('kind', ['i1', 'u1', '>i2', 'i8', 'u8', '?', 'f2'])
def test_other_numbers(kind):
    z = (np.arange(12).reshape(3, 4) % 5).astype(kind)
    assert np.array_equal(picture(z), picture(z.astype(np.float32)))


def test_grids_as_x_and_y(hill):
    z, x, y = hill
    grid_x, grid_y = np.meshgrid(x, y)
    assert np.array_equal(picture(z, grid_x, grid_y), picture(z, x, y))
    assert np.array_equal(picture(z, x, grid_y), picture(z, x, y))
    assert np.array_equal(picture(np.dstack([grid_x, grid_y, z])), picture(z, x, y))


def test_without_x_and_y(hill):
    z = hill[0]
    assert np.array_equal(picture(z), picture(z, np.arange(61), np.arange(41.0)))


def test_holes(hill):
    z, x, y = hill
    hidden = np.zeros(z.shape, dtype=bool)
    hidden[5:20, 10:30] = hidden[0, 0] = True
    holes = np.where(hidden, np.nan, z)
    infinities = np.where(hidden, -np.inf, z)
    grid_x = np.where(hidden, np.nan, np.meshgrid(x, y)[0])
    full, with_holes = picture(z, x, y), picture(holes, x, y)
    assert not np.array_equal(full, with_holes)
    assert np.array_equal(picture(np.ma.masked_array(z, hidden), x, y), with_holes)
    assert np.array_equal(picture(infinities, x, y), with_holes)
    assert np.array_equal(picture(z, grid_x, y), with_holes)
    points = np.dstack([*np.meshgrid(x, y), z]).astype(np.float32)
    points[5, 5, 2], also = np.inf, points.copy()
    also[5, 5, 2] = np.nan
    assert np.array_equal(picture(points), picture(also))
    whole = np.ma.masked_array(np.arange(12).reshape(3, 4), np.arange(12).reshape(3, 4) == 5)
    assert np.array_equal(picture(whole), picture(whole.astype(float).filled(np.nan)))


def test_the_only_number(hill):
    z = np.full((3, 4), np.nan)
    z[1, 2] = 5
    picture(z)  # a point is no surface, but no error either
    z[1, 2] = np.nan
    with pytest.raises(ValueError, match=r'z is an array of float64 with the shape \(3, 4\) without any finite number'):
        picture(z)


WRONG = [
    ((np.zeros(5),), ValueError, r'z is an array of float64 with the shape \(5,\); expected \(rows, columns\)'),
    ((np.zeros((1, 5)),), ValueError, 'of at least two rows and columns'),
    ((np.zeros((0, 0)),), ValueError, 'of at least two rows and columns'),
    ((np.zeros((3, 4, 2)),), ValueError, r'expected \(rows, columns\), or \(rows, columns, 3\)'),
    ((np.zeros((3, 4, 5, 6)),), ValueError, r'z is an array'),
    ((np.zeros((3, 4), dtype=complex),), TypeError, 'z is an array of complex128.*expected real numbers'),
    ((np.full((3, 4), 'a'),), TypeError, 'z is an array of <U1'),
    ((np.full((3, 4), None),), TypeError, 'z is an array of object'),
    ((None,), TypeError, 'z is an array of object'),
    (('text',), TypeError, 'z is an array of <U4'),
    (([[1, 2], [3]],), (ValueError, TypeError), 'z'),
    ((np.zeros((3, 4)), np.zeros(3)), ValueError, r'x is .*\(3,\); expected \(4,\), a number for each column of z'),
    ((np.zeros((3, 4)), None, np.zeros(4)), ValueError, r'y is .*\(4,\); expected \(3,\), a number for each row of z'),
    ((np.zeros((3, 4)), np.zeros((4, 3))), ValueError, r'or \(3, 4\) as z has'),
    ((np.zeros((3, 4)), [0, 1, np.nan, 3]), ValueError, 'x is .* with a number that is not finite'),
    ((np.zeros((3, 4, 3)), np.zeros(4)), ValueError, 'x: z is .* and has x and y'),
    ((np.zeros((3, 4)), ['a'] * 4), TypeError, 'x is an array of <U1'),
    (([[0.0, 3e300], [1.0, 2.0]],), ValueError, 'z has numbers beyond those of single precision'),
]


@pytest.mark.parametrize('arguments, error, words', WRONG)
def test_arrays_that_cannot_be(arguments, error, words):
    with pytest.raises(error, match=words):
        kp.plot(*arguments)


def test_data_that_are_not_copied(hill):
    z, x, y = hill
    points = np.ascontiguousarray(np.dstack([*np.meshgrid(x, y), z]), dtype=np.float32)
    assert _arrays.grid(points, None, None).points is points
    before = points.copy()
    plot = kp.plot(points, size=SIZE)
    plot.image(smoothing=1)
    assert np.array_equal(points, before)
    points.flags.writeable = False
    assert np.array_equal(picture(points), plot.image(smoothing=1))


def test_numbers_that_single_precision_cannot_tell_apart(hill):
    z, x, y = hill
    far = picture(z.astype(float) + 101325, x.astype(float) + 5630000, y.astype(float))
    assert not np.array_equal(far, picture(z, x, y))  # other labels
    plot = kp.plot(z.astype(float) + 101325, x.astype(float) + 5630000, y, size=SIZE)
    assert plot._grid.origin == (5629997.0, 0.0, 101324.0)
    assert np.ptp(plot._grid.points[..., 0]) == pytest.approx(6.0, abs=1e-6)
    point = plot.trace_at(120, 80)
    assert 5629997 <= point[0] <= 5630003 and 101324 <= point[2] <= 101326
    plot.set(x_min=5629995, z_max=101327)
    assert plot.plotter.get_x_axis_min() == -2 and plot.plotter.get_z_axis_max() == 3
    plot.add_curve([[5630000, 0, 101325], [5630001, 1, 101326]])
    plot.add_points([[5630000, 0, 101325]], name='here')
    plot.add_surface(z.astype(float) + 101326, x.astype(float) + 5630000, y)


def test_other_data_keep_settings_and_view(hill):
    z, x, y = hill
    plot = kp.plot(z, x, y, size=SIZE, azimuth=10, title='One', contours='z')
    plot.set_data(2 * z, x, y)
    assert np.array_equal(plot.image(), kp.plot(2 * z, x, y, size=SIZE, azimuth=10, title='One', contours='z').image())
    before = plot.image()
    with pytest.raises(ValueError):
        plot.set_data(np.zeros(3))
    assert np.array_equal(plot.image(), before)
