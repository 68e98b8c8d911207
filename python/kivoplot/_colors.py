"""Colours as users write them, and as the library takes them: 0x00BBGGRR."""

from __future__ import annotations

import re
from collections.abc import Sequence
from typing import Union

#: "#RRGGBB", "RRGGBB", "#RGB", a name, or three numbers from 0 to 1.
Color = Union[str, Sequence[float]]

# Those of CSS that have a letter of their own in other plotting programs, and a few more.
NAMES = {
    'black': 0x000000, 'white': 0xFFFFFF, 'red': 0xFF0000, 'green': 0x008000, 'blue': 0x0000FF, 'yellow': 0xFFFF00,
    'cyan': 0x00FFFF, 'magenta': 0xFF00FF, 'gray': 0x808080, 'grey': 0x808080, 'orange': 0xFFA500, 'purple': 0x800080,
    'brown': 0xA52A2A, 'pink': 0xFFC0CB, 'navy': 0x000080, 'silver': 0xC0C0C0, 'lightgray': 0xD3D3D3,
    'lightgrey': 0xD3D3D3, 'darkgray': 0xA9A9A9, 'darkgrey': 0xA9A9A9, 'gold': 0xFFD700, 'teal': 0x008080,
}


def packed(name: str, color: Color) -> int:
    """The colour as 0x00BBGGRR; errors name the argument."""
    if isinstance(color, str):
        return _swapped(_of_text(name, color))
    try:
        channels = [float(channel) for channel in color]
    except (TypeError, ValueError):
        raise TypeError(f'{name}: expected a colour such as "#ff8000", "red" or (1, 0.5, 0), '
                        f'found {color!r}') from None
    if len(channels) != 3 or not all(0.0 <= channel <= 1.0 for channel in channels):
        raise ValueError(f'{name}: expected three numbers from 0 to 1, found {color!r}')
    red, green, blue = (int(channel * 255 + 0.5) for channel in channels)
    return red | green << 8 | blue << 16


def _of_text(name: str, text: str) -> int:
    known = NAMES.get(text.lower())
    if known is not None:
        return known
    digits = re.fullmatch(r'#?([0-9a-fA-F]{6}|[0-9a-fA-F]{3})', text)
    if not digits:
        raise ValueError(f'{name}: {text!r} is no colour; expected #RRGGBB or one of {", ".join(sorted(NAMES))}')
    number = digits.group(1)
    return int(number if len(number) == 6 else ''.join(digit * 2 for digit in number), 16)


def _swapped(rgb: int) -> int:
    return (rgb & 0xFF) << 16 | rgb & 0xFF00 | rgb >> 16


def is_dark(color: int) -> bool:
    """Whether light texts are read on it, by the weights of the eye."""
    red, green, blue = color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF
    return 299 * red + 587 * green + 114 * blue < 128 * 1000
