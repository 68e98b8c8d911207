"""Plots in tkinter."""

from __future__ import annotations

import tkinter
from collections.abc import Callable
from typing import Any, Optional, Union

from ._kivoplot import key_state
from ._plot import Plot

BUTTONS = {1: 'left', 2: 'middle', 3: 'right'}
SHIFT, CONTROL = 0x1, 0x4  # of a tkinter event's state
KEYS = {'Left': 'left', 'Right': 'right', 'Up': 'up', 'Down': 'down', 'plus': 'plus', 'KP_Add': 'plus', 'minus': 'minus',
        'KP_Subtract': 'minus', 'Home': 'home', '0': '3d', '1': 'xy', '2': 'yz', '3': 'xz'}
WHEEL_STEP = 120


class PlotWidget(tkinter.Label):
    """Shows a Plot, which goes on to be the program's: what is set of it shows. The hand does what it does in qt.PlotWidget.

    traced: called with the point under the pointer in trace mode, or None.
    view_changed: called when the hand has moved the plot."""

    def __init__(self, master: Optional[tkinter.Misc], plot: Plot, *,
                 traced: Optional[Callable[[Optional[tuple[float, float, float]]], object]] = None,
                 view_changed: Optional[Callable[[], object]] = None) -> None:
        super().__init__(master, borderwidth=0, highlightthickness=0, padx=0, pady=0, takefocus=True)
        self._plot, self._traced = plot, traced
        self._picture = tkinter.PhotoImage(master=self, width=plot.size[0], height=plot.size[1])
        self.configure(image=self._picture, width=plot.size[0], height=plot.size[1], anchor='nw')
        self._redraw: Optional[str] = None
        self._timer: Optional[str] = None
        self._leave = plot.be_shown(redraw=self._ask, wake=self._wake, traced=self._tell, view_changed=view_changed)
        for button in BUTTONS:
            self.bind(f'<ButtonPress-{button}>', self._press)
            self.bind(f'<ButtonRelease-{button}>', self._release)
        self.bind('<Motion>', lambda event: plot.plotter.move(self._flags(event), self._place(event)))
        self.bind('<Button-4>', lambda event: plot.plotter.wheel(WHEEL_STEP, self._place(event)))
        self.bind('<Button-5>', lambda event: plot.plotter.wheel(-WHEEL_STEP, self._place(event)))
        self.bind('<Key>', self._key)
        self.bind('<FocusOut>', lambda event: plot.plotter.cancel())
        self.bind('<Configure>', self._follow)
        self.bind('<Destroy>', self._forget)
        self._ask()

    @property
    def plot(self) -> Plot:
        """What is shown."""
        return self._plot

    def trace(self, enable: bool = True) -> None:
        """Has the point under the pointer shown, and told to the function traced."""
        self._plot.plotter.trace(enable)
        self._plot.plotter.update()

    # ---- What the view asks for ---------------------------------------------------------------------------------------

    def _ask(self) -> None:
        if self._redraw is None:
            self._redraw = self.after_idle(self._draw)

    def _wake(self, milliseconds: int) -> None:
        if self._timer is not None:
            self.after_cancel(self._timer)
            self._timer = None
        if milliseconds >= 0:
            self._timer = self.after(milliseconds, self._plot.plotter.wake)

    def _tell(self, point: Optional[tuple[float, float, float]]) -> None:
        if self._traced:
            self._traced(self._plot.absolute(point))

    def _draw(self) -> None:
        self._redraw = None
        image = self._plot.plotter.draw()
        if image is None:
            return
        height, width = image.shape[:2]
        self._picture.configure(width=width, height=height)
        # The only form that every Tk reads without a parser of colours' names: a picture file without compression.
        self._picture.configure(data=b'P6 %d %d 255\n' % (width, height) + image[..., 2::-1].tobytes(), format='PPM')

    def _forget(self, event: Any) -> None:
        self._leave()
        for name in (self._redraw, self._timer):
            if name is not None:
                self.after_cancel(name)
        self._redraw = self._timer = None

    # ---- The hand -----------------------------------------------------------------------------------------------------

    def _follow(self, event: Any) -> None:
        self._plot.follow(event.width, event.height, 1.0)

    def _place(self, event: Any) -> tuple[int, int]:
        return self._plot.place(event.x, event.y)

    @staticmethod
    def _flags(event: Any) -> int:
        state = event.state if isinstance(event.state, int) else 0
        return key_state(shift=bool(state & SHIFT), control=bool(state & CONTROL))

    def _press(self, event: Any) -> None:
        self.focus_set()
        self._plot.plotter.press(BUTTONS[event.num], self._flags(event), self._place(event))

    def _release(self, event: Any) -> None:
        self._plot.plotter.release(BUTTONS[event.num])

    def _key(self, event: Any) -> Optional[str]:
        key = KEYS.get(event.keysym)
        return 'break' if key and self._plot.plotter.press_key(key, self._flags(event)) else None


def show(plot: Plot, is_waiting_not: bool) -> PlotWidget:
    """Opens a window of its own, and waits until it is closed unless it is told not to."""
    is_first = tkinter._default_root is None  # type: ignore[attr-defined]
    window: Union[tkinter.Tk, tkinter.Toplevel] = tkinter.Tk() if is_first else tkinter.Toplevel()
    window.title(plot.title or 'Plot')
    widget = PlotWidget(window, plot)
    widget.pack(fill='both', expand=True)
    widget.focus_set()
    if not is_waiting_not:
        widget.wait_window(window)
    return widget
