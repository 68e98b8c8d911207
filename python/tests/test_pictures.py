"""Pictures: the viewer's, pixel for pixel, and the files that they are written to."""

import struct
import zlib

import numpy as np
import pytest

import kivoplot as kp
from conftest import pixels_of, read_png

LOOKS = [
    ({}, []),
    ({'mode': 'xy', 'fill_contours': True, 'label_contours': True, 'contour_interval': 0.5, 'contour_base': 0.2},
     ['--mode', '1', '--fill-contours', '--label-contours', '--contour-interval', '0.5', '--contour-base', '0.2']),
    ({'contours': 'xyz', 'contour_count': 7}, ['--x-contours', '--y-contours', '--z-contours', '--contour-count', '7']),
    ({'title': 'Ä plot', 'x_title': 'x', 'y_title': 'y (m)', 'z_title': 'T (°C)'},
     ['--title', 'Ä plot', '--x-title', 'x', '--y-title', 'y (m)', '--z-title', 'T (°C)']),
    ({'x_min': -4, 'x_max': 5, 'x_ticks': 4, 'x_precision': 2}, ['--x-min', '-4', '--x-max', '5', '--x-ticks', '4',
                                                                 '--x-precision', '2']),
    ({'azimuth': -60, 'elevation': 35, 'zoom': 1.5}, ['--azimuth', '-60', '--elevation', '35', '--zoom', '1.5']),
    ({'z_max': 2, 'azimuth': 100}, ['--z-max', '2', '--azimuth', '100']),
    ({'background': '#101010', 'frame_line_color': 'red'}, ['--background', '101010', '--frame-line-color', 'red']),
    ({'ink': 'white'}, ['--ink', 'white']),
    ({'gradient_start': 'white', 'gradient_end': '#008000'}, ['--gradient-start', 'white', '--gradient-end', '008000']),
    ({'grid_lines': False, 'frame_lines': False, 'switch_planes': False},
     ['--no-grid-lines', '--no-frame-lines', '--no-switch-planes']),
    ({'x_line_step': 3, 'y_line_step': 5, 'legend_precision': 1}, ['--x-line-step', '3', '--y-line-step', '5',
                                                                   '--legend-precision', '1']),
    ({'inverse_x': True, 'inverse_z': True}, ['--inverse-x', '--inverse-z']),
    ({'mode': 'xy'}, ['--mode', '1']), ({'mode': 'yz'}, ['--mode', '2']), ({'mode': 3}, ['--mode', '3']),
]


@pytest.mark.parametrize('settings, options', LOOKS)
def test_is_the_viewers_picture(hill, viewer, settings, options):
    image = kp.plot(*hill, size=(300, 200), **settings).image()
    assert np.array_equal(image, viewer(*hill, '--size', '300x200', *options))


@pytest.mark.parametrize('settings, options', LOOKS)
def test_settings_made_later_give_the_same_picture(hill, settings, options):
    plot = kp.plot(*hill, size=(300, 200))
    before = plot.image(smoothing=1)
    plot.set(**settings)
    assert np.array_equal(plot.image(smoothing=1), kp.plot(*hill, size=(300, 200), **settings).image(smoothing=1))
    assert settings == {} or not np.array_equal(plot.image(smoothing=1), before)


@pytest.mark.parametrize('settings', [{'x_min': 5, 'x_max': 1}, {'title': 'Other', 'z_min': 99}, {'zoom': 2, 'elevation': 91},
                                      {'contours': 'z', 'nonsense': 1}, {'background': 'red', 'colors': 'nope'}])
def test_wrong_settings_change_nothing(hill, settings):
    plot = kp.plot(*hill, size=(300, 200), title='One')
    before = plot.image(smoothing=1)
    with pytest.raises((TypeError, ValueError)):
        plot.set(**settings)
    assert plot.title == 'One' and plot.x_min is None
    assert np.array_equal(plot.image(smoothing=1), before)
    plot.contour_count = 30
    assert np.array_equal(plot.image(smoothing=1), before)


