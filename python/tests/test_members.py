"""The class and the headers beyond it: nothing is missing, nothing that is handed in ends the process."""

import itertools
import random
import re

import numpy as np
import pytest

import kivoplot as kp
from conftest import ROOT

HEADERS = ROOT / 'KivoFunctionPlotter' / 'include'

# What has another shape in Python, and what has a meaning for derived classes in C++ alone.
ELSEWHERE = {
    'CreateTextImage', 'RenderText', 'RenderFarText', 'RenderNearText',  # within BeginGLOperation and EndGLOperation
    'CKivoFunctionPlotter',
    'ReleaseWindow', 'ResizeOffscreenWindow', 'GetWindowDpi', 'SetWindowSmoothing', 'GetWindowSmoothing', 'SetOffscreenDpi',  # Window's
    'CKeepContext',
    'ScaleViewBounds',
    'RegisterKivoPlotClass',  # of Windows
}


def python_name(name):
    return re.sub(r'(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])', '_', name).lower()


def public_members():
    text = (HEADERS / 'KivoFunctionPlotter.h').read_text()
    public = re.sub(r'//.*', '', text[text.index('public:'):text.index('protected:')])
    return set(re.findall(r'(?<![~\w])([A-Z]\w+)\s*\(', public))


def functions():
    found = set()
    for header in HEADERS.glob('*.h'):
        text = re.sub(r'//.*', '', header.read_text())
        found |= set(re.findall(r'^(?:KIVO_API|inline)\s[\w:<>\s*&]*?(\w+)\(', text, re.MULTILINE))
    return found


def test_every_member_is_there():
    members = public_members()
    assert len(members) > 100 and 'SetXAxisMin' in members
    missing = {name for name in members - ELSEWHERE if not hasattr(kp.FunctionPlotter, python_name(name))}
    assert not missing


def test_every_function_of_the_headers_is_there():
    names = functions()
    assert {'SetViewAngles', 'CreateOffscreenWindow', 'WheelSteps', 'AddSurface'} <= names
    missing = {name for name in names - ELSEWHERE
               if not hasattr(kp.FunctionPlotter, python_name(name)) and not hasattr(kp, python_name(name))}
    assert not missing


def test_records_have_the_fields_of_the_headers():
    for record, header in ((kp.Style, 'KivoStyle'), (kp.View, 'KivoView'), (kp.Surface, 'KivoSurfaces'),
                           (kp.Legend, 'KivoTypes'), (kp.PictureOptions, 'KivoPicture')):
        text = (HEADERS / f'{header}.h').read_text()
        body = re.sub(r'//.*', '', re.search(rf'struct SKivo{record.__name__} \{{(.*?)\n\}};', text, re.DOTALL).group(1))
        fields = [python_name(name) for name in re.findall(r'(\w+)(?:\[\d\])?(?: =[^;]*)?;', body)]
        fields = [field for field in fields if field != 'stop']  # asked while Python is not held
        assert list(vars(record()).keys()) == fields


def test_records_are_as_the_library_makes_them():
    plotter = kp.FunctionPlotter()
    assert plotter.get_style() == kp.Style()
    assert plotter.get_legend(2) == kp.Legend()
    assert plotter.get_surface(0).opacity == kp.Surface().opacity
    with pytest.raises(kp.Error):  # no window
        plotter.set_surface(0, kp.Surface()), plotter.measure_picture(kp.PictureOptions())


def methods():
    return [name for name in vars(kp.FunctionPlotter) if not name.startswith('_')]


def test_every_member_is_documented():
    for name in methods():
        text = getattr(kp.FunctionPlotter, name).__doc__
        paragraphs = [line for line in text.splitlines()[1:] if line and not re.match(r'\d+\. \w+\(|Overloaded', line)]
        assert paragraphs or name == 'show_all_measure_groups', name  # of which the header says its result alone
        assert '@' not in text and 'std::' not in text, name


