"""Windows of plots, by the first toolkit that is there."""

from __future__ import annotations

import importlib
import os
import sys
from typing import TYPE_CHECKING, Any, Optional

if TYPE_CHECKING:
    from ._plot import Plot

TOOLKITS = ('qt', 'tk')


def toolkit() -> Any:
    """The module of this package for a toolkit: one that the program uses already, or the first that is there."""
    if not os.environ.get('DISPLAY'):
        raise RuntimeError('show: there is no X11 display (DISPLAY is not set); save() and image() need none')
    used = {'qt': ('PyQt6.QtWidgets', 'PySide6.QtWidgets'), 'tk': ('tkinter',)}
    reasons = []
    for name in sorted(TOOLKITS, key=lambda name: not any(module in sys.modules for module in used[name])):
        try:
            return importlib.import_module(f'.{name}', __package__)
        except ImportError as error:
            reasons.append(str(error))
    raise ImportError('show: no toolkit for windows is there; install PyQt6 (Debian: python3-pyqt6), PySide6 or tkinter '
                      f'(python3-tk): {"; ".join(reasons)}')


def show(plot: Plot, block: Optional[bool]) -> Any:
    """Opens a window of the plot's."""
    return toolkit().show(plot, is_interactive() if block is None else not block)


def is_interactive() -> bool:
    """Whether Python is used by hand, so that a window may stay while the next line is typed."""
    return hasattr(sys, 'ps1')
