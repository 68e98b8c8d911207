"""Surfaces z = f(x, y) from NumPy arrays, as pictures and in windows.

    plot = kivoplot.plot(z, x=x, y=y, colors="viridis")
    plot.save("plot.png")

FunctionPlotter is the library's class with all of its members, for programs that have a window of their own."""

from ._kivoplot import (MK_CONTROL, MK_LBUTTON, MK_MBUTTON, MK_RBUTTON, MK_SHIFT, Error, FunctionPlotter, KeptContext, PlotView,
                        Window, __version__, attach_x11_window, color_map_names, create_offscreen_window, keep_context, key_state,
                        last_window_error, to_pixels, wheel_steps)
from ._plot import Plot, plot
from ._records import FrameResult, Legend, LegendNumbers, PictureOptions, PixelOrder, Style, Surface, View

__all__ = [
    'MK_CONTROL', 'MK_LBUTTON', 'MK_MBUTTON', 'MK_RBUTTON', 'MK_SHIFT', 'Error', 'FrameResult', 'FunctionPlotter',
    'KeptContext', 'Legend', 'LegendNumbers', 'PictureOptions', 'PixelOrder', 'Plot', 'PlotView', 'Style', 'Surface', 'View', 'Window',
    '__version__', 'attach_x11_window', 'color_map_names', 'create_offscreen_window', 'keep_context', 'key_state',
    'last_window_error', 'plot', 'to_pixels', 'wheel_steps',
]