# Sensible for some members, wrong for others. What the library takes as a count to make labels or levels of, or as the size of
# a window to draw, is bounded by what memory and time allow.
PLAIN = [None, True, False, 0, 1, -1, 2, 7, 1.5, -0.0, float('nan'), float('inf'), 1e300, 2**31 - 1, -2**31, 2**32, 2**64,
         -2**70, '', 'viridis', 'x' * 3000, '\x00a\udc80', b'\xff\xfe', (1, 2), (2**31, 0), [0, 0, 1, 1], [2, 2, 2, 2], (), {},
         object(), print, np.float32(3), np.int8(-3), np.zeros(3), np.zeros((2, 3)), np.zeros((3, 4, 3), 'f4'),
         np.zeros((0, 0, 3), 'f4'), np.full((3, 4, 3), np.nan, 'f4'), np.zeros((5, 4)), np.zeros((4, 4, 4), 'u1'),
         np.zeros((2, 2, 2, 2)), np.array(['a']), kp.Style(), kp.Style(pixel_scale='a'), kp.Style(text_face=None),
         kp.View(zoom=-1), kp.View(rotation=(1,)), kp.View(inverse=None), kp.Surface(opacity=2), kp.Legend(numbers=77),
         kp.PictureOptions(8, 8), kp.PictureOptions(-5, 0), kp.PictureOptions(width='a')]
COUNTS = re.compile(r'tick_mark_number|iso_contour_count|precision|motion_detail_for')
BOUNDED = [value for value in PLAIN if not isinstance(value, (int, float)) or value in (0, 1, 2, 7, -1)]
SIZES = {'on_size', 'on_create', 'capture_picture', 'measure_picture'}


def candidates(name, window):
    values = BOUNDED if COUNTS.search(name) or name in SIZES else PLAIN
    return values + [window, kp.FunctionPlotter()] if name in ('on_create', 'take_view') else values


ALLOWED = (TypeError, ValueError, IndexError, kp.Error, MemoryError, OverflowError, UnicodeError, RuntimeError)


def call(plotter, name, arguments):
    try:
        return getattr(plotter, name)(*arguments)
    except ALLOWED as error:
        assert str(error)
        return None


def grid_points():
    points = np.zeros((12, 10, 3), 'f4')
    points[..., 0], points[..., 1] = np.arange(10), np.arange(12)[:, None]
    points[..., 2] = np.sin(points[..., 0]) + points[..., 1]
    return points


@pytest.mark.parametrize('state', ['new', 'with data', 'destroyed', 'window released'])
def test_anything_to_anyone(state):
    window = kp.create_offscreen_window(40, 30)
    for name in methods():
        plotter = kp.FunctionPlotter()
        if state != 'new':
            plotter.on_create(window, 40, 30)
        if state in ('with data', 'window released'):
            plotter.set_data_reference(grid_points())
        if state == 'destroyed':
            plotter.on_destroy()
        if state == 'window released':
            window.release()
            window = kp.create_offscreen_window(40, 30)
        values = candidates(name, window)
        call(plotter, name, [])
        for value in values:
            call(plotter, name, [value])
        for pair in random.Random(name).sample(list(itertools.product(values, values)), 40):
            call(plotter, name, pair)
        for count in (3, 4):
            call(plotter, name, random.Random(name).choices(values, k=count))
        call(plotter, 'on_draw', [])


def test_any_order():
    """Sensible arguments in an order that nobody would write."""
    dice = random.Random(11)
    windows = [kp.create_offscreen_window(40, 30) for _ in range(2)]
    plotter = kp.FunctionPlotter()
    values = [value for value in BOUNDED if isinstance(value, (bool, int, str, tuple, np.ndarray, kp.Style, kp.View))] + windows
    for _ in range(4000):
        name = dice.choice(methods() + ['on_draw', 'on_create', 'set_data_reference'] * 5)
        if name in ('set_data', 'set_data_reference'):
            arguments = [grid_points()]
        elif name == 'on_create':
            arguments = [dice.choice(windows), 40, 30]
        else:
            arguments = dice.choices(values, k=dice.randrange(4))
        if name not in SIZES or name == 'on_create':
            call(plotter, name, arguments)
    plotter.on_create(windows[0], 40, 30)
    plotter.reset_view()
    plotter.set_data(grid_points())
    assert plotter.renderscene() == kp.FrameResult.SHOWN


