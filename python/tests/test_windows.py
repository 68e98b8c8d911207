"""Widgets of the toolkits, in windows of a display without a screen."""

import os
import re
import subprocess
import sys
import time

import numpy as np
import pytest

import kivoplot as kp

pytestmark = pytest.mark.skipif(not os.environ.get('DISPLAY'), reason='there is no display')
LIMIT = float(os.environ.get("KIVO_LIMIT", 30.0))


class Qt:
    """A plot in Qt, and the hand."""

    def __init__(self, plot):
        from PyQt6.QtTest import QTest
        from PyQt6.QtWidgets import QApplication
        from kivoplot import qt
        self.test, self.application = QTest, QApplication.instance() or QApplication(['test'])
        self.told, self.moved = [], []
        self.widget = qt.PlotWidget(plot)
        self.widget.traced.connect(self.told.append)
        self.widget.viewChanged.connect(lambda: self.moved.append(1))
        self.widget.resize(*plot.size)
        self.widget.show()
        QTest.qWaitForWindowExposed(self.widget)

    def pump(self):
        self.application.processEvents()

    def shown(self):
        image = self.widget.grab().toImage().convertToFormat(self.widget.grab().toImage().Format.Format_RGBA8888)
        pixels = image.constBits()
        pixels.setsize(image.sizeInBytes())
        return np.frombuffer(pixels, 'u1').reshape(image.height(), image.bytesPerLine() // 4, 4)[:, :image.width(), :3].copy()

    def drag(self, start, end):
        from PyQt6.QtCore import QPoint, Qt as Names
        button = Names.MouseButton.LeftButton
        self.test.mousePress(self.widget, button, pos=QPoint(*start))
        for share in (0.3, 0.7, 1.0):
            x, y = (round(a + (b - a) * share) for a, b in zip(start, end))
            self.test.mouseMove(self.widget, QPoint(x, y))
            self.pump()
        self.test.mouseRelease(self.widget, button, pos=QPoint(*end))

    def wheel(self, place):
        from PyQt6.QtCore import QPoint, QPointF, Qt as Names
        from PyQt6.QtGui import QWheelEvent
        where = QPointF(*place)
        self.application.sendEvent(self.widget, QWheelEvent(
            where, where, QPoint(), QPoint(0, 120), Names.MouseButton.NoButton, Names.KeyboardModifier.NoModifier,
            Names.ScrollPhase.NoScrollPhase, False))

    def point_at(self, place):
        from PyQt6.QtCore import QPoint
        self.test.mouseMove(self.widget, QPoint(*place))

    def key(self, letter):
        self.test.keyClick(self.widget, letter)

    def resize(self, width, height):
        self.widget.resize(width, height)

    def close(self):
        from PyQt6.QtCore import QCoreApplication, QEvent
        self.widget.close()
        self.widget.deleteLater()
        QCoreApplication.sendPostedEvents(None, QEvent.Type.DeferredDelete)
        self.pump()


class Tk:
    """A plot in tkinter, and the hand."""

    def __init__(self, plot):
        import tkinter
        from kivoplot import tk
        self.told, self.moved = [], []
        self.root = tkinter.Tk()
        self.widget = tk.PlotWidget(self.root, plot, traced=self.told.append, view_changed=lambda: self.moved.append(1))
        self.widget.pack(fill='both', expand=True)
        self.root.update()

    def pump(self):
        self.root.update()

    def shown(self):
        return _pixels(self.root.tk.call(self.widget._picture.name, 'data', '-format', 'PPM'))

    def drag(self, start, end):
        self.widget.event_generate('<ButtonPress-1>', x=start[0], y=start[1])
        for share in (0.3, 0.7, 1.0):
            x, y = (round(a + (b - a) * share) for a, b in zip(start, end))
            self.widget.event_generate('<Motion>', x=x, y=y, state=0x100)
            self.pump()
        self.widget.event_generate('<ButtonRelease-1>', x=end[0], y=end[1])

    def wheel(self, place):
        self.widget.event_generate('<Button-4>', x=place[0], y=place[1])

    def point_at(self, place):
        self.widget.event_generate('<Motion>', x=place[0], y=place[1])

    def key(self, letter):
        self.widget.focus_force()
        self.pump()
        self.widget.event_generate(f'<Key-{letter}>')

    def resize(self, width, height):
        self.root.geometry(f'{width}x{height}')

    def close(self):
        self.root.destroy()
        import tkinter
        tkinter._default_root = None


def _pixels(ppm):
    """The pixels of a PPM file: kind, width, height, largest value, and the bytes."""
    header = re.match(rb'P6\s(\d+)\s(\d+)\s255\s', ppm)
    width, height = (int(number) for number in header.groups())
    return np.frombuffer(ppm[header.end():], 'u1').reshape(height, width, 3)


@pytest.fixture(params=[Qt, Tk])
def desk(request, hill):
    plot = kp.plot(*hill, size=(320, 240), title='Shown')
    made = request.param(plot)
    made.plot = plot
    yield made
    made.close()


def wait_for(desk, condition):
    end = time.monotonic() + LIMIT
    while not condition():
        assert time.monotonic() < end, 'it did not come'
        desk.pump()
        time.sleep(0.005)


def shows(desk, image):
    return lambda: np.array_equal(desk.shown(), image[..., :3])


def test_shows_the_picture(desk):
    wait_for(desk, shows(desk, desk.plot.image()))


def test_settings_show(desk):
    before = desk.plot.image()
    wait_for(desk, shows(desk, before))
    changes = (lambda: setattr(desk.plot, 'contours', 'z'),
               lambda: desk.plot.set_data(desk.plot._grid.points[..., 2] * 2),
               lambda: desk.plot.add_points([[30, 20, 1.5]]),
               lambda: desk.plot.add_curve([[0, 0, 2], [60, 40, 2]]),
               lambda: desk.plot.add_surface(np.full((41, 61), 1.0)),
               lambda: setattr(desk.plot, 'view', kp.View()))
    for change in changes:
        change()
        after = desk.plot.image()
        assert not np.array_equal(before, after)
        wait_for(desk, shows(desk, after))
        before = after


def test_a_drag_turns_the_plot(desk):
    wait_for(desk, shows(desk, desk.plot.image()))
    before = desk.plot.view
    desk.drag((160, 120), (220, 150))
    wait_for(desk, lambda: desk.plot.view.rotation != before.rotation and desk.moved)
    wait_for(desk, shows(desk, desk.plot.image()))  # complete and smooth when it rests


def test_the_wheel_zooms_and_a_complete_frame_follows(desk):
    wait_for(desk, shows(desk, desk.plot.image()))
    desk.wheel((160, 120))
    wait_for(desk, lambda: desk.plot.view.zoom > 1)
    wait_for(desk, shows(desk, desk.plot.image()))


def test_keys(desk):
    wait_for(desk, shows(desk, desk.plot.image()))
    desk.key('1')
    wait_for(desk, lambda: desk.plot.view.plot_type == 1)
    wait_for(desk, shows(desk, desk.plot.image()))
    desk.key('0')
    wait_for(desk, lambda: desk.plot.view.plot_type == 0)


def test_the_traced_point_is_told(desk):
    wait_for(desk, shows(desk, desk.plot.image()))
    desk.widget.trace()
    desk.pump()
    desk.point_at((190, 120))
    wait_for(desk, lambda: any(desk.told))
    x, y, z = next(point for point in desk.told if point)
    assert -3 <= x <= 3 and -2 <= y <= 2 and z == pytest.approx(np.sin(x) * np.cos(y), abs=0.01)


def test_another_size_keeps_the_view(desk):
    wait_for(desk, shows(desk, desk.plot.image()))
    desk.drag((160, 120), (220, 150))
    wait_for(desk, shows(desk, desk.plot.image()))
    rotation = desk.plot.view.rotation
    desk.resize(400, 300)
    wait_for(desk, lambda: desk.shown().shape[:2] == (300, 400))
    assert desk.plot.view.rotation == pytest.approx(rotation)
    assert desk.plot.image().shape[:2] == (240, 320)


def test_pictures_after_the_window(hill):
    for kind in (Qt, Tk):
        plot = kp.plot(*hill, size=(320, 240))
        before, traced = plot.image(), plot.trace_at(190, 120)
        desk = kind(plot)
        desk.resize(200, 100)
        desk.pump()
        desk.close()
        del desk
        assert plot.trace_at(190, 120) == pytest.approx(traced, abs=1e-4)
        plot.plotter.trace(False)
        assert np.array_equal(plot.image(), before)
        assert plot.density == 1.0 and plot._shown_size is None
        plot.title = 'Gone'
        plot.image()


def test_another_widget_takes_a_plot_over(hill):
    plot = kp.plot(*hill, size=(320, 240))
    first, second = Qt(plot), Qt(plot)
    second.resize(200, 150)
    second.pump()
    first.close()
    assert plot._shown_size == (200, 150)
    plot.title = 'Second'
    second.pump()
    wait_for(second, lambda: second.shown().shape[:2] == (150, 200))
    second.close()


SHOW = '''
import sys, numpy as np, kivoplot as kp
{before}
widget = kp.plot(np.eye(9), size=(90, 70)).show(block=False)
print(type(widget).__module__)
{after}
'''


@pytest.mark.parametrize('before, expected', [('', 'kivoplot.qt'), ('import tkinter', 'kivoplot.tk'),
                                              ('sys.modules["PyQt6"] = sys.modules["PySide6"] = None', 'kivoplot.tk'),
                                              ('import PyQt6.QtWidgets', 'kivoplot.qt')])
def test_show_uses_the_first_toolkit(run_python, before, expected):
    assert run_python(SHOW.format(before=before, after='')).strip() == expected


def test_show_says_what_is_missing(run_python):
    said = run_python('import sys, numpy as np, kivoplot as kp\n'
                      'sys.modules["PyQt6"] = sys.modules["PySide6"] = sys.modules["tkinter"] = None\n'
                      'try: kp.plot(np.eye(9)).show()\nexcept ImportError as error: print(error)')
    assert 'python3-pyqt6' in said and 'python3-tk' in said


def test_show_without_a_display(hill, monkeypatch):
    monkeypatch.delenv('DISPLAY')
    with pytest.raises(RuntimeError, match='DISPLAY is not set'):
        kp.plot(*hill).show()


def test_show_waits_for_the_window():
    code = ('import numpy as np, kivoplot as kp\nfrom PyQt6.QtCore import QTimer\nfrom PyQt6.QtWidgets import QApplication\n'
            'application = QApplication([])\nQTimer.singleShot(300, application.closeAllWindows)\n'
            'kp.plot(np.eye(9), size=(90, 70)).show()\nprint("closed")')
    result = subprocess.run([sys.executable, '-c', code], capture_output=True, text=True, timeout=60)
    assert result.stdout.strip() == 'closed' and result.returncode == 0, result.stderr
