#!/usr/bin/env python3
"""Writes the tables of colours that have names: scripts/make-color-tables.py [--check] [FOLDER]

viridis, cividis and turbo are read from Matplotlib, which FOLDER holds (Debian: python3-matplotlib). The others follow
from formulas: grey in even steps of lightness; coolwarm as Kenneth Moreland defines it in "Diverging Color Maps for
Scientific Visualization" (2009); terrain along colours of low and high land, lighter by the same with every step. With
--check nothing is written, and a difference is a failure. THIRD-PARTY.md has the licences.
"""

import ast
import math
import pathlib
import sys

COUNT = 256
OUTPUT = pathlib.Path(__file__).resolve().parent.parent / "KivoFunctionPlotter/src/computing/NamedColors.cpp"
WHITE = (0.95047, 1.0, 1.08883)  # D65

# ---- Colour spaces


def linear(channel):
    return channel / 12.92 if channel <= 0.04045 else ((channel + 0.055) / 1.055) ** 2.4


def encoded(channel):
    return channel * 12.92 if channel <= 0.0031308 else 1.055 * channel ** (1 / 2.4) - 0.055


def lab(rgb):
    """CIELAB of an sRGB colour."""
    r, g, b = (linear(channel) for channel in rgb)
    xyz = (0.4124564 * r + 0.3575761 * g + 0.1804375 * b,
           0.2126729 * r + 0.7151522 * g + 0.0721750 * b,
           0.0193339 * r + 0.1191920 * g + 0.9503041 * b)
    x, y, z = (f ** (1 / 3) if f > 216 / 24389 else (24389 / 27 * f + 16) / 116
               for f in (value / white for value, white in zip(xyz, WHITE)))
    return 116 * y - 16, 500 * (x - y), 200 * (y - z)


def rgb_of_lab(lightness, a, b):
    """The sRGB colour of a place in CIELAB, which must have one."""
    fy = (lightness + 16) / 116
    x, y, z = (white * (f ** 3 if f ** 3 > 216 / 24389 else (116 * f - 16) * 27 / 24389)
               for white, f in zip(WHITE, (fy + a / 500, fy, fy - b / 200)))
    channels = (3.2404542 * x - 1.5371385 * y - 0.4985314 * z,
                -0.9692660 * x + 1.8760108 * y + 0.0415560 * z,
                0.0556434 * x - 0.2040259 * y + 1.0572252 * z)
    if any(channel < -0.001 or channel > 1.001 for channel in channels):
        sys.exit(f"no screen has the colour L* {lightness}, a* {a}, b* {b}: {channels}")
    return tuple(encoded(min(max(channel, 0), 1)) for channel in channels)


# ---- Tables


def published(folder, name):
    """A table of Matplotlib's, which is data alone: nothing of it is run."""
    tree = ast.parse((folder / "_cm_listed.py").read_text(encoding="utf-8"))
    for node in tree.body:
        if isinstance(node, ast.Assign) and node.targets[0].id == f"_{name}_data":
            return ast.literal_eval(node.value)
    sys.exit(f"{folder} has no {name}")


def grey():
    return [rgb_of_lab(100 * i / (COUNT - 1), 0, 0) for i in range(COUNT)]


# Polar CIELAB: distance from black, angles of saturation and hue.
def msh(rgb):
    lightness, a, b = lab(rgb)
    m = math.sqrt(lightness ** 2 + a ** 2 + b ** 2)
    return m, math.acos(lightness / m), math.atan2(b, a)


def rgb_of_msh(m, s, h):
    return rgb_of_lab(m * math.cos(s), m * math.sin(s) * math.cos(h), m * math.sin(s) * math.sin(h))


def coolwarm():
    """From blue to red through white: half of the way lighter, half of the way darker, at even steps."""
    def turned(end):  # the hue that white has beside an end, so that the steps look even
        m, s, h = end
        spin = s * math.sqrt(88 ** 2 - m ** 2) / (m * math.sin(s)) if m < 88 else 0
        return h + spin if h > -math.pi / 3 else h - spin

    ends = [msh(rgb) for rgb in ((0.230, 0.299, 0.754), (0.706, 0.016, 0.150))]
    colors = []
    for i in range(COUNT):
        t = i / (COUNT - 1)
        end, share = (ends[0], 2 * t) if t < 0.5 else (ends[1], 2 - 2 * t)  # 1 is white
        white = (max(88, ends[0][0], ends[1][0]), 0, turned(end))
        colors.append(rgb_of_msh(*((1 - share) * at_end + share * at_white for at_end, at_white in zip(end, white))))
    return colors


# From green lowland over meadows and bare ground to snow: place, a*, b*. Lightness rises evenly beside them.
LAND = ((0.0, -26, 20), (0.3, -30, 42), (0.55, -6, 46), (0.8, 9, 27), (1.0, 0, 0))
LOWEST_LIGHTNESS, HIGHEST_LIGHTNESS = 32, 97


def terrain():
    colors = []
    for i in range(COUNT):
        t = i / (COUNT - 1)
        for (low, a0, b0), (high, a1, b1) in zip(LAND, LAND[1:]):
            if t <= high:
                break
        share = (t - low) / (high - low)
        lightness = LOWEST_LIGHTNESS + t * (HIGHEST_LIGHTNESS - LOWEST_LIGHTNESS)
        colors.append(rgb_of_lab(lightness, a0 + share * (a1 - a0), b0 + share * (b1 - b0)))
    return colors


# ---- Output

HEAD = """// Made by scripts/make-color-tables.py.
#include "NamedColors.h"

#include <cstddef>

namespace KivoDrawingTools {

namespace {

constexpr std::size_t colorCount = 256;

struct NamedColors {
    const char* name;
    std::uint32_t colors[colorCount]; // 0xRRGGBB
};

// clang-format off
constexpr NamedColors tables[] = {
"""

TAIL = """};
// clang-format on

} // namespace

std::vector<std::string> ColorTableNames() {
    std::vector<std::string> names;
    for (const NamedColors& table : tables)
        names.emplace_back(table.name);
    return names;
}

std::vector<float> NamedColorTable(const std::string& name) {
    std::vector<float> rgba;
    for (const NamedColors& table : tables) {
        if (name != table.name) continue;
        rgba.reserve(4 * colorCount);
        for (const std::uint32_t color : table.colors) {
            for (const unsigned int shift : {16u, 8u, 0u})
                rgba.push_back(static_cast<float>((color >> shift) & 0xFFu) / 255.0f);
            rgba.push_back(1.0f);
        }
    }
    return rgba;
}

} // namespace KivoDrawingTools
"""


def written(name, colors):
    numbers = ["0x" + "".join(f"{round(255 * channel):02X}" for channel in color) for color in colors]
    rows = [", ".join(numbers[i:i + 10]) for i in range(0, len(numbers), 10)]
    return f'    {{"{name}",\n     {{' + ",\n      ".join(rows) + "}},\n"


def main():
    arguments = sys.argv[1:]
    is_check = arguments[:1] == ["--check"]
    folder = pathlib.Path((arguments[is_check:] or ["/usr/lib/python3/dist-packages/matplotlib"])[0])
    text = HEAD
    for name in ("viridis", "cividis", "turbo"):
        text += written(name, published(folder, name))
    for formula in (grey, terrain, coolwarm):
        text += written(formula.__name__, formula())
    text += TAIL
    if is_check:
        sys.exit(0 if OUTPUT.read_text(encoding="utf-8") == text else f"{OUTPUT} is not what the script makes")
    OUTPUT.write_text(text, encoding="utf-8")


main()