def test_what_is_wrong_is_told():
    plotter = kp.FunctionPlotter()
    with pytest.raises(kp.Error, match='capture_picture failed'):
        plotter.capture_picture()
    with pytest.raises(IndexError, match='set_curve_color: there is none of this number'):
        plotter.set_curve_color(0, 0)
    with pytest.raises(ValueError, match='set_view_angles: a value is refused'):
        plotter.set_view_angles(0, 91)
    with pytest.raises(TypeError, match='View.rotation cannot be a str'):
        plotter.set_view(kp.View(rotation='abc'))
    with pytest.raises(TypeError, match='expected a kivoplot.Style, found a View'):
        plotter.set_style(kp.View())
    with pytest.raises(ValueError, match=r'set_data: points has the shape \(3,\); expected \(rows, columns, 3\)'):
        plotter.set_data(np.zeros(3))
    with pytest.raises(ValueError, match='set_data_reference: points is float64'):
        plotter.set_data_reference(np.zeros((3, 4, 3)))
    with pytest.raises(ValueError, match=r'draw_picture: .*expected uint8 and \(20, 30, 4\)'):
        bound = kp.FunctionPlotter()
        bound.on_create(kp.create_offscreen_window(30, 20), 30, 20)
        bound.draw_picture(kp.PictureOptions(), np.zeros((20, 30, 3), 'u1'))
    with pytest.raises(kp.Error, match='1 to 16384'):
        kp.create_offscreen_window(0, 5)
    with pytest.raises(TypeError, match='made by functions of kivoplot alone'):
        kp.Window()
    with pytest.raises(TypeError):
        kp.Window.__new__(kp.Window)


def test_objects_that_were_not_initialised():
    plotter = kp.FunctionPlotter.__new__(kp.FunctionPlotter)
    plotter.on_draw()
    assert plotter.renderscene() != kp.FrameResult.SHOWN

    class Heir(kp.FunctionPlotter):
        def __init__(self):
            super().__init__()
            self.mine = 1
    assert Heir().renderscene() != kp.FrameResult.SHOWN


def test_what_members_do():
    plotter, window = kp.FunctionPlotter(), kp.create_offscreen_window(120, 80, dpi=120)
    assert window.dpi == 120
    plotter.on_create(window, 120, 80)
    plotter.set_data(grid_points())
    plotter.set_plot_title('Ä')
    assert plotter.get_plot_title() == 'Ä'
    plotter.set_view_angles(30, 40)
    assert plotter.get_view_angles() == (pytest.approx(30), pytest.approx(40), True)
    assert plotter.get_trace_point() is None
    assert plotter.trace((70, 45)) and len(plotter.get_trace_point()) == 3
    assert plotter.trace(True) is None and plotter.is_tracing()
    assert plotter.add_curve_data([[0, 0, 0], [1, 1, 1]]) == 0
    plotter.add_measure_points([[1, 2, 3.0]], 'wells')
    assert plotter.get_measure_group_name(0) == 'wells' and plotter.get_measure_group_index_by_name('none') == -1
    assert plotter.add_surface(grid_points() + 1) == 1 and plotter.get_surface_count() == 1
    plotter.fit_axes_to_surfaces(True)
    assert plotter.axes_fit_surfaces()
    plotter.keep_frame_line_step(3, 2)
    plotter.cull_small_triangles(True)
    plotter.set_color_map(2, 'viridis')
    plotter.set_color_map(2, [[0, 0, 0, 1], [1, 1, 1, 1]])
    plotter.set_color_map(2, None)
    window.dpi = 100
    plotter.on_density_changed()
    window.smoothing = 2
    assert window.smoothing == 2 and plotter.capture_picture().shape == (80, 120, 4)
    window.resize(60, 50)
    plotter.on_size(0, 60, 50)
    assert plotter.capture_picture().shape == (50, 60, 4)
    assert plotter.measure_picture(kp.PictureOptions(scale=2)) == (120, 100)
    pixels = np.zeros((50, 60, 4), 'u1')
    plotter.draw_picture(kp.PictureOptions(), pixels, kp.PixelOrder.BGRA)
    assert np.array_equal(pixels[..., [2, 1, 0, 3]], plotter.capture_picture(kp.PictureOptions(smoothing=1)))
    assert kp.key_state(right=True, control=True) == kp.MK_RBUTTON | kp.MK_CONTROL
    assert kp.wheel_steps(60, 200) == (2, 20) and kp.to_pixels(1.5, 2, 2) == (3, 4) and kp.to_pixels(2.6, 1) == 3
    with kp.keep_context():
        plotter.on_draw()
    other = kp.FunctionPlotter()
    other.on_create(kp.create_offscreen_window(60, 50), 60, 50)
    other.set_data(grid_points())
    other.take_view(plotter)
    assert other.get_view().rotation == plotter.get_view().rotation