def test_holes_are_the_viewers(hill, viewer):
    z, x, y = hill
    z[0, 0] = z[10:14, 20:30] = np.nan
    image = kp.plot(z, x, y, size=(300, 200)).image()
    assert np.array_equal(image, viewer(z, x, y, '--size', '300x200'))


def test_resolution_is_the_viewers(hill, viewer):
    image = kp.plot(*hill, size=(160, 120), title='Page').image(dpi=192, smoothing=3)
    assert image.shape == (240, 320, 4)
    assert np.array_equal(image, viewer(*hill, '--size', '320x240', '--dpi', '192', '--title', 'Page', '--smoothing', '3'))


def test_resolution_beyond_the_librarys_scale(hill):
    plot = kp.plot(*hill, size=(100, 80), title='Page')
    before = plot.image()
    assert plot.image(dpi=1200, smoothing=1).shape == (1000, 1250, 4)
    assert np.array_equal(plot.image(), before)


def test_transparent_ground(hill):
    image = kp.plot(*hill, size=(300, 200)).image(transparent=True)
    assert image[0, 299, 3] == 0 and (image[..., 3] == 255).any()


def test_png_file(hill, tmp_path):
    plot = kp.plot(*hill, size=(300, 200))
    plot.save(tmp_path / 'plot.png', dpi=48)
    assert np.array_equal(pixels_of(tmp_path / 'plot.png'), plot.image(dpi=48))
    chunks, data = read_png((tmp_path / 'plot.png').read_bytes())
    assert struct.unpack('>IIB', chunks[b'pHYs']) == (1890, 1890, 1)
    assert len(zlib.decompress(data)) == 100 * (1 + 150 * 3)
    plot.save(tmp_path / 'clear.png', transparent=True)
    assert np.array_equal(pixels_of(tmp_path / 'clear.png'), plot.image(transparent=True))


def test_notebooks_get_a_png(hill, tmp_path):
    plot = kp.plot(*hill, size=(90, 70))
    (tmp_path / 'cell.png').write_bytes(plot._repr_png_())
    assert np.array_equal(pixels_of(tmp_path / 'cell.png'), plot.image())


@pytest.mark.parametrize('ending, start', [('jpg', b'\xff\xd8'), ('jpeg', b'\xff\xd8'), ('pdf', b'%PDF'), ('tiff', b'II')])
def test_other_files(hill, tmp_path, ending, start):
    path = tmp_path / f'plot.{ending}'
    kp.plot(*hill, size=(150, 100)).save(path, dpi=192)
    assert path.read_bytes().startswith(start)
    if ending == 'pdf':
        assert b'/MediaBox [ 0 0 112.5 75.0 ]' in path.read_bytes()  # points of 1/72 inch
    else:
        assert pixels_of(path).shape == (200, 300, 4)


def test_files_that_cannot_be(hill, tmp_path, monkeypatch):
    plot = kp.plot(*hill, size=(150, 100))
    with pytest.raises(ValueError, match="path: .*plot.xyz' ends in no format; expected .png, .jpg"):
        plot.save(tmp_path / 'plot.xyz')
    with pytest.raises(ValueError, match='transparent: JPEG'):
        plot.save(tmp_path / 'plot.jpg', transparent=True)
    with pytest.raises(FileNotFoundError):
        plot.save(tmp_path / 'nowhere' / 'plot.png')
    monkeypatch.setitem(__import__('sys').modules, 'PIL', None)
    with pytest.raises(ImportError, match='PDF files need Pillow'):
        plot.save(tmp_path / 'plot.pdf')
    plot.save(tmp_path / 'plot.png')


@pytest.mark.parametrize('dpi', [0, -96, 1e9, float('nan'), '96'])
def test_resolutions_that_cannot_be(hill, dpi):
    with pytest.raises((ValueError, TypeError), match='dpi: '):
        kp.plot(*hill, size=(150, 100)).image(dpi=dpi)
