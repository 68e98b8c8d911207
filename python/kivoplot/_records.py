"""The records and enumerations of the library's headers, by the names that they have there."""

import enum
from dataclasses import dataclass


class FrameResult(enum.IntEnum):
    """Some of the numbers that FunctionPlotter.renderscene returns; others are codes of the system's."""

    SHOWN = 0
    UNEXPLAINED = -1
    WITHOUT_PLOT = 6
    OUT_OF_MEMORY = 8
    REFUSED = 31
    NOT_SUPPORTED = 50
    INVALID_VALUE = 87
    ELSEWHERE = 170
    WINDOW_GONE = 1400
    OTHER_FORMAT = 2000


class LegendNumbers(enum.IntEnum):
    """Which values a colour legend shows beside its bar."""

    AS_SET = 0  #: eleven, with the digits of set_gradient_color_rule_floating_point_precision
    FITTED = 1  #: eleven, with the digits that tell them apart
    ROUND = 2  #: four to eleven round ones where they stand


class PixelOrder(enum.IntEnum):
    """The order of a pixel's four bytes."""

    RGBA = 0
    BGRA = 1


@dataclass
class Style:
    """How a plot looks, whatever it shows: scale of all pixels, 0x00BBGGRR of texts and lines, font."""

    pixel_scale: float = 1.0
    ink_color: int = 0
    text_face: str = ""
    bold_text: bool = True


@dataclass
class View:
    """How a plot is looked at: type, nine numbers of its rotation, pan as shares of the plot, zoom, mirrored axes."""

    plot_type: int = 0
    rotation: tuple[float, ...] = (1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0)
    pan_x: float = 0.0
    pan_y: float = 0.0
    zoom: float = 1.0
    inverse: tuple[bool, bool, bool] = (False, False, False)
    mirrored: bool = False


@dataclass
class Surface:
    """How a surface is drawn; color is 0x00BBGGRR, for one that is not coloured by z."""

    is_visible: bool = True
    opacity: float = 1.0
    is_colored_by_z: bool = True
    color: int = 0x00C08040
    frame_line_step: tuple[int, int] = (0, 0)


@dataclass
class Legend:
    """How the colour legend of an axis looks."""

    is_shown: bool = True
    title: str = ""
    numbers: LegendNumbers = LegendNumbers.AS_SET


@dataclass
class PictureOptions:
    """How a picture is drawn: pixels (0: the window's times the scale), scale, smoothing 1 to 4, without a
    ground, with no more of the surface than a frame of a drag."""

    width: int = 0
    height: int = 0
    scale: float = 1.0
    smoothing: int = 1
    transparent: bool = False
    moving: bool = False
