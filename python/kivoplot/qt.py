"""Plots in PyQt6 and PySide6: whichever the program has imported, or which is installed."""

from __future__ import annotations

import sys
from typing import Any, Optional

import numpy.typing as npt

from ._kivoplot import key_state
from ._plot import Plot

if 'PySide6.QtWidgets' in sys.modules and 'PyQt6.QtWidgets' not in sys.modules:
    from PySide6.QtCore import QPointF, QSize, Qt, QTimer, Signal
    from PySide6.QtGui import QImage, QPainter
    from PySide6.QtWidgets import QApplication, QWidget
else:
    try:
        from PyQt6.QtCore import QPointF, QSize, Qt, QTimer
        from PyQt6.QtCore import pyqtSignal as Signal
        from PyQt6.QtGui import QImage, QPainter
        from PyQt6.QtWidgets import QApplication, QWidget
    except ImportError:
        from PySide6.QtCore import QPointF, QSize, Qt, QTimer, Signal
        from PySide6.QtGui import QImage, QPainter
        from PySide6.QtWidgets import QApplication, QWidget

BUTTONS = {Qt.MouseButton.LeftButton: 'left', Qt.MouseButton.MiddleButton: 'middle', Qt.MouseButton.RightButton: 'right'}
KEYS = {Qt.Key.Key_Left: 'left', Qt.Key.Key_Right: 'right', Qt.Key.Key_Up: 'up', Qt.Key.Key_Down: 'down',
        Qt.Key.Key_Plus: 'plus', Qt.Key.Key_Minus: 'minus', Qt.Key.Key_Home: 'home', Qt.Key.Key_0: '3d',
        Qt.Key.Key_1: 'xy', Qt.Key.Key_2: 'yz', Qt.Key.Key_3: 'xz'}


class PlotWidget(QWidget):  # type: ignore[misc]
    """Shows a Plot, which goes on to be the program's: what is set of it shows.

    A drag turns it, with Shift or the middle button it shifts, with Ctrl it zooms; so do arrows, wheel, plus and minus; Home
    resets the view, 0 to 3 choose the plot."""

    #: The point under the pointer in trace mode, as (x, y, z); None when it is there no more.
    traced = Signal(object)
    #: The hand has turned, shifted or zoomed the plot, or switched to another one.
    viewChanged = Signal()
    #: The plot cannot be drawn any more: a sentence.
    failed = Signal(str)

    def __init__(self, plot: Plot, parent: Optional[QWidget] = None) -> None:
        super().__init__(parent)
        self._plot = plot
        self._image: Optional[npt.NDArray[Any]] = None
        self._timer = QTimer(self)
        self._timer.setSingleShot(True)
        self._timer.timeout.connect(plot.plotter.wake)
        self.setFocusPolicy(Qt.FocusPolicy.StrongFocus)
        self.setAttribute(Qt.WidgetAttribute.WA_OpaquePaintEvent)
        self.setContextMenuPolicy(Qt.ContextMenuPolicy.PreventContextMenu)  # the right button turns the plot
        forget = plot.be_shown(redraw=self.update, wake=self._wake, traced=self._tell, view_changed=self.viewChanged.emit,
                               failed=lambda: self.failed.emit(plot.plotter.failure()))
        self.destroyed.connect(forget)

    @property
    def plot(self) -> Plot:
        """What is shown."""
        return self._plot

    def trace(self, enable: bool = True) -> None:
        """Has the point under the pointer shown, and told by the signal traced."""
        self._plot.plotter.trace(enable)
        self.setMouseTracking(enable)
        self._plot.plotter.update()

    def sizeHint(self) -> QSize:
        return QSize(*self._plot.size)

    def _wake(self, milliseconds: int) -> None:
        if milliseconds < 0:
            self._timer.stop()
        else:
            self._timer.start(milliseconds)

    def _tell(self, point: Optional[tuple[float, float, float]]) -> None:
        self.traced.emit(self._plot.absolute(point))

    def resizeEvent(self, event: Any) -> None:
        self._plot.follow(self.width(), self.height(), self.devicePixelRatioF())

    def paintEvent(self, event: Any) -> None:
        if self.devicePixelRatioF() != self._plot.density:  # the window has come to another screen
            self._plot.follow(self.width(), self.height(), self.devicePixelRatioF())
        image = self._image = self._plot.plotter.draw()
        painter = QPainter(self)
        if image is not None:
            height, width = image.shape[:2]
            painter.drawImage(self.rect(), QImage(image.data, width, height, 4 * width, QImage.Format.Format_RGB32))
        painter.end()

    # ---- The hand -----------------------------------------------------------------------------------------------------

    def _place(self, position: QPointF) -> tuple[int, int]:
        return self._plot.place(position.x(), position.y())

    @staticmethod
    def _flags(event: Any) -> int:
        keys = event.modifiers()
        return key_state(shift=bool(keys & Qt.KeyboardModifier.ShiftModifier),
                         control=bool(keys & Qt.KeyboardModifier.ControlModifier))

    def mousePressEvent(self, event: Any) -> None:
        button = BUTTONS.get(event.button())
        if button:
            self._plot.plotter.press(button, self._flags(event), self._place(event.position()))

    def mouseMoveEvent(self, event: Any) -> None:
        self._plot.plotter.move(self._flags(event), self._place(event.position()))

    def mouseReleaseEvent(self, event: Any) -> None:
        button = BUTTONS.get(event.button())
        if button:
            self._plot.plotter.release(button)

    def wheelEvent(self, event: Any) -> None:
        self._plot.plotter.wheel(event.angleDelta().y(), self._place(event.position()))

    def focusOutEvent(self, event: Any) -> None:
        self._plot.plotter.cancel()
        super().focusOutEvent(event)

    def keyPressEvent(self, event: Any) -> None:
        key = KEYS.get(event.key())
        if not key or not self._plot.plotter.press_key(key, self._flags(event)):
            super().keyPressEvent(event)


def show(plot: Plot, is_waiting_not: bool) -> PlotWidget:
    """Opens a window of its own, and waits until it is closed unless it is told not to, or the program runs Qt already."""
    application = QApplication.instance()
    is_ours = application is None
    if is_ours:
        application = QApplication(sys.argv[:1])
        PlotWidget.application = application
    widget = PlotWidget(plot)
    widget.setWindowTitle(plot.title or 'Plot')
    widget.show()
    if not is_waiting_not and (is_ours or not _is_running(application)):
        application.exec()
    return widget


def _is_running(application: Any) -> bool:
    return bool(application.thread().loopLevel())
